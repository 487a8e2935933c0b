// The station's commands for the production parameters, ppre and ppwr: some of the board's calibration items
// under numbers of their own.
#pragma once

// Adds the command table.
void f_pp_init();
