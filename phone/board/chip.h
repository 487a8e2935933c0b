// A chip on an I2C bus: a table of registers, and the few behaviours that somebody waits for. The bus
// (board/i2c_bus.h) turns messages into "pointer", "write v to r" and "read r"; a chip is written once and
// knows nothing of messages. All calls come with the bus locked, and may move lines (board/gpio.h).
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "core/clock.h"

namespace phone {

struct chip;

// One register. Bits outside `writable` keep their value whatever the bus writes. A register with
// `before_read` is a live one: a reading, a status, a queue. It shows what is true now and nothing else, so
// the function must not change what a further reading gives; that is for `after_read`, which the bus alone
// calls.
struct reg_row {
    std::uint8_t addr;
    std::uint8_t reset;
    std::uint8_t writable;
    void (*before_read)(chip& c) = nullptr;                       // brings the register up to date
    void (*after_write)(chip& c, std::uint8_t written) = nullptr; // acts on a write
    void (*after_read)(chip& c) = nullptr;                        // a reading that clears or takes something
    bool (*hidden)(const chip& c) = nullptr;                      // the bus reads 0; what is kept stays
};

// A line that has to have its level for the chip to have its supply.
struct supply_line {
    unsigned line;
    int level;
};

struct chip_model {
    const char* name;
    int bus;
    int addr; // 7 bits
    std::span<const reg_row> regs;

    // All below may be left out.
    // Other register maps, which a key opens: chip_show lays one over `regs`.
    std::span<const std::span<const reg_row>> overlays = {};
    // All of these lines, or no acknowledge. Also between two messages a supply that comes resets the chip;
    // behind that, and when it goes, `supply_changed` is told.
    std::span<const supply_line> supply = {};
    void (*supply_changed)(chip& c, bool on) = nullptr;
    // Whether the chip, though it has its supply, doesn't acknowledge now: it starts up, say.
    bool (*silent)(const chip& c) = nullptr;
    // Takes the first byte of a write message where that isn't simply the register's number: sets `pointer`
    // and `step`. False: the message ends there.
    bool (*command)(chip& c, std::uint8_t byte) = nullptr;
    // A chip that has frames instead of registers takes and gives whole messages; false is no acknowledge.
    bool (*take)(chip& c, std::span<const std::uint8_t> message) = nullptr;
    bool (*give)(chip& c, std::span<std::uint8_t> message) = nullptr;
    void (*reset)(chip& c) = nullptr;            // behind the reset of the registers
    void (*timer)(chip& c, int which) = nullptr; // a time of chip_timer_set is over
};

constexpr int chip_timers = 4; // each chip's own, 0 to 3

struct chip_timer {
    int id = 0; // of the clock
    nanoseconds deadline = forever;
};

struct chip {
    const chip_model* p_model;
    std::array<std::uint8_t, 256> val; // by register number
    std::uint8_t pointer = 0;
    std::uint8_t step = 1; // how far the pointer moves with each byte: 1, or 0 for a register that is a queue
    int shown = 0;         // the overlay in force, counted from 1; 0 for none
    std::vector<std::array<std::uint8_t, 256>> over; // the values of the overlays
    // What the transfer that runs takes of the phone's time beside its bytes. It is waited for behind the
    // transfer, with the bus free.
    nanoseconds takes = 0;
    bool supplied = true;
    std::array<chip_timer, chip_timers> timers;
};

// Everything to its reset value: power-up or a soft reset. No overlay is shown and no timer runs then.
void chip_reset(chip& c);

// Lays an overlay of the model over its registers, counted from 1, or takes it away with 0. A register that
// the overlay lacks stays what it was. The overlay's values are in c.over[overlay - 1].
void chip_show(chip& c, int overlay);

// The row of a register and its value, those of the overlay in force before the others; null when the chip
// has no such register.
const reg_row* chip_find(const chip& c, std::uint8_t addr);
std::uint8_t& chip_value(chip& c, std::uint8_t addr);

// What the bus does with one register: the chip's rules hold, an unknown register is strange and reads as 0.
std::uint8_t chip_read(chip& c, std::uint8_t addr);
void chip_write(chip& c, std::uint8_t addr, std::uint8_t value);

// A look at a register past the bus: up to date, and nothing changes by it.
std::uint8_t chip_look(chip& c, std::uint8_t addr);

// Whether the lines of its supply have their levels.
bool chip_has_supply(const chip& c);

// Has the model's `timer` called, once and with the bus locked, when `time` of the phone's time is over. A
// timer that runs is set anew; a stopped one never calls. For what must happen although nobody looks; what
// can be worked out at the next reading wants no timer.
void chip_timer_set(chip& c, int which, nanoseconds time);
void chip_timer_stop(chip& c, int which);

} // namespace phone
