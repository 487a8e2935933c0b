// APDS-9930, light and proximity. A message begins with a command byte: bit 7 set, bits 6 and 5 the kind, the
// rest the register. Addresses and reset values from the data sheet's register map. Its conversions are
// counted when somebody looks at the chip or at its interrupt line; between two looks all of them saw the
// same.
#include "board/chips.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/watch.h"
#include "sensors/apds9930.h"
#include "sensors/byte_latch.h"
#include "sensors/surroundings.h"

namespace phone {

namespace {

constexpr std::uint8_t command_bit = 0x80;
constexpr std::uint8_t kind_mask = 0x60;
constexpr std::uint8_t kind_increment = 0x20;
constexpr std::uint8_t kind_special = 0x60;
constexpr std::uint8_t register_mask = 0x1F;
constexpr std::uint8_t clear_near = 0x05; // special functions
constexpr std::uint8_t clear_light = 0x06;
constexpr std::uint8_t clear_both = 0x07;

constexpr unsigned interrupt_line = 74;

constexpr std::uint8_t power_on = 0x01; // of the enable register
constexpr std::uint8_t light_on = 0x02;
constexpr std::uint8_t near_on = 0x04;
constexpr std::uint8_t light_interrupt_on = 0x10;
constexpr std::uint8_t near_interrupt_on = 0x20;

constexpr std::uint8_t near_divided = 0x01; // of the configuration register
constexpr std::uint8_t light_divided = 0x04;

constexpr double cycle_ms = 2.73;
constexpr double lux_per_count = 25.48;        // in a millisecond, at gain 1
constexpr double near_of_reflection = 5200000; // at a millimetre, with eight pulses of 100 mA
constexpr double near_crosstalk = 37;
constexpr double near_most = 1023;
constexpr nanoseconds near_period = 6'000'000;

// One of the two halves.
struct half {
    nanoseconds since = forever; // enabled, or else not
    std::int64_t done = 0;       // conversions since then
    int outside = 0;             // of the last ones, without one within the thresholds
    bool pending = false;        // its interrupt
    std::uint16_t data = 0;
    byte_latch latch;
};

half light;
half proximity;

int cycles(const chip& c)
{
    return 256 - c.val[0x01];
}

nanoseconds light_period(const chip& c)
{
    return static_cast<nanoseconds>(cycles(c) * cycle_ms * 1e6);
}

std::uint16_t light_counts(const chip& c)
{
    constexpr double gains[] = {1, 8, 16, 120};
    const double gain = gains[c.val[0x0F] & 3] * ((c.val[0x0D] & light_divided) != 0 ? 0.16 : 1);
    const double counts = surroundings_light() * cycle_ms * cycles(c) * gain / lux_per_count;
    const double most = std::min(1024.0 * cycles(c) - 1, 65535.0);
    return static_cast<std::uint16_t>(std::lround(std::min(counts, most)));
}

std::uint16_t near_counts(const chip& c)
{
    const auto mm = surroundings_near();
    const double drive = 1.0 / (1 << (c.val[0x0F] >> 6)) / ((c.val[0x0D] & near_divided) != 0 ? 9 : 1);
    const double gain = 1 << (c.val[0x0F] >> 2 & 3);
    const double reflected = mm ? near_of_reflection / (*mm * *mm) : 0;
    const double counts = (reflected + near_crosstalk) * c.val[0x0E] / 8 * gain * drive;
    return static_cast<std::uint16_t>(std::lround(std::min(counts, near_most)));
}

// So many conversions in a row outside the thresholds set the interrupt; 0: each conversion does.
int light_persistence(const chip& c)
{
    const int code = c.val[0x0C] & 0x0F;
    return code <= 3 ? code : (code - 3) * 5;
}

int near_persistence(const chip& c)
{
    return c.val[0x0C] >> 4;
}

unsigned threshold(const chip& c, unsigned reg)
{
    return c.val[reg] | static_cast<unsigned>(c.val[reg + 1]) << 8;
}

// Counts the conversions until now, all of which gave `value`.
void convert(half& h, const chip& c, nanoseconds period, std::uint16_t value, unsigned thresholds,
             int persistence)
{
    if (h.since == forever)
        return;
    const std::int64_t done = (clock_now(CLOCK_MONOTONIC) - h.since) / period;
    const std::int64_t more = std::max<std::int64_t>(done - h.done, 0);
    h.done += more;
    if (more == 0)
        return;
    h.data = value;
    const bool is_outside = value < threshold(c, thresholds) || value > threshold(c, thresholds + 2);
    h.outside = is_outside ? static_cast<int>(std::min<std::int64_t>(h.outside + more, 1000)) : 0;
    h.pending = h.pending || persistence == 0 || (is_outside && h.outside >= persistence);
}

void drive_line(const chip& c)
{
    const bool low = (light.pending && (c.val[0x00] & light_interrupt_on) != 0) ||
                     (proximity.pending && (c.val[0x00] & near_interrupt_on) != 0);
    gpio_drive(interrupt_line, low ? 0 : -1);
}

// Brings both halves and the line to where they are now.
void update(chip& c)
{
    convert(light, c, light_period(c), light_counts(c), 0x04, light_persistence(c));
    convert(proximity, c, near_period, near_counts(c), 0x08, near_persistence(c));
    if (light.done > 0 && light.since != forever)
        light.data = light_counts(c); // what a conversion would show is shown at once
    drive_line(c);
}

void set_running(half& h, bool running)
{
    if (running == (h.since != forever))
        return;
    h.since = running ? clock_now(CLOCK_MONOTONIC) : forever;
    h.done = 0;
    h.outside = 0;
}

void enable(chip& c, std::uint8_t)
{
    const bool on = (c.val[0x00] & power_on) != 0;
    set_running(light, on && (c.val[0x00] & light_on) != 0);
    set_running(proximity, on && (c.val[0x00] & near_on) != 0);
    drive_line(c);
}

void clear(half& h)
{
    h.pending = false;
    h.outside = 0;
}

// A special function clears interrupts and moves no pointer. Without bit 7 the byte isn't a command. What a
// message writes counts from now on.
bool command(chip& c, std::uint8_t byte)
{
    update(c);
    if ((byte & command_bit) == 0)
        return false;
    if ((byte & kind_mask) != kind_special) {
        c.pointer = byte & register_mask;
        c.step = (byte & kind_mask) == kind_increment ? 1 : 0;
        return true;
    }
    const std::uint8_t function = byte & register_mask;
    if (function == clear_near || function == clear_both)
        clear(proximity);
    if (function == clear_light || function == clear_both)
        clear(light);
    if (function != 0 && (function < clear_near || function > clear_both))
        strange("special function " + std::to_string(function) + " of apds9930");
    drive_line(c);
    return false;
}

void show_status(chip& c)
{
    update(c);
    const auto bit = [](bool set, unsigned n) { return set ? 1U << n : 0U; };
    c.val[0x13] = static_cast<std::uint8_t>(bit(light.done > 0, 0) | bit(proximity.done > 0, 1) |
                                            bit(light.pending, 4) | bit(proximity.pending, 5));
}

// The data register of a half, its low or its high byte.
template <half* Half, unsigned Reg>
void show_low(chip& c)
{
    update(c);
    c.val[Reg] = Half->latch.low(Half->data);
}

template <half* Half, unsigned Reg>
void show_high(chip& c)
{
    update(c);
    c.val[Reg] = Half->latch.high(Half->data);
}

template <half* Half>
void keep(chip&)
{
    Half->latch.keep();
}

template <half* Half>
void release(chip&)
{
    Half->latch.release();
}

void show_infrared(chip& c)
{
    c.val[0x16] = 0;
    c.val[0x17] = 0;
}

void reset(chip& c)
{
    light = {};
    proximity = {};
    drive_line(c);
}

// clang-format off
constexpr reg_row regs[] = {
    // addr  reset  writable  on access
    { 0x00,  0x00,  0x7F,     nullptr, enable },                     // enable
    { 0x01,  0xFF,  0xFF },   // light integration time
    { 0x02,  0xFF,  0xFF },   // proximity time
    { 0x03,  0xFF,  0xFF },   // wait time
    { 0x04,  0x00,  0xFF },   // light threshold, low
    { 0x05,  0x00,  0xFF },
    { 0x06,  0x00,  0xFF },   // light threshold, high
    { 0x07,  0x00,  0xFF },
    { 0x08,  0x00,  0xFF },   // proximity threshold, low
    { 0x09,  0x00,  0xFF },
    { 0x0A,  0x00,  0xFF },   // proximity threshold, high
    { 0x0B,  0x00,  0xFF },
    { 0x0C,  0x00,  0xFF },   // persistence
    { 0x0D,  0x00,  0x07 },   // configuration
    { 0x0E,  0x00,  0xFF },   // proximity pulses
    { 0x0F,  0x00,  0xFF },   // gains and drive
    { 0x10,  0x00,  0x00 },   // reserved
    { 0x11,  0x00,  0x00 },   // reserved
    { 0x12,  0x39,  0x00 },   // who it is
    { 0x13,  0x00,  0x00,     show_status },                         // status
    { 0x14,  0x00,  0x00,     show_low<&light, 0x14>, nullptr, keep<&light> }, // channel 0
    { 0x15,  0x00,  0x00,     show_high<&light, 0x15>, nullptr, release<&light> },
    { 0x16,  0x00,  0x00,     show_infrared },                       // channel 1
    { 0x17,  0x00,  0x00,     show_infrared },
    { 0x18,  0x00,  0x00,     show_low<&proximity, 0x18>, nullptr, keep<&proximity> },   // proximity
    { 0x19,  0x00,  0x00,     show_high<&proximity, 0x19>, nullptr, release<&proximity> },
    { 0x1A,  0x00,  0x00 },   // reserved
    { 0x1B,  0x00,  0x00 },   // reserved
    { 0x1C,  0x00,  0x00 },   // reserved
    { 0x1D,  0x00,  0x00 },   // reserved
    { 0x1E,  0x00,  0xFF },   // proximity offset
};
// clang-format on

void look()
{
    i2c_locked([] { update(*i2c_chip(apds9930.bus, apds9930.addr)); });
}

} // namespace

void apds9930_attach()
{
    gpio_live(interrupt_line, [](unsigned) { look(); });
    surroundings_before_change(look);
}

constinit const chip_model apds9930 = {
    .name = "apds9930", .bus = 5, .addr = 0x39, .regs = regs, .command = command, .reset = reset};

} // namespace phone
