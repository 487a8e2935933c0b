// The clock in microseconds, blocking sleeps, and one-shot callback timers that share one POSIX timer.
// Callbacks come on the timer thread, beside the main loop: one that touches what the loop owns goes through
// core_dfc. tmr_init comes first, second in main. Not for periodic work: a callback arms its own link again.
#pragma once

#include <cstdint>

#include "rlnk/rlnk.h"

struct tmr_link;

// `tm` is the last period in microseconds that the POSIX timer had been given. Runs with no lock held.
using tmr_cb_fn = void (*)(tmr_link* p_link, std::uint32_t tm);

// A timer. The caller supplies it, often at the start of a record of its own, and keeps it valid while armed.
// Zeroed memory is a link that isn't armed.
struct tmr_link {
    rlnk lnk;
    tmr_cb_fn cb;
};

// Takes the clock base, empties the timer list and creates the POSIX timer. A timer that can't be created is
// reported to the kernel log; callbacks then never come.
void tmr_init();

// Microseconds since tmr_init. The 32-bit value wraps after 71 minutes; unsigned differences stay right.
std::uint32_t tmr_get();
std::uint64_t tmr_get64();

// Block the calling thread for the whole time, signals or not.
void tmr_usleep(std::uint32_t us);
void tmr_msleep(std::uint32_t ms);

// Calls `cb(p_link, tm)` once, `time_us` (not 0) from now. The link must not be armed. From any thread.
void tmr_cb_add(tmr_link* p_link, tmr_cb_fn cb, std::uint32_t time_us);

// Disarms: the callback won't come, unless it is already on its way. A link that isn't armed is left alone.
void tmr_cb_rm(tmr_link* p_link);

// Microseconds until the POSIX timer expires, rounded up; 0 if it isn't running.
std::uint32_t tmr_cb_left();
