// The two devices: opened and closed together. Functions give 1 on success and 0 on failure. What needs an
// open port fails on a closed one.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/core.h"

void irda_port_conf(const char* control, const char* line);

// Opens both and selects the transceiver; `fn` is then called whenever the line has bytes. On failure nothing
// is open.
int irda_port_open(core_fn fn);

// 0 and the devices left open when the transceiver can't be put back; the next opening closes them.
int irda_port_close();

bool irda_port_is_open();

int irda_rpm841_rxd_en(bool on);
int irda_rpm841_irda_mode_en(bool on);
int irda_rpm841_set_msmbaudrate(std::uint32_t index);

// Sends all bytes. A line that takes none for a second ends it.
int irda_port_write(const std::uint8_t* p_data, std::size_t size);

// Bytes that have come, at most `size`; 0 for none, -1 for a failure.
int irda_port_read(std::uint8_t* p_data, std::size_t size);

// Waits until all bits are out, 0.3 s at the longest.
void irda_rpm841_wait_rcv();
