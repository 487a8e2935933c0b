// The station's command for the converter channels: adcr.
#pragma once

// Adds the command table.
void f_adcr_init();
