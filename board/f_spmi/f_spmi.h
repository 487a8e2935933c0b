// The station's raw access to the power management chips: spmir and spmiw.
#pragma once

// Adds the command table.
void f_spmi_init();
