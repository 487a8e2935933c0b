#include "runner/transcript.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>

namespace {

const std::set<std::string> with_text = {"send", "expect", "raw",     "read",    "phone",  "fails", "write",
                                         "file", "conf",   "strange", "silence", "awaits", "after"};
const std::set<std::string> without_text = {"restart", "reboots", "off"};
// What can have an answer behind it, and the form of what must.
const std::map<std::string, std::string> with_answer = {{"send", ""},
                                                        {"phone", ""},
                                                        {"fails", ""},
                                                        {"file", "PATH -> CONTENT"},
                                                        {"awaits", "WORDS -> ANSWER"},
                                                        {"after", "MS -> TEXT"}};

// Takes "text -> answer" apart; false if there is no answer.
bool split_answer(step& s)
{
    const std::string arrow = s.text.ends_with(" ->") ? " ->" : " -> ";
    const std::size_t at = s.text.find(arrow);
    if (at == s.text.npos)
        return false;
    s.answer = s.text.substr(at + arrow.size());
    s.text.erase(at);
    while (s.text.ends_with(' '))
        s.text.pop_back();
    s.has_answer = true;
    return true;
}

bool is_time(const std::string& ms)
{
    return !ms.empty() && ms.size() <= 9 && ms.find_first_not_of("0123456789") == ms.npos;
}

// The parts of a row, with bars between them.
std::vector<std::string> parts_of(const std::string& row)
{
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t bar; (bar = row.find(" | ", from)) != row.npos; from = bar + 3)
        parts.push_back(row.substr(from, bar - from));
    parts.push_back(row.substr(from));
    return parts;
}

// Takes " after MS" off the end of a text that is sent; "" where there is none.
std::string split_time(step& s)
{
    const std::size_t at = s.text.rfind(" after ");
    const std::string ms = at != s.text.npos ? s.text.substr(at + 7) : "";
    if (!is_time(ms))
        return {};
    s.text.erase(at);
    return ms;
}

// "text -> answer" of a verb. What is sent with its answer, and a time with what it brings, are several
// steps.
std::string add_step(int number, const std::string& verb, const std::string& text, std::vector<step>& steps)
{
    step s{number, verb, text, "", false};
    if (const auto form = with_answer.find(verb);
        form != with_answer.end() && !split_answer(s) && !form->second.empty())
        return verb + " " + form->second + " is wanted";
    if ((verb == "silence" || verb == "after") && !is_time(s.text))
        return verb + " takes milliseconds, not \"" + s.text + "\"";
    if (!s.has_answer || (verb != "send" && verb != "after")) {
        steps.push_back(s);
        return {};
    }
    for (const std::string& part : parts_of(s.text)) {
        step sent{number, verb, part, "", false};
        const std::string ms = verb == "after" ? part : split_time(sent);
        if (verb == "send")
            steps.push_back(sent);
        if (!ms.empty())
            steps.push_back({number, "phone", "clock +" + ms, "", false});
        steps.push_back({number, "expect", s.answer, "", false});
    }
    return {};
}

// Splits "verb  text".
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
    std::string wrong;
    for (const std::string& part : verb == "phone" ? parts_of(text) : std::vector{text})
        wrong = add_step(number, verb, part, steps);
    return wrong;
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
