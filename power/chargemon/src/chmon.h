// Inside of the charging monitor: its record, and what its states do to the phone.
#pragma once

#include <atomic>
#include <cstdint>

#include "chargemon/chargemon.h"
#include "fsm/fsm.h"

constexpr int CHMON_EVT_TICK = 1;
constexpr int CHMON_EVT_CHANGE = 2; // of what feeds the phone

constexpr int CHARGER_UNKNOWN = 4; // beside the types of charge.h

struct chmon {
    fsm machine;
    fsm_state idle;
    fsm_state charging;
    fsm_state discharging;
    fsm_state done;
    fsm_state error;
    bool led_on;
    std::uint32_t total_ms;  // since the session began, in all states but idle
    std::uint32_t charge_ms; // in the present charging
    const char* message;     // for the panel
    int charger;             // CHARGER_..., as of the last tick
    std::atomic<bool> running;
    std::atomic<bool> in_tick;
    std::uint32_t last_time;  // microseconds
    std::uint32_t charge_uah; // estimated, while charging
    std::uint8_t retries;
    std::uint32_t state_ms; // since the last decision of discharging or done
};

extern chmon chmon_fsm;
extern chargemon_cfg cmcfg;

void chmon_states_init();
void chmon_settings_init();

// One line of the log; dropped when the log can't be written.
void chmon_log(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

// Not valid when a reading has failed: the values are 0, or what was read until then.
struct chmon_reading {
    bool valid;
    int percent;
    int mv;
    int ma;
};
chmon_reading chmon_read();
chmon_reading chmon_read_voltage(); // `mv` alone

// The median of three readings, which are logged.
int chmon_median_percent();

// The charger, at the current that belongs to the type of charger: in mA.
std::uint32_t chmon_start_charger();

void chmon_led_start(); // all off, then the first blink
void chmon_toggle_led();
void chmon_led_end();

void chmon_backlight(std::uint16_t level);

// The panel in one colour with the message on it, unless that is empty.
void chmon_show(std::uint32_t colour, const char* message);

// Comes back only when the phone can't be powered off.
void chmon_shutdown();
