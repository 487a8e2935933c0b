// The monitor at the far end of the MHL cable: whether it is there (the word `sink`), and what the bridge and
// its kernel driver show of it. The chip's registers are sii8334.cpp's.
#pragma once

namespace phone {

void sink_attach();
void sink_seed();
void sink_start();

// Whether a monitor is on the cable.
bool sink_is_in();

} // namespace phone
