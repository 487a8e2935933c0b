// The demultiplexer, /dev/dvb/adapter0/demux0, and the word `stream`. It knows its driver's requests by their
// numbers, in their order; it gives what the demodulator sends (mn88552.h), as packets (packets.h).
#pragma once

namespace phone {

// What the demodulator sends may have changed. With the bus locked.
void demux_source_changed();

void demux_attach();

} // namespace phone
