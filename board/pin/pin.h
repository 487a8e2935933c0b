// Logical signals: a driver sets signal 69 active and needn't know which line carries it, what its polarity
// is or who shares it. The board's map decides; a signal that the board lacks takes every call and does
// nothing. Needs pin_map_set and the driver of each group (pin_install) first. Keeps no levels: every reading
// asks the line. A signal number at or above the limit stops the process.
#pragma once

#include <cstdint>

constexpr int PIN_OUT_LAST = 167;
constexpr int PIN_IN_LAST = 71;

// Groups of pins: one driver each.
constexpr int PIN_GRP_GPIO = 0;
constexpr int PIN_GRP_NONE = 6; // no pin; never has a driver
constexpr int PIN_GRP_LAST = 7; // ends a sub-list

// States of a signal. What can't be read is PIN_UNREADABLE.
constexpr int PIN_LOW = 0;
constexpr int PIN_HIGH = 1;
constexpr int PIN_INACTIVE = 2;
constexpr int PIN_ACTIVE = 3;
constexpr int PIN_UNREADABLE = 4;

// Levels of a line: 0, 1, or one of these.
constexpr int PIN_LEVEL_UNKNOWN = 4; // the line told something else
constexpr int PIN_LEVEL_FAILED = 5;  // it couldn't be asked

// How users of a shared pin are counted: the first switches it, the last back.
constexpr int PIN_CNT_HIGH = 0; // up on high or active
constexpr int PIN_CNT_LOW = 1;  // up on low or inactive
constexpr int PIN_DIRECT = 2;   // not at all

// Further pins that follow a main pin.
struct pin_sub_row {
    int grp; // PIN_GRP_LAST ends the list
    std::uint16_t pin;
    int cnt;
    int act; // 0 active low, 1 active high
    std::uint16_t attr;
    unsigned delay_ms; // after this pin
};

struct pin_out_row {
    int sig; // PIN_OUT_LAST ends a board's map
    int grp;
    std::uint16_t pin;
    int cnt;
    int act;
    std::uint16_t attr;       // for the driver
    const pin_sub_row* p_on;  // run when the pin goes to level 1, or null
    const pin_sub_row* p_off; // run when the pin goes to level 0, or null
};

struct pin_in_row {
    int sig; // PIN_IN_LAST ends a board's map
    int grp;
    std::uint16_t pin;
    int act;
    std::uint16_t attr;
};

struct pin_tab {
    const char* name;
    const pin_in_row* p_in;
    const pin_out_row* p_out;
};

struct pin_map_co {
    const pin_tab* (*tab)();
};

// Gives the table of a board of revision `rev`.
using pin_map_get = const pin_map_co* (*)(std::uint8_t rev);

struct pin_map_sel {
    pin_map_get get;
    std::uint8_t rev;
};

struct pin_driver;

// What a driver does. chg sets level `op` 0 or 1 and gives it back, or reads for 2 and 3; any other result is
// a failure. evt switches the report of a level on or off; null when the driver has none. res gives the
// reference counts, one byte a pin.
struct pin_fn {
    int (*chg)(pin_driver* p_hnd, unsigned pin, int op, unsigned attr);
    int (*evt)(pin_driver* p_hnd, unsigned pin, int level, unsigned attr, int on);
    std::uint8_t* (*res)(pin_driver* p_hnd);
};

// A driver's handle; its owner keeps it.
struct pin_driver {
    const pin_fn* fn;
    int grp;
    unsigned size; // of the reference counts
};

using pin_evt_cb = void (*)(int state);

void pin_init();

// Selects the board's map.
void pin_map_set(pin_map_get get, std::uint8_t rev);

// Copies the selection out.
void pin_get(pin_map_sel* p_sel);

const char* pin_map_nm_get();

// A driver enters itself.
void pin_install(pin_driver* p_hnd, int grp, const pin_fn* fn, unsigned size);

// Sets signal `sig` to a state from PIN_LOW to PIN_ACTIVE. Non-zero when the line was driven; 0 when that
// failed, or when a shared line had no need to move.
int pin_out_set(int sig, int state);

// The level of an output's pin, as for pin_in_get_lev.
int pin_out_get(int sig);

// PIN_INACTIVE, PIN_ACTIVE or PIN_UNREADABLE.
int pin_in_get(int sig);

// The level of an input: 0, 1, PIN_LEVEL_UNKNOWN or PIN_LEVEL_FAILED.
int pin_in_get_lev(int sig);

// 1 if the board has the signal.
int pin_in_active(int sig);
int pin_out_active(int sig);

// Asks for a call when input `sig` comes to `state`; null cancels. Gives the former callback. The call comes
// only from a driver that has a source of events.
pin_evt_cb pin_evt_req(int sig, int state, pin_evt_cb cb);

// A driver's report that a pin has changed to `level`.
void pin_evt_disp(const pin_driver* p_hnd, unsigned pin, int level);

// Names for listings; empty where there is none.
const char* pin_out_nm_get(int sig);
const char* pin_in_nm_get(int sig);
const char* pin_state_nm_get(int state);
