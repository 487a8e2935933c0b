// A station transcript: a text file of cases, each a session against a phone. README.md in tests/ describes
// the format.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct step {
    int line;           // in the file, from 1
    std::string verb;   // send, expect, raw, read, silence, phone, fails, awaits, write, file, conf, restart,
                        // reboots, off, strange
    std::string text;   // what follows, escapes as they stand
    std::string answer; // what follows " -> "
    bool has_answer;
};

struct test_case {
    int line;
    std::string title;
    std::vector<step> steps;
};

// Reads a file. The result is empty, or the first thing that isn't understood, with its line.
std::string read_transcript(const std::string& path, std::vector<test_case>& cases);

// Puts bytes in place of \r \n \t \\ \0 \xNN, and \*N{text} is N times the text.
std::string unescaped(const std::string& text);

// The other way round, for messages.
std::string shown(const std::string& bytes);
