#include "client/complete.h"

#include <algorithm>

namespace {

std::vector<std::string> split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t at = text.find(separator);
        parts.emplace_back(text.substr(0, at));
        if (at == text.npos)
            return parts;
        text.remove_prefix(at + separator.size());
    }
}

// Of "[on|off]", "PATTERN [COUNT] | call N", "in|out|size MIB" the words in small letters that come first.
std::vector<std::string> first_words(std::string_view usage)
{
    std::vector<std::string> found;
    for (const std::string& form : split(usage, " | ")) {
        const std::size_t from = std::min(form.find_first_not_of("[ "), form.size());
        const std::size_t to = std::min(form.find_first_of(" ]", from), form.size());
        for (const std::string& word : split(std::string_view(form).substr(from, to - from), "|"))
            if (!word.empty() && std::ranges::all_of(word, [](char c) { return c >= 'a' && c <= 'z'; }))
                found.push_back(word);
    }
    return found;
}

void add(std::vector<std::string>& found, std::string_view part, const std::string& word)
{
    if (word.starts_with(part))
        found.push_back(word);
}

} // namespace

std::vector<control_word> words_of_help(std::string_view help)
{
    std::vector<control_word> words;
    for (const std::string& line : split(help, "\n")) {
        const std::string usage = line.substr(0, line.find("  "));
        const std::size_t end = std::min(usage.find(' '), usage.size());
        if (end > 0)
            words.push_back({usage.substr(0, end), first_words(std::string_view(usage).substr(end))});
    }
    return words;
}

std::vector<std::string> completions(std::string_view before, std::string_view part,
                                     const std::vector<std::string>& commands,
                                     const std::vector<control_word>& words)
{
    std::vector<std::string> found;
    const std::string_view lead = before.substr(0, before.size() - part.size());
    if (!before.starts_with('!')) {
        if (lead.empty())
            for (const std::string& name : commands)
                add(found, part, name);
        else if (lead == "help=\"" || lead == "list=\"")
            for (const std::string& name : commands)
                add(found, part, name);
        return found;
    }
    std::string_view done = lead.substr(std::min<std::size_t>(1, lead.size()));
    while (done.ends_with(' '))
        done.remove_suffix(1);
    for (const control_word& word : words) {
        if (lead == "!")
            add(found, part, word.name);
        else if (done == "help")
            add(found, part, word.name);
        else if (done == word.name)
            for (const std::string& first : word.first)
                add(found, part, first);
    }
    return found;
}
