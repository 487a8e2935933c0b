// The station's raw access to the I2C buses: i2cw and i2cr.
#pragma once

// Adds the command table.
void f_i2c_init();
