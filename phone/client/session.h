// A station's session with a phone: its port, and its control port, which tells when a reply is whole and
// goes on over a restart. What comes is shown when it comes, or held until a reply is whole; it knows nothing
// of lines that somebody edits.
#pragma once

#include <string>
#include <string_view>

enum class outcome {
    replied,
    interrupted, // by Ctrl-C: the program is still at work
    hung_up,     // the station's port is gone, the phone isn't
    off,
};

struct session {
    std::string dir;
    int port = -1;
    int control = -1;
    int unanswered = 0;      // requests for "idle": while there is one, the program is at work
    bool at_prompt = false;  // somebody sits there
    bool restarting = false; // the phone has, and has not answered since
    bool in_line = false;    // what was shown last had no line end
    bool holding = false;    // what comes is kept in `reply` alone
    std::string reply;       // what has come since the last line was sent
};

// Opens both ports. False, and errno, when nobody serves them.
bool session_open(session& s, const std::string& dir);

// Opens a port that was hung up, once it is there again.
bool session_reopen(session& s);

// Ctrl-C gives back what waits.
void session_catch_interrupts();
bool session_take_interrupt();

// Shows what only a person wants to know.
void session_note(session& s, const char* text);

// Shows what has come by itself. `control_moved`: there is something at the control port.
outcome session_show_unasked(session& s, bool control_moved);

// Waits until the program's loop waits for input: then what has come is whole, whatever its terminators.
outcome session_take_reply(session& s);

// Sends a line and waits for its reply. One that is long in coming isn't held any more but shown as it comes.
// A line that comes while the program is still at work waits, since two in one are none.
outcome session_exchange(session& s, const std::string& line, bool hold);

// One request to the control port, on a connection of its own, files counting from the working folder; the
// result is whether it was carried out, `answer` what it says.
bool session_control(const session& s, const std::string& words, std::string& answer);
