// A chip on an I2C bus: a table of registers, and the few behaviours that somebody waits for. The bus
// (board/i2c_bus.h) turns messages into "pointer", "write v to r" and "read r"; a chip is written once and
// knows nothing of messages. All calls come with the bus locked.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace phone {

struct chip;

// One register. Bits outside `writable` keep their value whatever the bus writes.
struct reg_row {
    std::uint8_t addr;
    std::uint8_t reset;
    std::uint8_t writable;
    void (*before_read)(chip& c) = nullptr;                       // brings the register up to date
    void (*after_write)(chip& c, std::uint8_t written) = nullptr; // acts on a write
    void (*after_read)(chip& c) = nullptr;                        // a reading that clears something
};

struct chip_model {
    const char* name;
    int bus;
    int addr; // 7 bits
    std::span<const reg_row> regs;

    // All below may be null. Whether the chip has its supply: without it there is no acknowledge.
    bool (*powered)(const chip& c) = nullptr;
    // Takes the first byte of a write message where that isn't simply the register's number: sets `pointer`
    // and `step`. False: the message ends there.
    bool (*command)(chip& c, std::uint8_t byte) = nullptr;
    // A chip that has frames instead of registers takes and gives whole messages; false is no acknowledge.
    bool (*take)(chip& c, std::span<const std::uint8_t> message) = nullptr;
    bool (*give)(chip& c, std::span<std::uint8_t> message) = nullptr;
    void (*reset)(chip& c) = nullptr; // behind the reset of the registers
};

struct chip {
    const chip_model* p_model;
    std::array<std::uint8_t, 256> val; // by register number
    std::uint8_t pointer;
    std::uint8_t step; // how far the pointer moves with each byte: 1, or 0 for a register that is a queue
};

// Everything to its reset value: power-up or a soft reset.
void chip_reset(chip& c);

// The row of a register; null when the chip has no such register.
const reg_row* chip_find(const chip_model& model, std::uint8_t addr);

// What the bus does with one register: the chip's rules hold, an unknown register is strange and reads as 0.
std::uint8_t chip_read(chip& c, std::uint8_t addr);
void chip_write(chip& c, std::uint8_t addr, std::uint8_t value);

} // namespace phone
