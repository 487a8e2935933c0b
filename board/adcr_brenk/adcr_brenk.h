// The converter channels of the board "brenk": those of the power management chip's converter and the thermal
// zones, each an attribute of the kernel. Attaches itself to adcr; call that.
#pragma once

void adcr_brenk_init();
