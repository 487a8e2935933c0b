// Stand-ins for the shell tools that every phone has: echo, sync, reboot. Tools of a device stand with it.
#pragma once

namespace phone {

void tools_attach();

} // namespace phone
