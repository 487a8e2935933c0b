// The SPMI bus as the kernel's debugfs shows it: /sys/kernel/debug/spmi/spmi-0 with the files address, count
// and data, and the word `spmi`. Behind it stand the power management chips (board/pm8941.h).
#pragma once

namespace phone {

void spmi_attach();
void spmi_seed();
void spmi_start();

} // namespace phone
