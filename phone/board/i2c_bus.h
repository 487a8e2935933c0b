// The I2C buses: nodes /dev/i2c-2, -4, -5 and -10 with combined transfers (I2C_RDWR), and the word `i2c`. One
// lock for all buses, so that a transfer of several messages stands alone.
#pragma once

#include <functional>

#include "board/chip.h"

namespace phone {

void i2c_attach();

// Puts a chip beside those of the list (board/chips.h) on its bus. Only while devices attach.
void i2c_put(const chip_model* p_model);

// The chip at an address, for devices that move its registers; null when nothing is there. To be used within
// i2c_locked.
chip* i2c_chip(int bus, int addr);

// Runs `work` with the bus locked, for devices that look at chips or move them from outside. A call within
// such a call, or from within a chip's function, is fine.
void i2c_locked(const std::function<void()>& work);

} // namespace phone
