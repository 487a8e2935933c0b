// The driver of the acceleration half of the BMI055. It keeps the bus open from start to stop. A start needs
// the stored offsets: a phone without them can't use the sensor. A bus that fails isn't told: what can't be
// read is 0, and the station judges the numbers.
#pragma once

#include <cstddef>
#include <cstdint>

void aclmr_bmi055_init();

// The checksum of the chip's memory: CRC-8 of SAE J1850.
std::uint8_t aclmr_bmi055_crc(const std::uint8_t* p_data, std::size_t size);
