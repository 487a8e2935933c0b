// The station's command for the temperatures: temp. It gives the converter channels of adcr numbers of their
// own.
#pragma once

// Adds the command table.
void f_temp_init();
