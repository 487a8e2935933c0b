// The I2C buses: nodes /dev/i2c-2, -4, -5 and -10 with combined transfers (I2C_RDWR), and the word `i2c`. One
// lock for all buses, so that a transfer of several messages stands alone.
#pragma once

#include "board/chip.h"

namespace phone {

void i2c_attach();

// The chip at an address, for devices that move its registers; null when nothing is there. To be used within
// i2c_locked.
chip* i2c_chip(int bus, int addr);

void i2c_locked(void (*work)(void* arg), void* arg);

} // namespace phone
