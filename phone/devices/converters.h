// The converter of the power chip and the thermal zones, as the kernel shows them.
#pragma once

namespace phone {

void converters_seed();

} // namespace phone
