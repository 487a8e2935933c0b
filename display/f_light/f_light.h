// The station's commands for lights: lctr, dynbl, ladc, lsot.
#pragma once

// Adds the command table.
void f_light_init();
