// The infrared transceiver RPM841: a serial line for the bytes, and a device of its own that selects the
// transceiver and switches its receiver. Attaches itself to irda; call that. Reports and time-outs come on
// the main loop, which a reception that is sent back holds up for as long as the packet takes.
#pragma once

// Attaches the callouts; behind the command tables, whose receiver of reports it takes.
void irda_rpm841_init();

// Where the control device and the serial line are; the texts must stay.
void irda_rpm841_conf(const char* control, const char* line);
