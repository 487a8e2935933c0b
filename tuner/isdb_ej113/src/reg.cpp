#include "reg.h"

#include "i2c/i2c.h"

namespace {

// An opened chip; closed on every way out.
class chip_guard {
public:
    explicit chip_guard(unsigned slave) : opened(i2c_open(&hnd, "isdb", 0, slave) == 0) {}
    ~chip_guard()
    {
        if (opened)
            i2c_close(&hnd);
    }
    chip_guard(const chip_guard&) = delete;
    chip_guard& operator=(const chip_guard&) = delete;

    i2c_handle hnd{};
    const bool opened;
};

} // namespace

int isdb_reg_rd(unsigned slave, unsigned reg, std::uint8_t* p_byte)
{
    const chip_guard chip(slave);
    std::uint8_t byte;
    if (!chip.opened || i2c_read_reg8(&chip.hnd, static_cast<std::uint8_t>(reg), &byte) < 0)
        return 0;
    *p_byte = byte;
    return 1;
}

int isdb_reg_wr(unsigned slave, unsigned reg, std::uint8_t byte)
{
    const chip_guard chip(slave);
    return chip.opened && i2c_write_reg8(&chip.hnd, static_cast<std::uint8_t>(reg), byte) >= 0 ? 1 : 0;
}

std::uint8_t isdb_reg(unsigned slave, unsigned reg)
{
    std::uint8_t byte = 0;
    isdb_reg_rd(slave, reg, &byte);
    return byte;
}

void isdb_reg_bits(unsigned slave, unsigned reg, unsigned mask, unsigned value)
{
    std::uint8_t byte;
    if (isdb_reg_rd(slave, reg, &byte) != 0)
        isdb_reg_wr(slave, reg, static_cast<std::uint8_t>((byte & ~mask) | (value & mask)));
}
