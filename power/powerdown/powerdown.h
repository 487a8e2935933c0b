// The ways down: restarting the phone and powering it off, for the commands, the automatic power-off and the
// charging monitor. Each comes back, since the phone may refuse or take its time. Not for when to go down:
// that is its callers'. From any thread.
#pragma once

// All give 0 when the phone is on its way down, anything else when it refuses and stays up.
int powerdown_restart();
int powerdown_off();

// Powers off with a line in the kernel log that says why; `reason` is without quotes.
int powerdown_off_because(const char* reason);

// Powers off behind a sync that the caller has done.
int powerdown_off_synced();

// For who has nothing to do but to go down: given the result of one of the above, waits for the end, at most
// 60 seconds. Comes back at once when the phone refuses.
void powerdown_wait(int result);
