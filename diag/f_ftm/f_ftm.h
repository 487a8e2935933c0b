// The commands `ftmc`, any diag packet to the modem as text, and `loadnv`, which has the modem load NV
// parameters.
#pragma once

// Entry of the command tier.
void f_ftm_init();
