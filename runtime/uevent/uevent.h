// The kernel's uevents: one socket, read on the main loop; each event goes to the clients whose text occurs
// in its first line. Only what the kernel itself has sent counts. Where the socket can't be had, no events
// come.
#pragma once

#include "slnk/slnk.h"

// Supplied by the module that wants events, and kept valid. `fields` are the strings behind the first, at
// most ten, valid until `cb` returns.
struct uevent_client {
    slnk link;
    void (*cb)(int count, const char* const* fields);
    const char* match;
};

void uevent_init(); // tier entry: opens the socket

void uevent_reg(uevent_client* p_client);
