// The lamps: brightness attributes of the LEDs and backlights that this phone has, and the short and open
// detection of the power management chip's white LED block.
#pragma once

namespace phone {

void leds_attach(); // adds the word `led`
void leds_seed();

} // namespace phone
