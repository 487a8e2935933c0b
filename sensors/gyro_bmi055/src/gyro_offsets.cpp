// The five offset registers. r1 to r3 have the high eight bits of x, y and z; the lower four are spread over
// r0 and r4:
//
//         bit  7   6   5   4   3   2   1   0
//   r0         x3  x2  y3  y2  y1  z3  z2  z1
//   r4                         x1  x0  y0  z0
#include "gyro_bmi055/gyro_bmi055.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned MOST_STEPS = 2047;
constexpr unsigned FULL_CIRCLE = 4096;

// 12 bits in the upper part of 16, as the registers have them.
unsigned shifted_steps(float wanted)
{
    const double a = -static_cast<double>(wanted);
    const double steps = std::min((std::fabs(a) * 2048.0 + 62.5) / 125.0, static_cast<double>(MOST_STEPS));
    const auto m = static_cast<unsigned>(steps);
    return (a < 0 ? (FULL_CIRCLE - m) % FULL_CIRCLE : m) << 4;
}

float degrees(unsigned shifted)
{
    const int value = static_cast<std::int16_t>(shifted) / 16;
    return static_cast<float>(value / 16.384);
}

} // namespace

void gyro_bmi055_pack(const gyro_offset wanted, std::uint8_t bytes[GYRO_BMI055_OFFSET_BYTES])
{
    const unsigned vx = shifted_steps(wanted[0]);
    const unsigned vy = shifted_steps(wanted[1]);
    const unsigned vz = shifted_steps(wanted[2]);
    bytes[0] = static_cast<std::uint8_t>((vx & 0xC0) | (vy & 0xE0) >> 2 | (vz & 0xE0) >> 5);
    bytes[1] = static_cast<std::uint8_t>(vx >> 8);
    bytes[2] = static_cast<std::uint8_t>(vy >> 8);
    bytes[3] = static_cast<std::uint8_t>(vz >> 8);
    bytes[4] = static_cast<std::uint8_t>((vx & 0x30) >> 2 | (vy & 0x10) >> 3 | (vz & 0x10) >> 4);
}

void gyro_bmi055_unpack(const std::uint8_t bytes[GYRO_BMI055_OFFSET_BYTES], gyro_offset offset)
{
    const unsigned r0 = bytes[0];
    const unsigned r4 = bytes[4];
    offset[0] = degrees(static_cast<unsigned>(bytes[1]) << 8 | (r0 & 0xC0) | (r4 & 0x0C) << 2);
    offset[1] = degrees(static_cast<unsigned>(bytes[2]) << 8 | (r0 & 0x38) << 2 | (r4 & 0x02) << 3);
    offset[2] = degrees(static_cast<unsigned>(bytes[3]) << 8 | (r0 & 0x07) << 5 | (r4 & 0x01) << 4);
}
