// The headset jack: what is plugged in, the loops that a test plug makes, and the three files in which the
// kernel's driver shows what it has detected.
#pragma once

namespace phone {

void jack_attach();
void jack_seed();
void jack_start();

} // namespace phone
