// What the acceleration half's readings mean, and the reading of its queue of samples.
#pragma once

#include <cstdint>

#include "i2c/i2c.h"

// A reading at 2 g full scale as stations have always had it: milli-g, as an integer, scaled a second time.
// One g is 976.5625.
float bmi055_float(std::uint8_t msb, std::uint8_t lsb);

// A reading at 8 g full scale, in milli-g.
float bmi055_float_8g(std::uint8_t msb, std::uint8_t lsb);

// Empties the queue, waits for `count` samples and writes them as aclmr_get_samples tells. 1, or 0 when no
// sample has come for a second.
int bmi055_samples(const i2c_handle* p_hnd, int count, char* text);
