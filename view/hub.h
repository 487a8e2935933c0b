// What the pages and the phone tell one another, whatever carries it. Messages of a page are text, their
// first word says what they are:
//   want WISHES...    all that it wants to be told from now on, by commas: screen0, screen2, lamps, log NAME
//   seen DISPLAY      it shows the picture that it was sent: 0 the panel, 1 the monitor
//   ask ID REQUEST    a request to the control port; the answer comes as "answer ID ok|error", its lines
//   behind hand REQUEST      a touch or a key: the same on a connection that no long request holds up type
//   LINE         a line for the station's port keep NAME         the binary message that follows is a file
//   for later requests start             starts the phone
// It is sent:
//   phone on|off|gone, answer ..., word REQUEST (somebody has said that), log NAME and lines, tail NAME and
//   all its last lines, lamp NAME
//   VALUE, said TEXT (what couldn't be done), and tiles (tiles.h) as binary messages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "view/page.h"

namespace view {

struct hub_options {
    std::string dir;     // whole path
    std::string starter; // the program that starts a phone
};

// True when the phone's folder for files, DIR/view/files, is there for this user alone.
bool hub_open(const hub_options& options);

void hub_join(const page_ref& p);
void hub_leave(const page_ref& p);

// A message of a page; one that isn't as above is answered "said".
void hub_text(const page_ref& p, std::string_view message);
void hub_binary(const page_ref& p, std::string_view content);

// The next message for a page, appended to `out`; `is_text` says which kind. False when there is none.
bool hub_next(page& p, std::vector<std::uint8_t>& out, bool& is_text);

// The path of a file of the pages, or empty: NAME has letters, digits, '-', '_' and '.', no more.
std::string hub_file(std::string_view name);

} // namespace view
