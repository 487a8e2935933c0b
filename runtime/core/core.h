// The main loop: deferred calls from any thread, and callbacks for descriptors that became readable. All of
// both run on the thread that called core_start, one after the other, so a slow one holds everything else up.
// Not for time: a delay goes through the timers. core_init first; what is queued or added before core_start
// waits for it.
#pragma once

#include <cstdint>

#include "slnk/slnk.h"

using core_fn = void (*)(void* p1, void* p2);

// A descriptor to be read. The caller fills all but the link and keeps the record valid while it is
// registered, and until its callback returns when that one removes it. `fd` is 0 to 1023 and stays as it is
// while registered; another descriptor can't be waited for and gets no calls.
struct core_rd_cb_client {
    slnk lnk;
    int fd;
    core_fn fn;
    void* p1;
    void* p2;
};

// Empties the lists of deferred calls and read clients.
void core_init();

// Runs the loop. Gives -1 if the loop's pipe can't be made; doesn't return otherwise.
int core_start();

// Calls `fn(p1, p2)` on the loop's thread: at its next pass, in the order of these calls and before any read
// client, or after `delay_us` microseconds. A delay counts only once the loop runs; before that it is
// ignored. From any thread.
void core_dfc(core_fn fn, void* p1, void* p2, std::uint32_t delay_us);

// From any thread, and from within the client's own callback. A client that is added goes to the tail of the
// list; one that is removed and added in its own callback ends the walk of that pass.
void core_add_rd_cb_client(core_rd_cb_client* p_client);
void core_rm_rd_cb_client(core_rd_cb_client* p_client);
