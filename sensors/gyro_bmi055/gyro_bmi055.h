// The driver of the rate half of the BMI055. It keeps the bus open from start to stop. A start without stored
// offsets begins with none. A bus that fails isn't told, but by the self test: what can't be read is 0.
#pragma once

#include <cstdint>

#include "gyro/gyro.h"

void gyro_bmi055_init();

constexpr int GYRO_BMI055_OFFSET_BYTES = 5;

// The chip's five offset registers, 12 bits an axis: those that make up for the wanted correction, in degrees
// a second (the sign changes; what is too large is the largest), and what registers say.
void gyro_bmi055_pack(const gyro_offset wanted, std::uint8_t bytes[GYRO_BMI055_OFFSET_BYTES]);
void gyro_bmi055_unpack(const std::uint8_t bytes[GYRO_BMI055_OFFSET_BYTES], gyro_offset offset);
