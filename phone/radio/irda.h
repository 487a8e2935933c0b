// The infrared port: /dev/irda, which controls the transceiver, and the serial line /dev/ttyHSL2 behind it.
// At the other side stands a bench or a partner that sends everything back (the word `irda`).
#pragma once

namespace phone {

void irda_attach();

} // namespace phone
