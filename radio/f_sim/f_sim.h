// The station's command for the SIM: sict.
#pragma once

// Adds the command table.
void f_sim_init();
