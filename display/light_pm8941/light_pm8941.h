// The short and open test of the LEDs that hang on the power management chip.
#pragma once

// Attaches the driver to the lights.
void light_pm8941_init();
