#pragma once

// Empties the timer list and creates the POSIX timer.
void tmr_cb_init();
