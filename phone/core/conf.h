// DIR/phone.conf: what sort of phone this is, one fact a line, # begins a comment. Read at each start, before
// the seeds are laid.
#pragma once

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

// Carries out the lines of conf_add_word.
std::string conf_run_words();

// The keys `without` and `with`. A node that only some phones have is offered by its device with conf_offer.
void conf_attach();
void conf_offer(std::string_view path, void (*add)());

} // namespace phone
