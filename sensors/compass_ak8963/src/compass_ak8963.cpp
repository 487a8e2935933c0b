#include "compass_ak8963/compass_ak8963.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "compass/compass.h"
#include "i2c/i2c.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "tmr/tmr.h"

namespace {

// clang-format off
constexpr std::uint8_t REG_WHO       = 0x00;
constexpr std::uint8_t REG_STATUS_1  = 0x02;
constexpr std::uint8_t REG_DATA      = 0x03;   // x, y, z: low and high byte
constexpr std::uint8_t REG_STATUS_2  = 0x09;
constexpr std::uint8_t REG_MODE      = 0x0A;
constexpr std::uint8_t REG_SELF_TEST = 0x0C;
constexpr std::uint8_t REG_ASA       = 0x10;   // sensitivities of x, y, z

constexpr std::uint8_t WHO_IT_IS     = 0x48;
constexpr std::uint8_t MODE_OFF      = 0;
constexpr std::uint8_t MODE_ONCE     = 1;
constexpr std::uint8_t MODE_TEST     = 8;
constexpr std::uint8_t MODE_FUSE     = 15;
constexpr std::uint8_t COIL_ON       = 0x40;
constexpr std::uint8_t DATA_READY    = 0x01;
constexpr std::uint8_t OVERFLOW      = 0x08;
// clang-format on

struct axis_limits {
    std::int16_t lower;
    std::int16_t upper;
};
using limits = std::array<axis_limits, 3>;

constexpr limits compass_ak8963_limit = {{{-100, 100}, {-100, 100}, {-1000, -300}}};

bool compass_started;
i2c_handle compass_i2c_hnd;
std::array<std::uint8_t, 3> asa_regs;
limits compass_limit;

void write_reg(std::uint8_t reg, std::uint8_t value)
{
    i2c_write_reg8(&compass_i2c_hnd, reg, value);
}

// Zeros for what can't be read.
template <std::size_t Size>
std::array<std::uint8_t, Size> read_regs(std::uint8_t reg)
{
    std::array<std::uint8_t, Size> bytes = {};
    if (i2c_read_regs(&compass_i2c_hnd, reg, bytes.data(), Size) < 0)
        bytes = {};
    return bytes;
}

std::uint8_t read_reg(std::uint8_t reg)
{
    return read_regs<1>(reg)[0];
}

void compass_ak8963_start()
{
    if (compass_started || i2c_open(&compass_i2c_hnd, "ak8963", 0, 0) < 0)
        return;
    if (read_reg(REG_WHO) != WHO_IT_IS) {
        i2c_close(&compass_i2c_hnd);
        return;
    }
    compass_limit = compass_ak8963_limit;
    write_reg(REG_MODE, MODE_FUSE);
    asa_regs = read_regs<3>(REG_ASA);
    write_reg(REG_MODE, MODE_OFF);
    tmr_usleep(100);
    compass_started = true;
}

void compass_ak8963_stop()
{
    if (!compass_started)
        return;
    i2c_close(&compass_i2c_hnd);
    compass_started = false;
}

bool wait_for_data()
{
    constexpr int MOST_TURNS = 5;
    for (int turn = 0; turn < MOST_TURNS; turn++) {
        tmr_msleep(10);
        if ((read_reg(REG_STATUS_1) & DATA_READY) != 0)
            return true;
    }
    return false;
}

std::int16_t corrected(std::int16_t value, std::uint8_t asa)
{
    const double t = (asa - 128) * value / 256.0;
    return static_cast<std::int16_t>(value + std::lround(t));
}

int compass_ak8963_read_data(compass_reading reading)
{
    if (!wait_for_data())
        return 0;
    const auto bytes = read_regs<6>(REG_DATA);
    if ((read_reg(REG_STATUS_2) & OVERFLOW) != 0)
        return 0;
    for (std::size_t axis = 0; axis < 3; axis++) {
        const auto value = static_cast<std::int16_t>(bytes[2 * axis] | bytes[2 * axis + 1] << 8);
        reading[axis] = corrected(value, asa_regs[axis]);
    }
    return 1;
}

int compass_ak8963_get(compass_reading reading)
{
    if (!compass_started)
        return 0;
    write_reg(REG_MODE, MODE_ONCE);
    return compass_ak8963_read_data(reading);
}

int test_result(compass_reading reading, std::int16_t marker)
{
    std::fill_n(reading, 3, marker);
    return 0;
}

int within_limits(const compass_reading reading)
{
    bool within = true;
    for (std::size_t axis = 0; axis < 3; axis++)
        within =
            within && reading[axis] > compass_limit[axis].lower && reading[axis] < compass_limit[axis].upper;
    return within ? 1 : 0;
}

int compass_ak8963_selftest(compass_reading reading)
{
    if (!compass_started)
        return test_result(reading, 0);
    write_reg(REG_MODE, MODE_OFF);
    if (pin_in_get(PIN_IN_COMPASS_READY) != PIN_INACTIVE)
        return test_result(reading, COMPASS_BAD_LINE);
    read_reg(REG_STATUS_1);
    write_reg(REG_MODE, MODE_ONCE);
    if (!wait_for_data())
        return test_result(reading, COMPASS_NO_DATA);
    if (pin_in_get(PIN_IN_COMPASS_READY) != PIN_ACTIVE)
        return test_result(reading, COMPASS_BAD_LINE);
    read_reg(REG_STATUS_2); // takes the line back
    read_reg(REG_STATUS_1);
    write_reg(REG_SELF_TEST, COIL_ON);
    write_reg(REG_MODE, MODE_TEST);
    if (compass_ak8963_read_data(reading) == 0)
        return test_result(reading, COMPASS_NO_DATA);
    return within_limits(reading);
}

constexpr compass_co compass_ak8963_co = {
    .start = compass_ak8963_start,
    .stop = compass_ak8963_stop,
    .get = compass_ak8963_get,
    .selftest = compass_ak8963_selftest,
    .get_temp = nullptr,
};

} // namespace

void compass_ak8963_init()
{
    compass_started = false;
    compass_co_attach(&compass_ak8963_co);
}
