// The command `fgct`: the operations of the fuel gauge.
#pragma once

void f_fuelgauge_init(); // tier entry
