// A platform for unit tests: plat_linux with clocks, sleeps, timers and shell lines of its own. Time stands
// still until the test moves it; timers fire on the thread that moves it. Every slot can be replaced in
// plat_fake_co.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plat/plat.h"

extern plat_callouts plat_fake_co;

// A new fake, attached: time at a fixed date, no timers, no shell lines, no faults.
void plat_fake_reset();

// Moves both clocks on; one-shot timers fire at their moments, in order.
void plat_fake_advance_us(std::uint64_t us);
std::uint64_t plat_fake_now_us();

// From now on an expiry only disarms its timer and waits on its way until plat_fake_deliver runs it.
void plat_fake_hold_expiries(bool hold);
void plat_fake_deliver();

// Periods given to timer_settime since the reset, in microseconds, 0 for a disarming.
std::vector<std::uint64_t> plat_fake_periods();

// The shell lines that were run, in order; each gave status 0.
std::vector<std::string> plat_fake_shell();

// The next `count` calls of "timer_settime" or "nanosleep" fail with `error`. A nanosleep that fails with
// EINTR has slept for half of its time.
void plat_fake_fail(const std::string& call, int count, int error);
