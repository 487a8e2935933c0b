#include "sensors/bmi055.h"

#include <algorithm>
#include <cmath>

#include "board/gpio.h"
#include "sensors/surroundings.h"

namespace phone {

int bmi055_steps(double value, int bits)
{
    const double end = std::exp2(bits - 1);
    return static_cast<int>(std::lround(std::clamp(value, -end, end - 1)));
}

void bmi055_drive_lines(std::uint8_t levels, unsigned line_1, unsigned line_2)
{
    gpio_drive(line_1, (levels & 0x01) != 0 ? 0 : 1);
    gpio_drive(line_2, (levels & 0x04) != 0 ? 0 : 1);
}

void bmi055_attach()
{
    surroundings_before_change(bmi055_accel_before_change);
    surroundings_before_change(bmi055_gyro_before_change);
}

} // namespace phone
