// The charging monitor: with a charger attached and no USB host, it brings the battery to a capacity (or a
// voltage) by itself, shows the outcome on the panel in green or red, logs to /system/chargemon.txt, and
// powers the phone off when the charger goes. A state machine that lives on the timer thread from
// chargemon_start on; a USB host that it finds while idle ends it for good.
#pragma once

#include <cstdint>

struct chargemon_cfg {
    std::uint8_t preset; // see chargemon_set_cfg
    std::uint32_t tick_period_us;
    std::uint32_t stay_with_usb;   // 0: a USB host ends the monitor
    std::uint32_t voltage_mode;    // 0: by capacity; 1: by voltage
    std::uint32_t allow_discharge; // 1: discharges too, and stops charging close to the target
    std::uint32_t stable_time_ms;  // between the decisions while discharging
    std::uint8_t recharge_percent; // below this, charge again
    std::uint8_t target_percent;
    std::uint8_t margin_high_percent; // above the target, accepted
    std::uint8_t margin_low_percent;  // below the target, at which charging counts as done
    std::uint32_t recharge_mv;        // below this, charge again
    std::uint32_t max_mv;             // to reach
    std::uint8_t max_celsius;         // of the battery while it is charged
    std::uint32_t wall_ma;            // from a wall charger on the USB socket
    std::uint32_t simple_ma;          // from a simple charger
    std::uint32_t capacity_mah;       // of the battery
    std::uint32_t charge_time_limit_ms;
    std::uint32_t min_charge_time_ms;   // before the target is looked at, with allow_discharge
    std::uint32_t done_check_period_ms; // between the checks of the done state
    std::uint16_t backlight_level;      // while the panel shows an outcome
};

void chargemon_init(); // tier entry: the machine, and this product's preset

// A `preset` that the monitor has is copied, and every non-zero field of `p_cfg` but recharge_mv laid
// over it. Otherwise `p_cfg` is taken whole. Before chargemon_start.
void chargemon_set_cfg(const chargemon_cfg* p_cfg);
const chargemon_cfg* chargemon_get_cfg();

// A new session, from idle. Once.
void chargemon_start();

// Not from the timer thread. Waits for a tick that is on its way, at most 5 seconds; a tick that takes longer
// goes on, and so does the monitor.
void chargemon_stop();
