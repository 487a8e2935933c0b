// The far side of a phone's control port.
#pragma once

#include <string>
#include <string_view>

// A connection to DIR/control; -1 and errno when nobody serves it.
int control_connect(const std::string& dir);

// Says on standard error, by errno, why nobody could be reached in DIR.
void control_say_why(const char* dir);

// Sends one request line and waits for the whole answer, at most `timeout_ms`. On "ok" the result is true and
// `answer` holds the lines before it; otherwise `answer` says what is wrong.
bool control_ask(int fd, std::string_view line, std::string& answer, int timeout_ms = 120'000);

// Says where files of this connection's requests lie: the phone may have another working folder.
bool control_tell_folder(int fd);
