#include "als_apds_9930/als_apds_9930.h"

#include "als/als.h"
#include "i2c/i2c.h"
#include "tmr/tmr.h"

namespace {

// clang-format off
constexpr std::uint8_t als_table[] = { // registers 0x80 to 0x8F; the first is written last
    0x1B, 0xDB, 0xFF, 0xFF, 0x00, 0x02, 0x00, 0x04,
    0x00, 0x00, 0x00, 0x00, 0x22, 0x00, 0x00, 0x00,
};

constexpr std::uint8_t REG_ENABLE        = 0x80;
constexpr std::uint8_t REG_CONFIG        = 0x8D;   // divides the gain
constexpr std::uint8_t REG_GAIN          = 0x8F;
constexpr std::uint8_t COMMAND_INCREMENT = 0xA0;
constexpr std::uint8_t VALUE_LIGHT       = 20;     // register of the low byte

struct gain_row {
    std::uint8_t again;
    std::uint8_t agl;
};

constexpr gain_row gains[] = {
    // 0x8F  0x8D
    { 0,     4 },
    { 0,     0 },
    { 1,     4 },
    { 1,     0 },
    { 2,     0 },
    { 3,     0 },
};
// clang-format on
static_assert(sizeof gains / sizeof gains[0] == ALS_MOST_GAIN + 1);

constexpr std::uint32_t DELAY_MS = 100;
constexpr std::uint32_t KIND_LIGHT = 15;

bool als_started;
i2c_handle als_i2c_hnd;

int apds_9930_reg_wr_data(std::uint8_t reg, std::uint8_t value)
{
    return als_started && i2c_write_reg8(&als_i2c_hnd, reg, value) >= 0 ? 1 : 0;
}

// By a handle of its own; the value is 0 when that fails.
int apds_9930_reg_rd_data(std::uint8_t reg, std::uint8_t* p_value)
{
    i2c_handle hnd;
    *p_value = 0;
    if (i2c_open(&hnd, "apds_9930-als", 0, 0) < 0)
        return 0;
    tmr_msleep(DELAY_MS);
    const int result = i2c_read_reg8(&hnd, reg, p_value);
    i2c_close(&hnd);
    return result >= 0 ? 1 : 0;
}

int als_value_rd16(std::uint8_t value, std::uint32_t* p_out)
{
    std::uint8_t bytes[2];
    tmr_msleep(DELAY_MS);
    if (i2c_read_regs(&als_i2c_hnd, value | COMMAND_INCREMENT, bytes, sizeof bytes) < 0)
        return 0;
    *p_out = bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8;
    return 1;
}

int als_apds_9930_start()
{
    if (als_started)
        return 1;
    if (i2c_open(&als_i2c_hnd, "apds_9930-als", 0, 0) < 0)
        return 0;
    als_started = true;
    tmr_msleep(DELAY_MS);
    for (unsigned i = 1; i < sizeof als_table; i++)
        apds_9930_reg_wr_data(static_cast<std::uint8_t>(REG_ENABLE + i), als_table[i]);
    apds_9930_reg_wr_data(REG_ENABLE, als_table[0]);
    return 1;
}

int als_apds_9930_stop()
{
    if (!als_started)
        return 1;
    apds_9930_reg_wr_data(REG_ENABLE, 0);
    i2c_close(&als_i2c_hnd);
    als_started = false;
    return 1;
}

std::uint32_t als_apds_9930_get(std::uint32_t)
{
    std::uint32_t counts = 0;
    if (!als_started)
        return 0;
    tmr_msleep(DELAY_MS);
    als_value_rd16(VALUE_LIGHT, &counts);
    return counts;
}

int als_apds_9930_get_resistor()
{
    return 0;
}

// From a high gain the gain itself changes first, from a low one its divider.
int als_apds_9930_set_resistor(std::uint32_t kind, std::uint32_t gain, std::uint32_t)
{
    if (!als_started || kind != KIND_LIGHT || gain > ALS_MOST_GAIN)
        return 0;
    const gain_row& row = gains[gain];
    std::uint8_t old;
    apds_9930_reg_rd_data(REG_GAIN, &old);
    if (old == 2 || old == 3) {
        apds_9930_reg_wr_data(REG_GAIN, row.again);
        apds_9930_reg_wr_data(REG_CONFIG, row.agl);
    } else {
        apds_9930_reg_wr_data(REG_CONFIG, row.agl);
        apds_9930_reg_wr_data(REG_GAIN, row.again);
    }
    return 1;
}

constexpr als_co als_apds_9930_co = {
    .start = als_apds_9930_start,
    .stop = als_apds_9930_stop,
    .get = als_apds_9930_get,
    .get_resistor = als_apds_9930_get_resistor,
    .set_resistor = als_apds_9930_set_resistor,
};

} // namespace

void als_apds_9930_init()
{
    als_started = false;
    als_co_attach(&als_apds_9930_co);
}
