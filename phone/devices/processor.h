// The main chip as the kernel shows it: processors and their power settings, fuses, the kernel's version.
#pragma once

namespace phone {

void processor_seed();

} // namespace phone
