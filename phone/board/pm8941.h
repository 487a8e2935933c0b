// The power management chips behind SPMI: PM8941 (slaves 0 and 1) and PM8841 (slaves 4 and 5), addresses of
// 20 bits. A register of a peripheral that the chip has keeps what is written, unless a row says otherwise; a
// peripheral that it lacks reads as 0 and is strange; a slave that isn't there doesn't answer. Any thread.
#pragma once

#include <cstdint>
#include <span>

namespace phone {

struct pmic_row {
    std::uint32_t addr;
    std::uint8_t reset;
    std::uint8_t writable;
    // Acts on a write, when `value` is already in force.
    void (*after_write)(std::uint32_t addr, std::uint8_t value) = nullptr;
    // Gives the value of a register that lives.
    std::uint8_t (*before_read)(std::uint32_t addr, std::uint8_t value) = nullptr;
};

// Lays down rows of a device (charger, clock, lamps, ...) over the chip's own. Only while devices attach.
void pmic_add(std::span<const pmic_row> rows);

// All registers to their reset values.
void pmic_reset();

// What the bus does; false when it fails.
bool pmic_bus_read(std::uint32_t addr, std::uint8_t& value);
bool pmic_bus_write(std::uint32_t addr, std::uint8_t value);

// Past the bus.
std::uint8_t pmic_get(std::uint32_t addr);
void pmic_set(std::uint32_t addr, std::uint8_t value);
bool pmic_answers(std::uint32_t addr);

// All rows there are, for the test of all tables.
std::span<const pmic_row> pmic_rows();

} // namespace phone
