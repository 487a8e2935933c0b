// What Tab offers at the prompt.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A word of the control port, and what can stand first behind it.
struct control_word {
    std::string name;
    std::vector<std::string> first;
};

// Reads the answer to the control port's "help".
std::vector<control_word> words_of_help(std::string_view help);

// What the text that ends the line `before` can become: commands, behind "!" words of the control port and
// their first words, behind "help=" commands in quotes. The results are whole replacements of `part`, which
// ends `before`.
std::vector<std::string> completions(std::string_view before, std::string_view part,
                                     const std::vector<std::string>& commands,
                                     const std::vector<control_word>& words);
