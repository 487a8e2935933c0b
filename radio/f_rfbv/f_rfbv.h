// The station's command for the RF band variant: rfbv.
#pragma once

// Adds the command table.
void f_rfbv_init();
