// What the two halves of the BMI055 have in common. They are chips of their own on the bus.
#pragma once

#include <cstdint>

namespace phone {

// To the nearest step of a signed number of so many bits, clipped at its ends.
int bmi055_steps(double value, int bits);

// Two interrupt lines at rest: each is the opposite of its active level, bits 0 and 2 of the register that
// sets them.
void bmi055_drive_lines(std::uint8_t levels, unsigned line_1, unsigned line_2);

// What the halves do before their surroundings change.
void bmi055_accel_before_change();
void bmi055_gyro_before_change();

void bmi055_attach();

} // namespace phone
