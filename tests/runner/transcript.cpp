#include "runner/transcript.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>

namespace {

const std::set<std::string> with_text = {"send",  "expect", "raw",  "read",    "phone",   "fails",
                                         "write", "file",   "conf", "strange", "silence", "awaits"};
const std::set<std::string> without_text = {"restart", "reboots", "off"};

// Splits "verb  text -> answer".
std::string read_step(const std::string& line, int number, std::vector<step>& steps)
{
    const std::size_t from = line.find_first_not_of(" \t");
    const std::size_t verb_end = std::min(line.find_first_of(" \t", from), line.size());
    const std::size_t text_at = std::min(line.find_first_not_of(" \t", verb_end), line.size());
    const std::string verb = line.substr(from, verb_end - from);
    const std::string text = line.substr(text_at);
    if (verb == "+") {
        if (steps.empty())
            return "nothing to continue";
        (steps.back().has_answer ? steps.back().answer : steps.back().text) += text;
        return {};
    }
    if (!with_text.contains(verb) && !without_text.contains(verb))
        return "no step \"" + verb + "\"";
    if (without_text.contains(verb) && !text.empty())
        return verb + " takes no text";
    if (verb == "silence" &&
        (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != text.npos))
        return "silence MS is wanted, not \"" + text + "\"";
    step s{number, verb, text, "", false};
    if (verb == "phone" || verb == "fails" || verb == "file" || verb == "awaits") {
        const std::string arrow = text.ends_with(" ->") ? " ->" : " -> ";
        if (const std::size_t at = text.find(arrow); at != text.npos) {
            s.text = text.substr(0, at);
            while (s.text.ends_with(' '))
                s.text.pop_back();
            s.answer = text.substr(at + arrow.size());
            s.has_answer = true;
        } else if (verb == "file" || verb == "awaits") {
            return verb == "file" ? "file PATH -> CONTENT is wanted" : "awaits WORDS -> ANSWER is wanted";
        }
    }
    steps.push_back(s);
    return {};
}

} // namespace

std::string read_transcript(const std::string& path, std::vector<test_case>& cases)
{
    std::ifstream file(path);
    if (!file)
        return path + ": can't be read";
    std::string line;
    for (int number = 1; std::getline(file, line); number++) {
        while (line.ends_with(' ') || line.ends_with('\t') || line.ends_with('\r'))
            line.pop_back();
        const std::size_t from = line.find_first_not_of(" \t");
        if (from == line.npos || line[from] == '#')
            continue;
        std::string wrong;
        if (from == 0)
            cases.push_back({number, line, {}});
        else if (cases.empty())
            wrong = "a step before the first title";
        else
            wrong = read_step(line, number, cases.back().steps);
        if (!wrong.empty())
            return path + ":" + std::to_string(number) + ": " + wrong;
    }
    for (const test_case& c : cases)
        if (c.steps.empty())
            return path + ":" + std::to_string(c.line) + ": a case without steps";
    return cases.empty() ? path + ": no case in it" : "";
}

std::string unescaped(const std::string& text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i++) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            bytes += text[i];
            continue;
        }
        switch (text[++i]) {
        case 'r':
            bytes += '\r';
            break;
        case 'n':
            bytes += '\n';
            break;
        case 't':
            bytes += '\t';
            break;
        case '0':
            bytes += '\0';
            break;
        case '*': {
            const std::size_t open = std::min(text.find('{', i), text.size());
            const std::size_t close = std::min(text.find('}', open), text.size());
            const std::size_t begin = std::min(open + 1, close);
            const std::string part = unescaped(text.substr(begin, close - begin));
            for (unsigned long n = std::strtoul(text.c_str() + i + 1, nullptr, 10); n > 0; n--)
                bytes += part;
            i = close;
            break;
        }
        case 'x':
            bytes += static_cast<char>(std::strtoul(text.substr(i + 1, 2).c_str(), nullptr, 16));
            i += 2;
            break;
        default:
            bytes += text[i];
        }
    }
    return bytes;
}

std::string shown(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        char hex[8];
        if (c == '\r') {
            text += "\\r";
        } else if (c == '\n') {
            text += "\\n";
        } else if (c == '\\') {
            text += "\\\\";
        } else if (byte >= 0x20 && byte < 0x7F) {
            text += c;
        } else {
            std::snprintf(hex, sizeof hex, "\\x%02X", byte);
            text += hex;
        }
    }
    return text;
}
