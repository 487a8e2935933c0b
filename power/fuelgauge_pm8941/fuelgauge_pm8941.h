// Driver of `fuelgauge` for the PM8941, whose current converter can calibrate itself.
#pragma once

void fuelgauge_pm8941_init(); // tier entry
