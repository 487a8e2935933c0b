// The commands `ebct`, `vbcct` and `scct`: the phone's charger, as three kinds of test stations know it.
#pragma once

void f_charge_init(); // tier entry
