// The phone's battery and charger: the attributes of the power supply class, the converter's channels that
// measure the two, the charger's registers in the PM8941, what the USB driver says of the charger, and the
// words `battery` and `charger`. An attribute that somebody has written by hand stays as it is until the next
// word `battery`.
#pragma once

namespace phone {

void battery_attach();
void battery_seed();
void battery_start();

} // namespace phone
