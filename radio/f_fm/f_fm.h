// The station's command for the FM receiver: fmct.
#pragma once

// Adds the command table.
void f_fm_init();
