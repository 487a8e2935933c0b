// The power management chip's part in the key test: while it runs, holding the power key down must not reset
// the phone so soon.
#pragma once

// Attaches the driver.
void kbd_qpnp_init();
