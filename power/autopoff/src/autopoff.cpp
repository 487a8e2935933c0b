#include "autopoff/autopoff.h"

#include <algorithm>
#include <atomic>
#include <cstdint>

#include "battery/battery.h"
#include "core/core.h"
#include "powerdown/powerdown.h"
#include "tmr/tmr.h"
#include "usb/usb.h"

namespace {

constexpr int ITEMS = 4;
constexpr int defaults[ITEMS] = {300, 3100, 0, 60};
constexpr int BATTERY_TRIES = 3;
constexpr std::uint32_t BATTERY_PAUSE_MS = 1000;
constexpr std::uint64_t US_PER_S = 1'000'000;

int settings[ITEMS];
int autopoff_time_left;           // seconds
std::uintptr_t autopoff_time_cnt; // the chain of checks that counts; an older one ends itself
bool autopoff_timeout_started;
std::atomic<bool> running;

void reset_time()
{
    autopoff_time_left = settings[AUTOPOFF_TIMEOUT_S];
}

// The time runs from the first check that finds the cable gone.
void check_cable()
{
    int connected;
    if (!usb_get(USB_GET_CONNECTED, &connected))
        return;
    if (connected) {
        autopoff_timeout_started = false;
        reset_time();
    } else if (!autopoff_timeout_started) {
        autopoff_timeout_started = true;
    } else {
        autopoff_time_left -= settings[AUTOPOFF_INTERVAL_S];
        if (autopoff_time_left < 1)
            powerdown_off_because("Powering off after long inactivity.");
    }
}

// A reading that fails, as it does while the battery is being charged, is no low battery.
bool battery_is_low()
{
    int percent = 0;
    int mv = 0;
    if (!battery_read_capacity(&percent, &mv, nullptr))
        return false;
    return mv < settings[AUTOPOFF_VOLTAGE_MV] || percent < settings[AUTOPOFF_CAPACITY];
}

// A battery must be low for three seconds: a single dip is none.
void check_battery()
{
    for (int i = 0; i < BATTERY_TRIES; i++) {
        if (!battery_is_low())
            return;
        tmr_msleep(BATTERY_PAUSE_MS);
    }
    powerdown_off_because("Powering off, Battery low voltage.");
}

void tmr_cb_autopoff_check(void* p1, void* p2);

void schedule()
{
    const std::uint64_t us = static_cast<std::uint64_t>(settings[AUTOPOFF_INTERVAL_S]) * US_PER_S;
    core_dfc(tmr_cb_autopoff_check, nullptr, reinterpret_cast<void*>(autopoff_time_cnt),
             static_cast<std::uint32_t>(std::min<std::uint64_t>(us, UINT32_MAX)));
}

void tmr_cb_autopoff_check(void*, void* count)
{
    if (!running || reinterpret_cast<std::uintptr_t>(count) != autopoff_time_cnt) {
        autopoff_timeout_started = false;
        reset_time();
        return;
    }
    check_cable();
    check_battery();
    schedule();
}

} // namespace

void autopoff_init()
{
    std::copy(std::begin(defaults), std::end(defaults), settings);
    reset_time();
    autopoff_time_cnt = 0;
    autopoff_timeout_started = false;
    running = false;
}

void autopoff_start()
{
    if (running.exchange(true))
        return;
    reset_time();
    autopoff_time_cnt++;
    schedule();
}

void autopoff_stop()
{
    running = false;
}

int autopoff_cfg_set(int item, int val)
{
    if (item < 0 || item >= ITEMS)
        return 0;
    // Checks without a pause between them would leave the loop no time for anything else.
    settings[item] = item == AUTOPOFF_INTERVAL_S ? std::max(val, 1) : val;
    if (item == AUTOPOFF_TIMEOUT_S)
        reset_time();
    return 1;
}

int autopoff_cfg_get(int item, int* p_val)
{
    if (item < 0 || item >= ITEMS)
        return 0;
    *p_val = settings[item];
    return 1;
}
