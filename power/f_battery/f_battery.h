// The command `batc`: the battery's readings and the settings of its capacity estimate.
#pragma once

void f_battery_init(); // tier entry
