// The voltage regulators as the kernel's debugfs and sysfs show them.
#pragma once

namespace phone {

void regulators_attach();
void regulators_seed();

} // namespace phone
