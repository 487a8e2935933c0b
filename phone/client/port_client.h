// The station's side of a serial port: a phone's DIR/ttyGS0 or a real port.
#pragma once

#include <string>
#include <string_view>

// Opens `path` in raw mode, non-blocking, without making it the controlling terminal; -1 and errno on
// failure.
int port_open_raw(const std::string& path);

// Sends all of `bytes`, waiting at most `timeout_ms` in all for room, reading meanwhile into `got` what comes
// back, so that neither side blocks the other. False when the port is gone or takes nothing.
bool port_send(int fd, std::string_view bytes, std::string& got, int timeout_ms);

// Appends what is there to read; false when the port is gone.
bool port_take(int fd, std::string& got);
