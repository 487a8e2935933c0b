// Driver of `charge` for the charger inside the PM8941, over SPMI. What kind of charger sits on the USB
// socket is the USB driver's finding, not the chip's.
#pragma once

void charge_qpnp_init(); // tier entry
