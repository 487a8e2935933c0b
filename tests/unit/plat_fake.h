// A platform for unit tests: plat_linux with clocks, sleeps and timers of its own, and without a shell. Time
// stands still until the test moves it; timers fire on the thread that moves it. Every slot can be replaced
// in plat_fake_co.
#pragma once

#include <cstdint>

#include "plat/plat.h"

extern plat_callouts plat_fake_co;

// A new fake, attached: time at a fixed date, no timers.
void plat_fake_reset();

// Moves both clocks on; one-shot timers fire at their moments, in order.
void plat_fake_advance_us(std::uint64_t us);
std::uint64_t plat_fake_now_us();

// From now on an expiry only disarms its timer and waits on its way until plat_fake_deliver runs it.
void plat_fake_hold_expiries(bool hold);
void plat_fake_deliver();
