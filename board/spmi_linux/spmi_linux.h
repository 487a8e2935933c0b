// The SPMI driver over the kernel's three debugfs files of a bus: address, count, data. Attaches itself to
// spmi; call that.
#pragma once

void spmi_linux_init();
