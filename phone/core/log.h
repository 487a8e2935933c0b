// The logs of a phone, DIR/log/kmsg, shell, port and those of its devices: one line an entry, kept over
// restarts, cut at 1 MiB each. Entries are gathered and written every 20 ms, so that logging costs the
// program no time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace phone {

using log_id = std::size_t;
constexpr log_id log_kmsg = 0;
constexpr log_id log_shell = 1;
constexpr log_id log_port = 2;

// One more log, with its word of the control port. Only while devices attach.
log_id log_add(std::string_view name, std::string_view help);

// The log of that name; the kernel's when there is none.
log_id log_named(std::string_view name);

// One line (without its line end), from any thread. Line ends in it are written as \r and \n.
void log_line(log_id log, std::string_view line);

// What is still gathered goes to the files now.
void log_flush();

// The last `count` lines of a log, joined by line ends.
std::string log_tail(log_id log, std::size_t count);

// The logs `kmsg`, `shell` and `port`.
void log_attach();

} // namespace phone
