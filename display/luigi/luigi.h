// The menu on the phone's own screen: a Lua interpreter on a thread of its own. The power key starts and
// stops a menu script; keys and touches go to its widgets; the script reaches every command through qat.
// Nothing but that thread touches the interpreter, the widgets and, while a menu runs, the screen; the main
// loop only puts messages on a queue. Commands of a script run beside those of the station: one side at a
// time is to drive the phone.
#pragma once

#include <cstdint>
#include <string_view>

constexpr std::uint32_t LUIGI_MSG_START = 0;
constexpr std::uint32_t LUIGI_MSG_STOP = 1;
constexpr std::uint32_t LUIGI_MSG_TOUCH = 2;
constexpr std::uint32_t LUIGI_MSG_KEY = 3;
constexpr std::uint32_t LUIGI_MSG_USER = 4; // nobody sends it

// Actions of a touch, in `c`, as scripts see them.
constexpr std::uint32_t LUIGI_TOUCH_PRESSED = 1;
constexpr std::uint32_t LUIGI_TOUCH_RELEASED = 2;
constexpr std::uint32_t LUIGI_TOUCH_MOVED = 3;

// Actions of a key, in `b`, as scripts see them.
constexpr std::uint32_t LUIGI_KEY_RELEASED = 1;
constexpr std::uint32_t LUIGI_KEY_PRESSED = 2; // and repeated

struct luigi_message {
    std::uint32_t timestamp; // microseconds of tmr_get, set when it is sent
    std::uint32_t type;
    std::uintptr_t a; // start, stop: the script's path, of malloc, the receiver's; touch: x; key: code
    std::uint32_t b;  // touch: y; key: action
    std::uint32_t c;  // touch: action
};

// Starts the queue and the thread, and hears the keys.
void luigi_init();

// Sends a message: 1, or -1 when it is none (a start or stop without path) or isn't taken. While the queue is
// full the caller waits, but no longer than the interpreter has been at one message for five seconds: from
// then on what is sent would be stale before its turn comes. One place is kept for a start or stop. A path
// that isn't taken stays the caller's.
int luigi_send_message(luigi_message* p_msg);

// Asks for the configured start script (1), stop script (0) or the one whose turn it is (any other value): 1
// when sent, 0 when none is configured, -1 when it isn't taken.
int luigi_toggle_default(int mode);

// What a script prints is dropped, unless somebody watches: `fn` gets the text of each print from now on, on
// the script's thread.
void luigi_watch_print(void (*fn)(std::string_view text));
