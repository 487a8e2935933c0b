// AK8963, the compass. Addresses and reset values from the data sheet's register map; the three sensitivity
// values are this sample's. It measures when it is told to; what has become of a measurement is worked out
// when somebody looks at the chip or at its ready line.
#include "board/chips.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/watch.h"
#include "sensors/ak8963.h"
#include "sensors/surroundings.h"

namespace phone {

namespace {

constexpr unsigned ready_line = 67;

constexpr std::uint8_t mode_bits = 0x0F;
constexpr std::uint8_t mode_off = 0;
constexpr std::uint8_t mode_once = 1;
constexpr std::uint8_t mode_test = 8;
constexpr std::uint8_t mode_fuses = 15;
constexpr std::uint8_t wide_bit = 0x10;
constexpr std::uint8_t coil_bit = 0x40;
constexpr std::uint8_t ready_bit = 0x01;
constexpr std::uint8_t overflow_bit = 0x08;

constexpr axes coil_ut = {12.6, -20.4, -307.2};
constexpr double most_ut = 4912; // of the three added
constexpr double narrow_step_ut = 0.6;
constexpr double wide_step_ut = 0.15;
constexpr double narrow_end = 8190;
constexpr double wide_end = 32760;
constexpr nanoseconds measuring_time = 7'200'000;

nanoseconds measures_since = forever;
std::array<int, 3> stuck_at;

// The field, or the coil alone.
axes field(const chip& c)
{
    const bool coil = (c.val[0x0A] & mode_bits) == mode_test && (c.val[0x0C] & coil_bit) != 0;
    return coil ? coil_ut : surroundings_magnet();
}

int reading(const chip& c, std::size_t axis, nanoseconds time)
{
    if (surroundings_health(motion_chip::compass) == chip_health::stuck)
        return stuck_at[axis];
    const bool wide = (c.val[0x0A] & wide_bit) != 0;
    const double sensitivity = 1 + (c.val[0x10 + axis] - 128) / 256.0;
    const double steps = field(c)[axis] / (wide ? wide_step_ut : narrow_step_ut) / sensitivity;
    const double end = wide ? wide_end : narrow_end;
    return static_cast<int>(
        std::lround(std::clamp(steps + surroundings_noise(motion_chip::compass, axis, time), -end, end)));
}

void show_ready(chip& c, bool ready)
{
    c.val[0x02] = ready ? ready_bit : 0;
    gpio_drive(ready_line, ready ? 1 : 0);
}

// Brings the measurement that runs, if one does, to where it is now.
void update(chip& c)
{
    if (measures_since == forever || surroundings_health(motion_chip::compass) == chip_health::silent)
        return;
    const nanoseconds done = measures_since + measuring_time;
    if (clock_now(CLOCK_MONOTONIC) < done)
        return;
    measures_since = forever;
    const axes f = field(c);
    const bool overflows = std::fabs(f[0]) + std::fabs(f[1]) + std::fabs(f[2]) > most_ut;
    for (std::size_t axis = 0; axis < 3; axis++) {
        const auto steps = static_cast<std::uint16_t>(reading(c, axis, done));
        c.val[0x03 + 2 * axis] = static_cast<std::uint8_t>(steps);
        c.val[0x04 + 2 * axis] = static_cast<std::uint8_t>(steps >> 8);
    }
    c.val[0x09] = static_cast<std::uint8_t>((c.val[0x0A] & wide_bit) | (overflows ? overflow_bit : 0));
    c.val[0x0A] = static_cast<std::uint8_t>(c.val[0x0A] & ~mode_bits);
    show_ready(c, true);
}

// A reading of the data or of the second status.
void take(chip& c)
{
    show_ready(c, false);
}

void set_mode(chip& c, std::uint8_t written)
{
    chip_timer_stop(c, 0);
    const std::uint8_t mode = written & mode_bits;
    const bool measures = mode == mode_once || mode == mode_test;
    if (!measures && mode != mode_off && mode != mode_fuses)
        strange("mode " + std::to_string(mode) + " of ak8963");
    measures_since = measures ? clock_now(CLOCK_MONOTONIC) : forever;
    if (measures)
        chip_timer_set(c, 0, measuring_time);
}

bool fuses_closed(const chip& c)
{
    return (c.val[0x0A] & mode_bits) != mode_fuses;
}

// A message brings the measurement up to date first.
bool command(chip& c, std::uint8_t byte)
{
    update(c);
    c.pointer = byte;
    return true;
}

void reset(chip& c)
{
    measures_since = forever;
    show_ready(c, false);
}

void soft_reset(chip& c, std::uint8_t written)
{
    if ((written & 0x01) != 0)
        chip_reset(c);
}

// clang-format off
constexpr reg_row regs[] = {
    // addr  reset  writable  on access
    { 0x00,  0x48,  0x00 },   // who it is
    { 0x01,  0x9A,  0x00 },   // information
    { 0x02,  0x00,  0x00,     update },                              // status 1
    { 0x03,  0x00,  0x00,     update, nullptr, take },               // x
    { 0x04,  0x00,  0x00,     update, nullptr, take },               // x
    { 0x05,  0x00,  0x00,     update, nullptr, take },               // y
    { 0x06,  0x00,  0x00,     update, nullptr, take },               // y
    { 0x07,  0x00,  0x00,     update, nullptr, take },               // z
    { 0x08,  0x00,  0x00,     update, nullptr, take },               // z
    { 0x09,  0x00,  0x00,     update, nullptr, take },               // status 2
    { 0x0A,  0x00,  0x1F,     nullptr, set_mode },                   // control 1: mode and width
    { 0x0B,  0x00,  0x00,     nullptr, soft_reset },                 // control 2: soft reset
    { 0x0C,  0x00,  0x40 },   // self test
    { 0x0D,  0x00,  0x00 },   // shipping test
    { 0x0E,  0x00,  0x00 },   // shipping test
    { 0x0F,  0x00,  0xFF },   // bus disable
    { 0x10,  0xAC,  0x00,     nullptr, nullptr, nullptr, fuses_closed }, // sensitivity x
    { 0x11,  0xAE,  0x00,     nullptr, nullptr, nullptr, fuses_closed }, // sensitivity y
    { 0x12,  0xA3,  0x00,     nullptr, nullptr, nullptr, fuses_closed }, // sensitivity z
};
// clang-format on

} // namespace

void ak8963_attach()
{
    gpio_live(ready_line, [](unsigned) { i2c_locked([] { update(*i2c_chip(ak8963.bus, ak8963.addr)); }); });
    surroundings_before_change([] {
        i2c_locked([] {
            chip& c = *i2c_chip(ak8963.bus, ak8963.addr);
            update(c);
            for (std::size_t axis = 0; axis < 3; axis++)
                stuck_at[axis] = reading(c, axis, clock_now(CLOCK_MONOTONIC));
        });
    });
}

constinit const chip_model ak8963 = {.name = "ak8963",
                                     .bus = 5,
                                     .addr = 0x0C,
                                     .regs = regs,
                                     .command = command,
                                     .reset = reset,
                                     .timer = [](chip& c, int) { update(c); }};

} // namespace phone
