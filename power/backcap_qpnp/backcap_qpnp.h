// Driver of `backcap` for the coin cell charger of the PM8941, over SPMI.
#pragma once

void backcap_qpnp_init(); // tier entry
