// What the receiver's driver in the kernel leaves to programs: the node that only opens, and the attributes
// of its device, of which one switches the antenna; and the files that the receiver is loaded from.
#pragma once

namespace phone {

void tuner_driver_attach();
void tuner_driver_seed();

// The files of a healthy phone below /system/etc/isdbtmm/.
void tuner_files_seed();

} // namespace phone
