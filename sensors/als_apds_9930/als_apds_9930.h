// The driver of the light half of the APDS-9930. It keeps the bus open from start to stop. The proximity half
// is the same chip: the last of both to start rules its registers. A bus that fails isn't told: what can't be
// read is 0.
#pragma once

void als_apds_9930_init();
