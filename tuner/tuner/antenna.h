// The choice between the two antennas: switching, and a thread that searches the better one and watches the
// reception. Nothing in this program starts the thread; a host that does keeps its other tuner calls apart
// from it. The block that they share is in tunerx/ant_swt.h.
#pragma once

#include "tunerx/ant_swt.h"

// Switches to antenna 0 or 1, or 2 for both. 0 or 257.
int tuner_ant_switch(int ant);

// `mode` 1: the thread searches, and both antennas are switched on; else the first is. 0 or 257.
int tuner_auto_ant_search(int mode);

int tuner_get_current_ant();
void tuner_put_circuit_info(int circuit);

// The level of an antenna, dBm + 100, 300 ms after the switch to it; -1.0 when it can't be had.
float tuner_set_ant_get_drssi(int ant);

// Takes the level of both antennas and switches to the better one. 1.2 s.
void tuner_search_ant();

// Sets the status by sync and bit errors, on the second antenna where the first isn't good. Ends when the run
// flag falls.
void tuner_stability();

// Starts the thread; 0, or -1 when it can't be made. The run flag is 0 then: it has to be set
// (ant_switch_thread_activequeue) within 600 ms. A thread that was still at work ends.
int ant_switch_thread_createthread();
