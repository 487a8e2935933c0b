// The three logs of a phone, DIR/log/kmsg, shell and port: one line an entry, kept over restarts, cut at
// 1 MiB each. Entries are gathered and written every 20 ms, so that logging costs the program no time.
#pragma once

#include <string>
#include <string_view>

namespace phone {

enum log_name { log_kmsg, log_shell, log_port };

// One line (without its line end), from any thread.
void log_line(log_name log, std::string_view line);

// What is still gathered goes to the files now.
void log_flush();

// The last `count` lines of a log, joined by line ends.
std::string log_tail(log_name log, std::size_t count);

// The words `shell`, `kmsg`, `port` of the control port.
void log_attach();

} // namespace phone
