// The station's commands for the main chip's fuses: pvsr and msmv.
#pragma once

// Adds the command table.
void f_msm_init();
