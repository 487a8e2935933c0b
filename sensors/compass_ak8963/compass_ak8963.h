// The driver of the AK8963. It keeps the bus open from start to stop; each reading is one measurement, waited
// for 50 ms at most. A bus that fails isn't told but as a reading that doesn't come.
#pragma once

void compass_ak8963_init();
