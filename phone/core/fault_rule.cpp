#include "core/fault_rule.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>

#include "core/files.h"
#include "core/text.h"
#include "core/toolbox.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr std::string_view tail_wanted = "[COUNT|all] [eio|short|eof|slow MS]";

constexpr std::array kinds = {"all", "eio", "short", "eof", "slow"};

// What nodes call their requests in words (`about` of a node).
constexpr std::array requests = {"timeout", "retries", "pan", "blank", "off"};

std::map<std::string, std::vector<target_number>, std::less<>> target_grammars; // before the program runs

// Reads [COUNT|all] [KIND [MS]] from `args` at `at`.
std::string read_count_and_kind(const std::vector<std::string>& args, std::size_t at, fault_rule& r)
{
    if (at < args.size() && args[at] == "all") {
        r.left = -1;
        at++;
    } else if (at < args.size() && number(args[at])) {
        r.left = *number(args[at++]);
        if (r.left < 1)
            return "a count from 1, or \"all\", is wanted";
    }
    if (at < args.size()) {
        const std::string& kind = args[at++];
        if (kind == "eio") {
            r.kind = fault_kind::eio;
        } else if (kind == "short") {
            r.kind = fault_kind::shortened;
        } else if (kind == "eof") {
            r.kind = fault_kind::eof;
        } else if (kind == "slow") {
            const auto ms = at < args.size() ? number(args[at++]) : std::nullopt;
            if (!ms || *ms < 0 || *ms > 3'600'000)
                return "slow wants 0 to 3600000 ms";
            r.kind = fault_kind::slow;
            r.slow_ms = *ms;
        } else {
            return "the kinds are eio, short, eof and slow MS, not \"" + kind + "\"";
        }
    }
    return at == args.size() ? "" : "\"" + args[at] + "\" is too much";
}

std::string target_text(const std::string& word, target_number kind)
{
    const auto value =
        kind == target_number::decimal
            ? number(word).value_or(-1)
            : static_cast<std::int64_t>(hex_number(word).value_or(static_cast<std::uint64_t>(-1)));
    if (value < 0)
        return {};
    char text[32];
    switch (kind) {
    case target_number::decimal:
        return std::to_string(value);
    case target_number::hex:
        std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(value));
        break;
    case target_number::hex2:
        std::snprintf(text, sizeof text, "%02llX", static_cast<unsigned long long>(value));
        break;
    case target_number::hex5:
        std::snprintf(text, sizeof text, "%05llX", static_cast<unsigned long long>(value));
        break;
    case target_number::hex_0x:
        std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(value));
        break;
    }
    return text;
}

bool is_hex2(std::string_view word)
{
    return word.size() == 2 && hex_number(word).has_value();
}

// Writes the numbers of a target as its texts have them. The result is how many words belong to the pattern
// at least: those numbers aren't counts.
std::size_t take_target(std::vector<std::string>& args)
{
    // A bus transfer as `calls` lists it, "ioctl /dev/i2c-5 18 02".
    if (args.size() >= 4 && args[0] == "ioctl" && is_hex2(args[2]) && is_hex2(args[3]))
        return 4;
    const auto grammar = args.empty() ? target_grammars.end() : target_grammars.find(args[0]);
    if (grammar == target_grammars.end())
        return 1;
    std::size_t words = 1;
    for (const target_number kind : grammar->second) {
        const std::string text = words < args.size() ? target_text(args[words], kind) : "";
        if (text.empty())
            break;
        args[words++] = text;
    }
    return words;
}

// What is wrong with a count or a kind at the end, which is no part of the pattern whatever its value.
std::string wrong_end(const std::vector<std::string>& args, std::size_t least)
{
    const std::size_t words = args.size();
    if (words <= least)
        return {};
    fault_rule ignored;
    if (args[words - 2] == "slow")
        return read_count_and_kind(args, words - 2, ignored);
    return args[words - 1] == "slow" || number(args[words - 1])
               ? read_count_and_kind(args, words - 1, ignored)
               : "";
}

// Whether `word` is `wanted`, whatever its capitals, but for one letter that differs, lacks or is too much.
bool is_nearly(std::string_view word, std::string_view wanted)
{
    const auto same = [](char a, char b) { return (a | 0x20) == b; };
    std::size_t front = 0;
    while (front < word.size() && front < wanted.size() && same(word[front], wanted[front]))
        front++;
    std::size_t back = 0;
    const std::size_t shorter = std::min(word.size(), wanted.size());
    while (back < shorter - front && same(word[word.size() - 1 - back], wanted[wanted.size() - 1 - back]))
        back++;
    return std::max(word.size(), wanted.size()) - front - back <= 1;
}

// How many of the words can be a pattern: the rest of them isn't understood.
std::size_t pattern_words(const std::vector<std::string>& args, std::size_t least)
{
    const std::string& first = args[0];
    if (target_grammars.contains(first))
        return least;
    if (first.starts_with('/'))
        return 1;
    if (args.size() > 1 &&
        std::ranges::any_of(kinds, [&](const char* kind) { return is_nearly(args.back(), kind); }))
        return args.size() - 1;
    if (first == "ioctl") {
        std::size_t count = std::min(args.size(), std::size_t{2});
        while (count < args.size() &&
               (hex_number(args[count]) || std::ranges::find(requests, args[count]) != requests.end()))
            count++;
        return count;
    }
    if (first == "system" || first == "popen" || first == "mount" || toolbox_has(first))
        return args.size(); // of a shell line
    return 2;               // "OPERATION PATH"
}

// `call N [COUNT|all] [KIND]`: the Nth of all recorded calls; `nth N TEXT`: the Nth of those with this text.
std::string read_nth(const std::vector<std::string>& args, std::string_view rest, fault_rule& r)
{
    const auto nth = number(args[1]);
    if (!nth || *nth < 1)
        return "the number of a call, from 1, is wanted";
    r.skip = *nth - 1;
    r.counted_only = true;
    if (args[0] == "call")
        return read_count_and_kind(args, 2, r);
    const std::string_view behind = trimmed(rest.substr(args[0].size()));
    r.pattern = trimmed(behind.substr(args[1].size()));
    r.how = match::whole;
    return r.pattern.empty() ? "the text of a call is wanted" : "";
}

// A pattern is a part of a text: the beginning of a path is enough.
std::string note_of(const std::vector<std::string>& args)
{
    const std::size_t at = args[0].starts_with('/') ? 0 : 1;
    const bool of_shell = at == 1 && (args[0] == "system" || args[0] == "popen" || toolbox_has(args[0]));
    if (at >= args.size() || of_shell || !args[at].starts_with('/') ||
        (path_is_known(args[at], true) && !path_is_lacking(args[at])))
        return {};
    return "note: this phone has no " + args[at] + "; the fault waits until a call names it";
}

} // namespace

void watch_target_add(std::string_view name, std::initializer_list<target_number> numbers)
{
    target_grammars[std::string(name)] = numbers;
}

std::string fault_rule_read(std::vector<std::string> args, std::string_view rest, fault_rule& r,
                            std::string& note)
{
    if (args.size() >= 2 && (args[0] == "call" || args[0] == "nth"))
        return read_nth(args, rest, r);
    const std::size_t least = take_target(args);
    if (least > 1 && args[0] != "ioctl")
        r.how = match::words;
    if (std::string wrong = wrong_end(args, least); !wrong.empty())
        return wrong;
    std::size_t end = args.size();
    for (std::size_t i = least; i < end; i++) {
        fault_rule probe = r;
        if (read_count_and_kind(args, i, probe).empty()) {
            end = i;
            r = probe;
        }
    }
    for (std::size_t i = 0; i < end; i++)
        r.pattern += (i > 0 ? " " : "") + args[i];
    if (r.pattern.empty())
        return "PATTERN " + std::string(tail_wanted) + ", call N ..., nth N TEXT, or off is wanted";
    args.resize(end);
    const std::size_t words = pattern_words(args, least);
    if (words < end)
        return "\"" + args[words] + "\" isn't understood; behind the pattern \"" +
               r.pattern.substr(0, r.pattern.find(" " + args[words])) + "\" stands " +
               std::string(tail_wanted);
    note = note_of(args);
    return {};
}

std::string fault_rule_name(const fault_rule& r)
{
    if (!r.counted_only)
        return r.pattern;
    return (r.pattern.empty() ? "call " : "nth ") + std::to_string(r.skip + 1) +
           (r.pattern.empty() ? "" : " " + r.pattern);
}

std::string fault_rule_text(const fault_rule& r)
{
    std::string text = fault_rule_name(r) + ", ";
    text += r.left < 0 ? "for good" : (r.left == 0 ? "none" : std::to_string(r.left)) + " left";
    switch (r.kind) {
    case fault_kind::eio:
        text += ", eio";
        break;
    case fault_kind::shortened:
        text += ", short";
        break;
    case fault_kind::eof:
        text += ", eof";
        break;
    case fault_kind::slow:
        text += ", slow " + std::to_string(r.slow_ms);
        break;
    }
    return text + ", " + std::to_string(r.hits) + (r.hits == 1 ? " hit" : " hits");
}

bool fault_rule_fits(const fault_rule& r, std::string_view text, bool transfer)
{
    if ((r.kind == fault_kind::shortened || r.kind == fault_kind::eof) && !transfer)
        return false;
    if (r.left == 0)
        return false;
    switch (r.how) {
    case match::whole:
        return trimmed(text) == r.pattern; // a call without a path ends in a blank
    case match::words:
        return text == r.pattern || text.starts_with(r.pattern + " ");
    case match::part:
        break;
    }
    return text.find(r.pattern) != text.npos;
}

} // namespace phone
