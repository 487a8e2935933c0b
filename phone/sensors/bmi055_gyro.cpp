// BMI055, rate half. Addresses, reset values and writable bits from the data sheet's register map. A reading
// is worked out when it is made, from how the phone turns and this sample's own error. Behind keys lie the
// signal processor's control register and the chip's memory, which shows only while the processor is off.
#include "board/chips.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "board/i2c_bus.h"
#include "sensors/bmi055.h"
#include "sensors/byte_latch.h"
#include "sensors/surroundings.h"

namespace phone {

namespace {

constexpr unsigned line_1 = 66;
constexpr unsigned line_2 = 75;

constexpr std::array<int, 3> own_error = {-41, -18, 8}; // in steps of the offset registers
constexpr double offset_step = 125.0 / 2048;            // degrees a second
constexpr double steps_at_2000 = 16.4; // a degree a second; each range has twice the one before
constexpr int last_range = 4;

constexpr std::uint8_t deep_suspend = 0x20;
constexpr std::uint8_t processor_off = 0x10;
constexpr std::uint8_t test_ready = 0x02;
constexpr std::uint8_t test_failed = 0x04;
constexpr std::uint8_t rate_ok = 0x10;
constexpr nanoseconds test_time = 8'000'000;
constexpr nanoseconds processor_stops = 500'000'000;
constexpr nanoseconds silence = 30'000'000; // behind a soft reset

constexpr int map_control = 1;
constexpr int map_memory = 2;

// clang-format off
constexpr std::array<std::uint8_t, 58> memory_bytes = {
    0x0B, 0x30, 0x55, 0x7A, 0x9F, 0xC4, 0xE9, 0x0E, 0x33, 0x58, 0x7D, 0xA2, 0xC7,
    0xEC, 0x11, 0x36, 0x5B, 0x80, 0xA5, 0xCA, 0xEF, 0x14, 0x39, 0x5E, 0x83, 0xA8,
    0xCD, 0xF2, 0x17, 0x3C, 0x61, 0x86, 0xAB, 0xD0, 0xF5, 0x1A, 0x3F, 0x64, 0x89,
    0xAE, 0xD3, 0xF8, 0x1D, 0x42, 0x67, 0x8C, 0xB1, 0xD6, 0xFB, 0x20, 0x45, 0x6A,
    0x8F, 0xB4, 0xD9, 0xFE, 0x23, 0x48,
};
// clang-format on

struct state {
    nanoseconds silent_until = 0;
    std::array<byte_latch, 3> latches;
    std::array<int, 3> stuck_at = {};
    nanoseconds test_since = forever; // no test has been started
    nanoseconds off_since = forever;  // the processor works
    std::uint8_t last_key = 0;
    std::size_t last_byte = memory_bytes.size(); // of the memory, that was read last
};

state s;

int sign_extended_12(unsigned value)
{
    return static_cast<int>(value & 0xFFF) - ((value & 0x800) != 0 ? 0x1000 : 0);
}

// Twelve bits an axis, spread over five registers.
int offset_steps(const chip& c, std::size_t axis)
{
    const unsigned r0 = c.val[0x36];
    const unsigned high = static_cast<unsigned>(c.val[0x37 + axis]) << 4;
    const unsigned r4 = c.val[0x3A];
    switch (axis) {
    case 0:
        return sign_extended_12(high | (r0 >> 6 & 3) << 2 | (r4 >> 2 & 3));
    case 1:
        return sign_extended_12(high | (r0 >> 3 & 7) << 1 | (r4 >> 1 & 1));
    default:
        return sign_extended_12(high | (r0 & 7) << 1 | (r4 & 1));
    }
}

int reading(const chip& c, std::size_t axis, nanoseconds time)
{
    if ((c.val[0x11] & deep_suspend) != 0 || s.off_since != forever)
        return 0;
    if (surroundings_health(motion_chip::gyro) == chip_health::stuck)
        return s.stuck_at[axis];
    const int range = std::min(c.val[0x0F] & 7, last_range);
    const double rate = surroundings_turn()[axis] + (own_error[axis] + offset_steps(c, axis)) * offset_step;
    const double noise = surroundings_noise(motion_chip::gyro, axis, time);
    return bmi055_steps(rate * steps_at_2000 * (1 << range) + noise, 16);
}

std::uint16_t reading_now(const chip& c, std::size_t axis)
{
    return static_cast<std::uint16_t>(reading(c, axis, clock_now(CLOCK_MONOTONIC)));
}

template <std::size_t Axis>
void show_low(chip& c)
{
    c.val[0x02 + 2 * Axis] = s.latches[Axis].low(reading_now(c, Axis));
}

template <std::size_t Axis>
void show_high(chip& c)
{
    c.val[0x03 + 2 * Axis] = s.latches[Axis].high(reading_now(c, Axis));
}

template <std::size_t Axis>
void latch(chip&)
{
    s.latches[Axis].keep();
}

template <std::size_t Axis>
void release(chip&)
{
    s.latches[Axis].release();
}

// A stuck chip's test ends, and fails; a silent one's doesn't end.
void show_test(chip& c)
{
    const chip_health health = surroundings_health(motion_chip::gyro);
    const bool over = s.test_since != forever && health != chip_health::silent &&
                      clock_now(CLOCK_MONOTONIC) - s.test_since >= test_time;
    unsigned value = (c.val[0x3C] & 1U) | rate_ok;
    if (over)
        value |= test_ready;
    if (over && health == chip_health::stuck)
        value |= test_failed;
    c.val[0x3C] = static_cast<std::uint8_t>(value);
}

void start_test(chip&, std::uint8_t written)
{
    if ((written & 1) != 0)
        s.test_since = clock_now(CLOCK_MONOTONIC);
}

void drive_lines(chip& c, std::uint8_t)
{
    bmi055_drive_lines(c.val[0x16], line_1, line_2);
}

// A key is a byte that comes twice.
void key(chip& c, std::uint8_t written)
{
    if (written == 0x0A)
        chip_show(c, 0);
    else if (written == s.last_key && written == 0xCA)
        chip_show(c, map_control);
    else if (written == s.last_key && written == 0x8A)
        chip_show(c, map_memory);
    s.last_key = written;
    s.last_byte = memory_bytes.size();
}

void control(chip&, std::uint8_t written)
{
    if ((written & processor_off) == 0)
        s.off_since = forever;
    else if (s.off_since == forever)
        s.off_since = clock_now(CLOCK_MONOTONIC);
}

// A byte comes at the second reading of its address.
template <std::size_t I>
void show_byte(chip& c)
{
    const bool open = s.off_since != forever && clock_now(CLOCK_MONOTONIC) - s.off_since >= processor_stops;
    c.over[map_memory - 1][I < 0x34 ? 0x40 + I : 0x44 + I] = open && s.last_byte == I ? memory_bytes[I] : 0;
}

template <std::size_t I>
void byte_was_read(chip&)
{
    s.last_byte = I;
}

template <std::size_t... I>
constexpr auto rows_of_memory(std::index_sequence<I...>)
{
    return std::array<reg_row, sizeof...(I)>{{{static_cast<std::uint8_t>(I < 0x34 ? 0x40 + I : 0x44 + I),
                                               0x00, 0x00, show_byte<I>, nullptr, byte_was_read<I>}...}};
}

void reset(chip& c)
{
    const auto stuck_at = s.stuck_at; // what is broken stays so
    s = {};
    s.stuck_at = stuck_at;
    drive_lines(c, 0);
}

void soft_reset(chip& c, std::uint8_t written)
{
    if (written != 0xB6)
        return;
    chip_reset(c);
    s.silent_until = clock_now(CLOCK_MONOTONIC) + silence;
}

// clang-format off
constexpr reg_row regs[] = {
    // addr  reset  writable  on access
    { 0x00,  0x0F,  0x00 },   // chip id
    { 0x01,  0x00,  0x00 },   // reserved
    { 0x02,  0x00,  0x00,     show_low<0>, nullptr, latch<0> }, // rate x
    { 0x03,  0x00,  0x00,     show_high<0>, nullptr, release<0> }, // rate x
    { 0x04,  0x00,  0x00,     show_low<1>, nullptr, latch<1> }, // rate y
    { 0x05,  0x00,  0x00,     show_high<1>, nullptr, release<1> }, // rate y
    { 0x06,  0x00,  0x00,     show_low<2>, nullptr, latch<2> }, // rate z
    { 0x07,  0x00,  0x00,     show_high<2>, nullptr, release<2> }, // rate z
    { 0x08,  0x08,  0x00 },   // temperature
    { 0x09,  0x00,  0x00 },   // interrupt status
    { 0x0A,  0x80,  0x00 },   // interrupt status: new data
    { 0x0B,  0x00,  0x00 },   // interrupt status
    { 0x0C,  0x00,  0x00 },   // interrupt status
    { 0x0D,  0x00,  0x00 },   // reserved
    { 0x0E,  0x00,  0x00 },   // FIFO status
    { 0x0F,  0x00,  0x07 },   // range
    { 0x10,  0x80,  0x0F },   // bandwidth
    { 0x11,  0x00,  0xAE },   // power modes
    { 0x12,  0x00,  0xF7 },   // power modes
    { 0x13,  0x00,  0xC0 },   // data filter and shadowing
    { 0x14,  0x00,  0x00,     nullptr, soft_reset },           // soft reset: 0xB6
    { 0x15,  0x00,  0xC4 },   // interrupt enable
    { 0x16,  0x0F,  0x0F,     nullptr, drive_lines },          // interrupt output
    { 0x17,  0x00,  0x0A },   // interrupt map
    { 0x18,  0x00,  0xA5 },   // interrupt map
    { 0x19,  0x00,  0x0A },   // interrupt map
    { 0x1A,  0x00,  0x2A },   // interrupt source
    { 0x1B,  0x04,  0x87 },   // slow offset
    { 0x1C,  0xA0,  0xFF },   // any motion
    { 0x1D,  0x00,  0x00 },   // reserved
    { 0x1E,  0x00,  0x80 },   // FIFO watermark interrupt
    { 0x1F,  0x00,  0x00 },   // reserved
    { 0x20,  0x00,  0x00 },   // reserved
    { 0x21,  0x00,  0xCF },   // interrupt latch
    { 0x22,  0x02,  0xDF },   // high rate x
    { 0x23,  0x19,  0xFF },   // high rate x
    { 0x24,  0x02,  0xDF },   // high rate y
    { 0x25,  0x19,  0xFF },   // high rate y
    { 0x26,  0x02,  0xDF },   // high rate z
    { 0x27,  0x19,  0xFF },   // high rate z
    { 0x28,  0x00,  0x00 },   // reserved
    { 0x29,  0x00,  0x00 },   // reserved
    { 0x2A,  0x00,  0x00 },   // reserved
    { 0x2B,  0x00,  0x00 },   // reserved
    { 0x2C,  0x00,  0x00 },   // reserved
    { 0x2D,  0x00,  0x00 },   // reserved
    { 0x2E,  0x00,  0x00 },   // reserved
    { 0x2F,  0x00,  0x00 },   // reserved
    { 0x30,  0x00,  0x00 },   // reserved
    { 0x31,  0x00,  0xFF },   // slow offset
    { 0x32,  0xC0,  0xFF },   // fast offset
    { 0x33,  0xF0,  0x0F },   // NVM control
    { 0x34,  0x00,  0x07 },   // interface
    { 0x35,  0x00,  0x00,     nullptr, key },                  // key
    { 0x36,  0x00,  0xFF },   // offset, low bits
    { 0x37,  0x00,  0xFF },   // offset x
    { 0x38,  0x00,  0xFF },   // offset y
    { 0x39,  0x00,  0xFF },   // offset z
    { 0x3A,  0x00,  0xFF },   // for the user; offset, low bits
    { 0x3B,  0x00,  0xFF },   // for the user
    { 0x3C,  0x10,  0x01,     show_test, start_test },         // self test; bit 4: rate ok
    { 0x3D,  0x00,  0xFF },   // FIFO
    { 0x3E,  0x00,  0xC3 },   // FIFO
    { 0x3F,  0x00,  0x00 },   // FIFO data
};

constexpr reg_row control_rows[] = {
    { 0x7D,  0x43,  0xFF,     nullptr, control },              // bit 4: the signal processor is off
};
// clang-format on

constexpr auto memory_rows = rows_of_memory(std::make_index_sequence<memory_bytes.size()>{});
constexpr std::span<const reg_row> overlays[] = {control_rows, memory_rows};

} // namespace

void bmi055_gyro_before_change()
{
    i2c_locked([] {
        const chip& c = *i2c_chip(bmi055_gyro.bus, bmi055_gyro.addr);
        for (std::size_t axis = 0; axis < 3; axis++)
            s.stuck_at[axis] = reading(c, axis, clock_now(CLOCK_MONOTONIC));
    });
}

constinit const chip_model bmi055_gyro = {
    .name = "bmi055 rate",
    .bus = 5,
    .addr = 0x68,
    .regs = regs,
    .overlays = overlays,
    .silent = [](const chip&) { return clock_now(CLOCK_MONOTONIC) < s.silent_until; },
    .reset = reset,
};

} // namespace phone
