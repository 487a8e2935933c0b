#include "tunerx/tuner_reg.h"

#include <algorithm>
#include <vector>

#include "i2c/i2c.h"
#include "tunerx/tunerx.h"

namespace {

constexpr unsigned PORT = 4; // the name's own bus counts
constexpr std::size_t MOST_IN_A_PIECE = 2048;
constexpr std::size_t MOST_SINGLE = 4;
constexpr std::uint8_t PATCH_REGISTER = 246;

// An opened chip; closed on every way out.
class bus_guard {
public:
    explicit bus_guard(std::uint16_t slave) : opened(i2c_open(&hnd, "isdb", PORT, slave) == 0) {}
    ~bus_guard()
    {
        if (opened)
            i2c_close(&hnd);
    }
    bus_guard(const bus_guard&) = delete;
    bus_guard& operator=(const bus_guard&) = delete;

    i2c_handle hnd{};
    const bool opened;
};

int read_byte(std::uint16_t slave, std::uint8_t reg, std::uint8_t* p_value)
{
    const bus_guard bus(slave);
    return bus.opened && i2c_read_reg8(&bus.hnd, reg, p_value) >= 0 ? 0 : -1;
}

int write_byte(std::uint16_t slave, std::uint8_t reg, std::uint8_t value)
{
    const bus_guard bus(slave);
    return bus.opened && i2c_write_reg8(&bus.hnd, reg, value) >= 0 ? 0 : -1;
}

unsigned mask_of(const tuner_data_rw& entry)
{
    if (entry.sbit == TUNER_BY_MASK && entry.ebit == TUNER_BY_MASK)
        return entry.enabit & 0xFFu;
    unsigned mask = 0;
    for (unsigned bit = entry.sbit; bit <= entry.ebit && bit < 8; bit++)
        mask |= 1u << bit;
    return mask;
}

int write_entry(const tuner_data_rw& entry)
{
    const auto reg = static_cast<std::uint8_t>(entry.adr);
    const unsigned mask = mask_of(entry);
    if (mask == 0xFF)
        return write_byte(entry.slave, reg, static_cast<std::uint8_t>(entry.param));
    std::uint8_t old;
    if (read_byte(entry.slave, reg, &old) != 0)
        return -1;
    return write_byte(entry.slave, reg, static_cast<std::uint8_t>((old & ~mask) | (entry.param & mask)));
}

int tuner_drv_i2c_access(bool writes, tuner_data_rw& entry)
{
    if (writes)
        return write_entry(entry);
    std::uint8_t value;
    if (read_byte(entry.slave, static_cast<std::uint8_t>(entry.adr), &value) != 0)
        return -1;
    entry.param = value;
    return 0;
}

std::uint8_t next_register(std::uint16_t slave, std::uint8_t reg)
{
    const bool stops = slave == tunerx_slave(TUNER_A) || slave == tunerx_slave(TUNER_B);
    return stops && reg == PATCH_REGISTER ? reg : static_cast<std::uint8_t>(reg + 1);
}

} // namespace

std::unique_ptr<tuner_data_rw[]> create_tuner_data_rw(std::size_t n)
{
    return std::make_unique<tuner_data_rw[]>(n);
}

void tuner_set_rw_data(tuner_data_rw* p_entry, std::uint16_t slave, std::uint16_t adr, std::uint16_t sbit,
                       std::uint16_t ebit, std::uint16_t param, std::uint16_t enabit)
{
    *p_entry = {slave, adr, sbit, ebit, param, enabit};
}

int tuner_write_reg(const tuner_data_rw* p_entries, std::size_t n)
{
    for (std::size_t i = 0; i < n; i++) {
        tuner_data_rw entry = p_entries[i];
        if (tuner_drv_i2c_access(true, entry) != 0)
            return -1;
    }
    return 0;
}

int tuner_read_reg(tuner_data_rw* p_entries, std::size_t n)
{
    for (std::size_t i = 0; i < n; i++)
        if (tuner_drv_i2c_access(false, p_entries[i]) != 0)
            return -1;
    return 0;
}

int tuner_device_ioctl(int kind, tuner_data_rw* p_entry)
{
    switch (kind) {
    case 0:
        return tuner_drv_i2c_access(false, *p_entry);
    case 3:
        return tuner_drv_i2c_access(true, *p_entry);
    case 6:
    case 8:
    case 9:
        return 0;
    default:
        return TUNERX_BAD_ARGUMENT;
    }
}

int tunerx_hwl_write(std::uint16_t slave, std::uint8_t reg, const std::uint8_t* p_data, std::size_t n)
{
    if (n > MOST_SINGLE) {
        std::vector<std::uint8_t> message{reg};
        message.insert(message.end(), p_data, p_data + n);
        const bus_guard bus(slave);
        return bus.opened && i2c_write(&bus.hnd, message.data(), message.size()) >= 0 ? 0 : -1;
    }
    for (std::size_t i = 0; i < n; i++) {
        if (write_byte(slave, reg, p_data[i]) != 0)
            return -1;
        reg = next_register(slave, reg);
    }
    return 0;
}

int tuner_device_write(std::uint16_t slave, std::uint8_t reg, const std::uint8_t* p_data, std::size_t n)
{
    for (std::size_t done = 0; done < n;) {
        const std::size_t piece = std::min(n - done, MOST_IN_A_PIECE);
        if (tunerx_hwl_write(slave, reg, p_data + done, piece) != 0)
            return -1;
        for (std::size_t i = 0; i < piece; i++)
            reg = next_register(slave, reg);
        done += piece;
    }
    return 0;
}
