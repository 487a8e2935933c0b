// The regulator driver over the kernel's debugfs attributes. Attaches itself to vreg; call that.
#pragma once

void vreg_linux_init();
