// The shell tools hciconfig and hcitool. They go their own way: what they send isn't seen on the program's
// sockets.
#pragma once

namespace phone {

void hci_tools_attach();

} // namespace phone
