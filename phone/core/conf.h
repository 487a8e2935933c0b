// DIR/phone.conf: what sort of phone this is, one fact a line, # begins a comment. Read at each start, before
// the seeds are laid.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

// Takes the words behind a key; the result is empty, or what is wrong with them.
using conf_fn = std::string (*)(const std::vector<std::string>& args);

void conf_add(std::string_view key, conf_fn fn);

// A key whose line is carried out as the control word of that name, after all devices have started.
void conf_add_word(std::string_view word);

// Reads the file. The result is empty, or a message that names file, line and fault.
std::string conf_read();

// Carries out the lines of conf_add_word, and says of a line `without` that it names what no phone has.
std::string conf_run_words();

// A line `setting MODULE KEY VALUE`: a named setting of the program that its product leaves open.
struct conf_setting {
    std::string module;
    std::string key;
    std::string value;
    std::optional<std::uint32_t> number; // a value of digits alone
};

// All of them in their order; they stay where they are.
const std::deque<conf_setting>& conf_settings();

// The keys `without`, `with` and `setting`. A node that only some phones have is offered by its device with
// conf_offer.
void conf_attach();
void conf_offer(std::string_view path, void (*add)());

} // namespace phone
