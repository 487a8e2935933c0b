// MAX11876, the touch controller, with the sensor behind it: the two attributes of its I2C driver, through
// which it is told and heard as text. What the panel's own driver shows of touches is touch_panel.h's.
#pragma once

namespace phone {

void max11876_attach();
void max11876_seed();
void max11876_start();

} // namespace phone
