// The driver of the proximity half of the APDS-9930. It opens and closes the bus for each access. The light
// half is the same chip: the last of both to start rules its registers.
#pragma once

void prx_apds_9930_init();
