// The page as a station: sends lines to the station's port, DIR/ttyGS0. What the program answers is shown
// from the port's log, which has what all stations sent and got; here it is only taken off the port, so that
// nothing piles up there, and only while no other process has the port open: another station's bytes are
// its own.
#pragma once

#include <string>
#include <string_view>

namespace view {

void station_open(const std::string& dir);

// Sends a line and its CR. The result is empty, or why it can't be sent.
std::string station_send(std::string_view line);

// The phone went off: its port with it.
void station_close();

} // namespace view
