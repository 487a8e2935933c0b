#include "prx_apds_9930/prx_apds_9930.h"

#include "i2c/i2c.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "prx/prx.h"
#include "tmr/tmr.h"

namespace {

// clang-format off
constexpr std::uint8_t apds_9930_taos_config[] = { // registers 0x80 to 0x8F; the first is written last
    0x2D, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0xF4, 0x01, 0x22, 0x00, 0x08, 0x20,
};

constexpr std::uint8_t REG_ENABLE        = 0x80;
constexpr std::uint8_t REG_LOW           = 0x88;   // threshold; the high byte follows
constexpr std::uint8_t REG_HIGH          = 0x8A;
constexpr std::uint8_t REG_CONFIG        = 0x8D;
constexpr std::uint8_t REG_PULSES        = 0x8E;
constexpr std::uint8_t REG_CONTROL       = 0x8F;   // bits 7 and 6 drive, 3 and 2 gain
constexpr std::uint8_t COMMAND_INCREMENT = 0xA0;
constexpr std::uint8_t COMMAND_CLEAR     = 0xE5;   // the proximity interrupt
constexpr std::uint8_t VALUE_PROXIMITY   = 24;     // register of the low byte
// clang-format on

bool prx_started;

// The chip for one access.
struct chip_access {
    i2c_handle hnd;
    bool opened;

    chip_access() : opened(i2c_open(&hnd, "apds_9930-prox", 0, 0) >= 0)
    {
        if (opened)
            tmr_msleep(5);
    }
    ~chip_access()
    {
        if (opened)
            i2c_close(&hnd);
    }
    chip_access(const chip_access&) = delete;
    chip_access& operator=(const chip_access&) = delete;
};

int apds_9930_reg_wr_data(std::uint8_t reg, std::uint8_t value)
{
    const chip_access a;
    return a.opened && i2c_write_reg8(&a.hnd, reg, value) >= 0 ? 1 : 0;
}

int apds_9930_reg_rd_data(std::uint8_t reg, std::uint8_t* p_value)
{
    const chip_access a;
    return a.opened && i2c_read_reg8(&a.hnd, reg, p_value) >= 0 ? 1 : 0;
}

int apds_9930_reg_wr(std::uint8_t byte)
{
    const chip_access a;
    return a.opened && i2c_write(&a.hnd, &byte, 1) >= 0 ? 1 : 0;
}

int prx_value_rd16(std::uint8_t value, std::uint32_t* p_out)
{
    std::uint8_t bytes[2];
    const chip_access a;
    if (!a.opened || i2c_read_regs(&a.hnd, value | COMMAND_INCREMENT, bytes, sizeof bytes) < 0)
        return 0;
    *p_out = bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8;
    return 1;
}

int prx_apds_9930_start()
{
    for (unsigned i = 1; i < sizeof apds_9930_taos_config; i++)
        if (apds_9930_reg_wr_data(static_cast<std::uint8_t>(REG_ENABLE + i), apds_9930_taos_config[i]) == 0)
            return 0;
    if (apds_9930_reg_wr_data(REG_ENABLE, apds_9930_taos_config[0]) == 0)
        return 0;
    prx_started = true;
    return 1;
}

int prx_apds_9930_adc(std::uint32_t* p_value)
{
    return prx_value_rd16(VALUE_PROXIMITY, p_value);
}

int prx_apds_9930_digital(std::uint32_t* p_value)
{
    if (!prx_started || apds_9930_reg_wr(COMMAND_CLEAR) == 0)
        return 0;
    tmr_msleep(50);
    const int result = pin_in_get(PIN_IN_PROXIMITY) == PIN_ACTIVE ? 1 : 0;
    prx_apds_9930_adc(p_value);
    return result;
}

int set_threshold(std::uint8_t reg, std::uint32_t value)
{
    const int high =
        apds_9930_reg_wr_data(static_cast<std::uint8_t>(reg + 1), static_cast<std::uint8_t>(value >> 8));
    const int low = apds_9930_reg_wr_data(reg, static_cast<std::uint8_t>(value));
    return high != 0 && low != 0 ? 1 : 0;
}

// Replaces two bits of the control register, from bit `shift` on.
int set_control(unsigned shift, std::uint32_t value)
{
    std::uint8_t old;
    if (apds_9930_reg_rd_data(REG_CONTROL, &old) == 0)
        return 0;
    const unsigned kept = old & ~(3U << shift);
    return apds_9930_reg_wr_data(REG_CONTROL, static_cast<std::uint8_t>(kept | value << shift));
}

// The upper four of the eight drives are the lower four divided.
int set_drive(std::uint32_t value)
{
    const int divided = apds_9930_reg_wr_data(REG_CONFIG, value < 4 ? 0 : 1);
    const int set = set_control(6, value & 3);
    return divided != 0 && set != 0 ? 1 : 0;
}

int prx_apds_9930_reg_set(int id, std::uint32_t value)
{
    switch (id) {
    case PRX_LOW_THRESHOLD:
        return set_threshold(REG_LOW, value);
    case PRX_HIGH_THRESHOLD:
        return set_threshold(REG_HIGH, value);
    case PRX_PULSES:
        return apds_9930_reg_wr_data(REG_PULSES, static_cast<std::uint8_t>(value));
    case PRX_GAIN:
        return value < 4 ? set_control(2, value) : 0;
    case PRX_DRIVE:
        return value < 8 ? set_drive(value) : 0;
    default:
        return 0;
    }
}

constexpr prx_co prx_apds_9930_co = {
    .reg_set = prx_apds_9930_reg_set,
    .start = prx_apds_9930_start,
    .adc = prx_apds_9930_adc,
    .digital = prx_apds_9930_digital,
};

} // namespace

void prx_apds_9930_init()
{
    prx_started = false;
    prx_co_attach(&prx_apds_9930_co);
}
