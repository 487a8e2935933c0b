// The SPMI bus of the power management chips: registers of 20-bit addresses, the slave in the upper four
// bits. A driver does the work (spmi_co_attach). All operations give 1 on success and 0 on failure.
#pragma once

#include <cstddef>
#include <cstdint>

// The most that one reading gives from the start of a row of registers; `addr % SPMI_ROW` less inside it.
constexpr std::size_t SPMI_MOST_READ = 4095;
constexpr std::uint32_t SPMI_ROW = 16;

struct spmi_co {
    int (*read)(unsigned bus, std::uint32_t addr, std::uint8_t* p_buf, std::size_t len);
    int (*write)(unsigned bus, std::uint32_t addr, const std::uint8_t* p_buf, std::size_t len);
    int (*masked_write)(unsigned bus, std::uint8_t mask, std::uint32_t addr, std::uint8_t val,
                        std::size_t len);
};

void spmi_init();
void spmi_co_attach(const spmi_co* p_co);

int spmi_read(unsigned bus, std::uint32_t addr, std::uint8_t* p_buf, std::size_t len);
int spmi_write(unsigned bus, std::uint32_t addr, const std::uint8_t* p_buf, std::size_t len);

// In each of `len` registers clears the bits of `mask` and sets those of `val`.
int spmi_masked_write(unsigned bus, std::uint8_t mask, std::uint32_t addr, std::uint8_t val, std::size_t len);
