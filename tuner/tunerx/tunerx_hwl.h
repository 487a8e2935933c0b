// The host's side of the tuner: the nodes of the driver that the library was once a part of, and the power
// control behind them. Nodes that are open stay open and are used again. The library needs none of them for
// bring-up and tuning; only the antenna is switched through one.
#pragma once

// "/dev/mmtuner"; needs a state of at least powered (259). 257 when it doesn't open; the state becomes open.
int tunerx_hwl_device_open();

// Closes every node; the state becomes powered.
void tunerx_hwl_device_close();

// Opens the attributes of power, antenna and interrupt, and the bus. 257 when one doesn't open, and then none
// of them is.
int tunerx_hwl_if_init();

// Ends the antenna search, switches the supply off through its attribute and puts the state to open. 257 when
// the attribute can't be had or written.
int tunerx_hwl_terminate();

// `action` 0 closes every node and puts the state to off. Any other is 258.
int tunerx_hwl_ctl_power(int action);

// Writes the antenna to its attribute, with the nodes opened first. 0 or 257.
int tunerx_hwl_put_antenna(long ant);
