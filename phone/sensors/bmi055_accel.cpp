// BMI055, acceleration half. Addresses, reset values and writable bits from the data sheet's register map. A
// reading is worked out when it is made, from how the phone lies, what its motor does and this sample's own
// error; a reading of a low byte keeps the high byte that belongs to it.
#include "board/chips.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <string>
#include <tuple>

#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/watch.h"
#include "sensors/bmi055.h"
#include "sensors/byte_latch.h"
#include "sensors/motor.h"
#include "sensors/surroundings.h"

namespace phone {

namespace {

constexpr unsigned line_1 = 73;
constexpr unsigned line_2 = 65;

constexpr axes own_error_mg = {-15.625, 15.625, -39.0625};
constexpr double offset_step_mg = 7.8125;
constexpr axes test_move_mg = {560, 610, 330};
constexpr nanoseconds test_settles = 40'000'000;
constexpr nanoseconds silence = 3'000'000;      // behind a soft reset
constexpr nanoseconds frame_transfer = 160'000; // six bytes at 400 kHz

constexpr std::size_t queue_room = 32;
constexpr std::uint8_t queue_on = 0x40; // of x, y and z, until it is full
constexpr std::uint8_t queue_off = 0x00;
constexpr std::uint8_t queue_mode_bits = 0xC3;

using frame = std::array<std::uint8_t, 6>;

struct state {
    nanoseconds silent_until = 0;
    std::array<byte_latch, 3> latches;
    std::array<int, 3> stuck_at = {};
    nanoseconds test_since = 0;
    int memory_keys = 0; // of two
    // the queue
    std::deque<frame> waiting;
    nanoseconds next_frame = 0;
    bool overrun = false;
    std::size_t taken = 0;      // bytes of the first frame
    std::size_t empty_left = 0; // zeros that a reading of the empty queue still gives
};

state s;

double steps_per_g(const chip& c)
{
    switch (c.val[0x0F]) {
    case 5:
        return 512;
    case 8:
        return 256;
    case 12:
        return 128;
    default:
        return 1024;
    }
}

// 0 for 7.81 Hz to 7 for 1000 Hz, each twice the one before.
int bandwidth_code(const chip& c)
{
    return std::clamp(c.val[0x10] & 0x1F, 8, 15) - 8;
}

double bandwidth_hz(const chip& c)
{
    return 1000.0 / (1 << (7 - bandwidth_code(c)));
}

nanoseconds frame_period(const chip& c)
{
    return 500'000LL << (7 - bandwidth_code(c));
}

double test_move(const chip& c, std::size_t axis, nanoseconds time)
{
    const unsigned test = c.val[0x32];
    if ((test & 3) != axis + 1)
        return 0;
    const double share = std::min(1.0, static_cast<double>(time - s.test_since) / test_settles);
    return test_move_mg[axis] * share * ((test & 4) != 0 ? 1 : -1);
}

int reading(const chip& c, std::size_t axis, nanoseconds time)
{
    if (surroundings_health(motion_chip::accel) == chip_health::stuck)
        return s.stuck_at[axis];
    const double offset = offset_step_mg * static_cast<std::int8_t>(c.val[0x38 + axis]);
    const double mg = surroundings_pose()[axis] + motor_shake(time, bandwidth_hz(c))[axis] +
                      own_error_mg[axis] + offset + test_move(c, axis, time);
    return bmi055_steps(mg * steps_per_g(c) / 1000 + surroundings_noise(motion_chip::accel, axis, time), 12);
}

std::uint16_t registers_of(int steps)
{
    return static_cast<std::uint16_t>(steps * 16);
}

template <std::size_t Axis>
void show_low(chip& c)
{
    c.val[0x02 + 2 * Axis] = s.latches[Axis].low(registers_of(reading(c, Axis, clock_now(CLOCK_MONOTONIC))));
}

template <std::size_t Axis>
void show_high(chip& c)
{
    c.val[0x03 + 2 * Axis] = s.latches[Axis].high(registers_of(reading(c, Axis, clock_now(CLOCK_MONOTONIC))));
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

frame frame_at(const chip& c, nanoseconds time)
{
    frame f;
    for (std::size_t axis = 0; axis < 3; axis++) {
        const std::uint16_t both = registers_of(reading(c, axis, time));
        f[2 * axis] = static_cast<std::uint8_t>(both);
        f[2 * axis + 1] = static_cast<std::uint8_t>(both >> 8);
    }
    return f;
}

// Lets the queue have the frames that have come since it was last looked at. A full one takes no more.
void fill_queue(chip& c)
{
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    const nanoseconds period = frame_period(c);
    if ((c.val[0x3E] & queue_mode_bits) != queue_on ||
        surroundings_health(motion_chip::accel) == chip_health::silent) {
        s.next_frame = std::max(s.next_frame, now);
        return;
    }
    for (; s.next_frame <= now && s.waiting.size() < queue_room; s.next_frame += period)
        s.waiting.push_back(frame_at(c, s.next_frame));
    if (s.next_frame <= now) {
        s.overrun = true;
        s.next_frame += ((now - s.next_frame) / period + 1) * period;
    }
}

void show_count(chip& c)
{
    fill_queue(c);
    c.val[0x0E] = static_cast<std::uint8_t>(s.waiting.size() | (s.overrun ? 0x80U : 0));
}

void show_frame(chip& c)
{
    if (s.taken == 0)
        fill_queue(c);
    c.val[0x3F] = s.waiting.empty() || s.empty_left > 0 ? 0 : s.waiting.front()[s.taken];
}

// The pointer stands still here, so that the queue can be read in one go.
void take_frame(chip& c)
{
    c.step = 0;
    if (s.empty_left > 0) {
        s.empty_left--;
    } else if (s.waiting.empty()) {
        s.empty_left = std::tuple_size_v<frame> - 1;
        c.takes = frame_transfer;
    } else if (++s.taken == std::tuple_size_v<frame>) {
        s.waiting.pop_front();
        s.taken = 0;
    }
}

// What is left of a frame goes with the next address.
void drop_rest()
{
    s.empty_left = 0;
    if (s.taken == 0)
        return;
    s.waiting.pop_front();
    s.taken = 0;
}

void restart_queue(chip& c, std::uint8_t written)
{
    if ((written & queue_mode_bits) != queue_on && (written & queue_mode_bits) != queue_off)
        strange("queue mode " + std::to_string(written) + " of bmi055 acceleration");
    s.waiting.clear();
    s.overrun = false;
    s.taken = 0;
    s.empty_left = 0;
    s.next_frame = clock_now(CLOCK_MONOTONIC) + frame_period(c);
}

// A message brings the queue up to date first: what it writes counts from now on.
bool command(chip& c, std::uint8_t byte)
{
    fill_queue(c);
    drop_rest();
    c.pointer = byte;
    return true;
}

void drive_lines(chip& c, std::uint8_t)
{
    bmi055_drive_lines(c.val[0x20], line_1, line_2);
}

void self_test(chip&, std::uint8_t)
{
    s.test_since = clock_now(CLOCK_MONOTONIC);
}

void memory_key(chip& c, std::uint8_t written)
{
    s.memory_keys = written == 0xAA ? s.memory_keys + 1 : 0;
    if (s.memory_keys == 2)
        chip_show(c, 1);
    else if (written == 0x0A)
        chip_show(c, 0);
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
    { 0x00,  0xFA,  0x00 },   // chip id
    { 0x01,  0x00,  0x00 },   // reserved
    { 0x02,  0x00,  0x00,     show_low<0>, nullptr, latch<0> }, // x, low nibble in bits 7 to 4
    { 0x03,  0x00,  0x00,     show_high<0>, nullptr, release<0> }, // x, high byte
    { 0x04,  0x00,  0x00,     show_low<1>, nullptr, latch<1> }, // y
    { 0x05,  0x00,  0x00,     show_high<1>, nullptr, release<1> }, // y
    { 0x06,  0x00,  0x00,     show_low<2>, nullptr, latch<2> }, // z
    { 0x07,  0x00,  0x00,     show_high<2>, nullptr, release<2> }, // z
    { 0x08,  0x04,  0x00 },   // temperature, 0.5 K a step from 23 degrees
    { 0x09,  0x00,  0x00 },   // interrupt status
    { 0x0A,  0x00,  0x00 },   // interrupt status
    { 0x0B,  0x00,  0x00 },   // interrupt status
    { 0x0C,  0x00,  0x00 },   // interrupt status
    { 0x0D,  0x00,  0x00 },   // reserved
    { 0x0E,  0x00,  0x00,     show_count },                    // FIFO status
    { 0x0F,  0x03,  0x0F },   // range
    { 0x10,  0x0F,  0x1F },   // bandwidth
    { 0x11,  0x00,  0xFE },   // power modes
    { 0x12,  0x00,  0x60 },   // low power
    { 0x13,  0x00,  0xC0 },   // data filter and shadowing
    { 0x14,  0x00,  0x00,     nullptr, soft_reset },           // soft reset: 0xB6
    { 0x15,  0x00,  0x00 },   // reserved
    { 0x16,  0x00,  0xF7 },   // interrupt enable
    { 0x17,  0x00,  0x7F },   // interrupt enable
    { 0x18,  0x00,  0x0F },   // interrupt enable
    { 0x19,  0x00,  0xF7 },   // interrupt map
    { 0x1A,  0x00,  0xE7 },   // interrupt map
    { 0x1B,  0x00,  0xF7 },   // interrupt map
    { 0x1C,  0x00,  0x00 },   // reserved
    { 0x1D,  0x00,  0x00 },   // reserved
    { 0x1E,  0x00,  0x3F },   // interrupt source
    { 0x1F,  0x00,  0x00 },   // reserved
    { 0x20,  0x05,  0x0F,     nullptr, drive_lines },          // interrupt output
    { 0x21,  0x00,  0x8F },   // interrupt latch
    { 0x22,  0x09,  0xFF },   // low-g
    { 0x23,  0x30,  0xFF },   // low-g
    { 0x24,  0x81,  0xC7 },   // low-g, high-g
    { 0x25,  0x0F,  0xFF },   // high-g
    { 0x26,  0xC0,  0xFF },   // high-g
    { 0x27,  0x00,  0xFF },   // slope
    { 0x28,  0x14,  0xFF },   // slope
    { 0x29,  0x14,  0xFF },   // slow motion
    { 0x2A,  0x04,  0xF7 },   // tap
    { 0x2B,  0x0A,  0xDF },   // tap
    { 0x2C,  0x18,  0x3F },   // orientation
    { 0x2D,  0x48,  0x7F },   // orientation
    { 0x2E,  0x08,  0x3F },   // flat
    { 0x2F,  0x11,  0x37 },   // flat
    { 0x30,  0x00,  0x3F },   // FIFO watermark
    { 0x31,  0x00,  0x00 },   // reserved
    { 0x32,  0x00,  0x17,     nullptr, self_test },            // self test
    { 0x33,  0xF0,  0x0F },   // NVM control
    { 0x34,  0x00,  0x07 },   // interface
    { 0x35,  0x00,  0x00,     nullptr, memory_key },           // the memory's key
    { 0x36,  0x10,  0x67 },   // offset control
    { 0x37,  0x00,  0x7F },   // offset settings
    { 0x38,  0x00,  0xFF },   // offset x
    { 0x39,  0x00,  0xFF },   // offset y
    { 0x3A,  0x00,  0xFF },   // offset z
    { 0x3B,  0x00,  0xFF },   // for the user
    { 0x3C,  0x00,  0xFF },   // for the user
    { 0x3D,  0x00,  0x00 },   // reserved
    { 0x3E,  0x00,  0xC3,     nullptr, restart_queue },        // FIFO
    { 0x3F,  0x00,  0x00,     show_frame, nullptr, take_frame }, // FIFO data
};

// Behind the key: the chip's memory, the last byte a CRC-8 of the others.
constexpr reg_row memory[] = {
    { 0x00, 0x5A, 0x00 }, { 0x01, 0x13, 0x00 }, { 0x02, 0xC4, 0x00 }, { 0x03, 0x2E, 0x00 },
    { 0x04, 0x91, 0x00 }, { 0x05, 0x07, 0x00 }, { 0x06, 0xB8, 0x00 }, { 0x07, 0x6D, 0x00 },
    { 0x08, 0x20, 0x00 }, { 0x09, 0xF1, 0x00 }, { 0x0A, 0x3C, 0x00 }, { 0x0B, 0x85, 0x00 },
    { 0x0C, 0x4B, 0x00 }, { 0x0D, 0xD6, 0x00 }, { 0x0E, 0x19, 0x00 }, { 0x0F, 0xA2, 0x00 },
    { 0x10, 0x70, 0x00 }, { 0x11, 0xEE, 0x00 }, { 0x12, 0x0D, 0x00 }, { 0x13, 0x58, 0x00 },
    { 0x14, 0x9F, 0x00 }, { 0x15, 0x34, 0x00 }, { 0x16, 0xC7, 0x00 }, { 0x17, 0x62, 0x00 },
    { 0x18, 0x1B, 0x00 }, { 0x19, 0xA9, 0x00 }, { 0x1A, 0xA0, 0x00 },
};
// clang-format on

constexpr std::span<const reg_row> overlays[] = {memory};

} // namespace

void bmi055_accel_before_change()
{
    i2c_locked([] {
        chip& c = *i2c_chip(bmi055_accel.bus, bmi055_accel.addr);
        fill_queue(c);
        for (std::size_t axis = 0; axis < 3; axis++)
            s.stuck_at[axis] = reading(c, axis, clock_now(CLOCK_MONOTONIC));
    });
}

constinit const chip_model bmi055_accel = {
    .name = "bmi055 acceleration",
    .bus = 5,
    .addr = 0x18,
    .regs = regs,
    .overlays = overlays,
    .silent = [](const chip&) { return clock_now(CLOCK_MONOTONIC) < s.silent_until; },
    .command = command,
    .reset = reset,
};

} // namespace phone
