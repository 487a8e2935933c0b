// The converter of the power chip and the thermal zones, as the kernel shows them. The channels that measure
// the battery and what feeds the phone are the battery's; it gets their texts here.
#pragma once

#include <string>

namespace phone {

// The attribute of a channel whose input is at `mv`, behind a divider by `divided_by`: in whole mV.
std::string converter_volts(double mv, int divided_by);

// The two attributes of the battery's thermistor: in whole mV, and in tenths of a degree.
std::string converter_therm_volts(double temp_c);
std::string converter_therm_degrees(double temp_c);

void converters_seed();

} // namespace phone
