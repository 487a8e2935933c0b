// The phone's keys: hands each key event of the input devices, which it polls, to the observers. Knows the
// names and characters of key codes. Not for the touch panel, whose device is read too but whose events are
// passed over. Observers are called on the main loop; attaching and detaching is safe from any thread.
#pragma once

#include <cstdint>

#include "slnk/slnk.h"

constexpr int KBD_PRESSED = 1; // auto-repeat too
constexpr int KBD_RELEASED = 2;

constexpr int KBD_NO_CODE = 65533; // a character or matrix position without a key

// An observer: static storage of its owner.
struct kbd_observer {
    slnk link;
    std::uint32_t enabled;
    void (*cb)(int code, int action);
};

// What a driver adds while the key test runs: 1, or 0 when the hardware couldn't be set.
struct kbd_co {
    int (*start)();
    int (*stop)();
};

// The map of a key matrix: the code at a position (column * 8 + row) in a mode, and the map's name.
struct kbd_map_co {
    int (*code)(int position, int mode);
    const char* name;
};
using kbd_map_get = const kbd_map_co* (*)(std::uint8_t rev);

// Empties the list, opens the input devices and starts polling on the main loop.
void kbd_init();
void kbd_co_attach(const kbd_co* p_co);

// The driver's operations; 1 when it has none.
int kbd_start();
int kbd_stop();

void kbd_evt_attach(kbd_observer* p_obs, void (*cb)(int code, int action));
void kbd_evt_detach(kbd_observer* p_obs);

// Gives all other observers `enabled` = not `on`.
void kbd_evt_exclusive(kbd_observer* p_obs, int on);

// Delivers an event: `time` in microseconds since start-up; a `code` of 0 is looked up at `position` of the
// matrix. The mode key toggles the matrix's mode.
void kbd_evt_key(int position, std::uint32_t time, int action, int code);

// Delivers an event as it is to all enabled observers.
void kbd_evt_disp(int code, int action);

// The character of a key: 0, or 2 when it has none. Letters in upper case with bit 0 of kbd_ctrl_set.
int kbd_cnv_to_char(int code, char* p_out);

// The key of a character, whatever its case; KBD_NO_CODE when there is none.
int kbd_cnv_to_scancode(char c);

// The key's name; empty when it has none.
const char* kbd_sc_nm_get(int code);

// Searches the matrix: 1 if `code` stands there.
int kbd_sc_to_matrix_pos(int code, int* p_column, int* p_row);

// Selects the matrix map, which must exist.
void kbd_map_set(kbd_map_get get, std::uint8_t rev);

void kbd_sel_set(int mode);     // the matrix's mode, 0 or 1
void kbd_sel_key_set(int code); // the key that toggles it, 158 at first
void kbd_ctrl_set(std::uint32_t bits);
