// The automatic power-off: after a long time without the cable, or on a low battery. One check every interval
// on the main loop, as long as it runs. Stopped for good where something else looks after the battery.
#pragma once

void autopoff_init(); // tier entry: the default settings

// The first check comes after an interval, or, before the main loop runs, at its first pass. Does nothing
// while it runs already.
void autopoff_start();

// From any thread. The check that is waiting ends the chain.
void autopoff_stop();

constexpr int AUTOPOFF_TIMEOUT_S = 0; // without the cable; setting it begins the time anew
constexpr int AUTOPOFF_VOLTAGE_MV = 1;
constexpr int AUTOPOFF_CAPACITY = 2; // percent
constexpr int AUTOPOFF_INTERVAL_S = 3;

// 1, or 0 for an unknown item.
int autopoff_cfg_set(int item, int val);
int autopoff_cfg_get(int item, int* p_val);
