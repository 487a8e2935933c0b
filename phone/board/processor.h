// The main chip as the kernel shows it: processors and their power settings, fuses.
#pragma once

namespace phone {

void processor_seed();

} // namespace phone
