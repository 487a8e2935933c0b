#include "gyro_bmi055/gyro_bmi055.h"

#include <array>
#include <cstddef>

#include "gpio_linux/gpio_linux.h"
#include "i2c/i2c.h"
#include "tmr/tmr.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

// clang-format off
constexpr std::uint8_t reg_chip_id   = 0x00;
constexpr std::uint8_t reg_x         = 0x02;   // low and high byte; y and z follow
constexpr std::uint8_t reg_temp      = 0x08;
constexpr std::uint8_t reg_range     = 0x0F;
constexpr std::uint8_t reg_bandwidth = 0x10;
constexpr std::uint8_t reg_power_1   = 0x11;
constexpr std::uint8_t reg_power_2   = 0x12;
constexpr std::uint8_t reg_reset     = 0x14;
constexpr std::uint8_t reg_interrupt = 0x16;
constexpr std::uint8_t reg_memory    = 0x35;
constexpr std::uint8_t reg_offset    = 0x36;   // five
constexpr std::uint8_t reg_self_test = 0x3C;
constexpr std::uint8_t reg_dsp       = 0x7D;   // behind a key

constexpr std::uint8_t range_use     = 4;
constexpr std::uint8_t bandwidth_use = 5;
constexpr std::uint8_t lines_low     = 0;      // active low: at rest they are high
constexpr std::uint8_t lines_high    = 5;
constexpr std::uint8_t deep_suspend  = 0x20;
constexpr std::uint8_t reset_key     = 0xB6;
constexpr std::uint8_t memory_close  = 0x0A;
constexpr std::uint8_t control_open  = 0xCA;   // twice: the signal processor's control register
constexpr std::uint8_t memory_open   = 0x8A;   // twice
constexpr std::uint8_t dsp_off       = 0x10;
constexpr int          bmi055_id     = 0x0F;

constexpr std::uint8_t test_start    = 0x01;
constexpr std::uint8_t test_ready    = 0x02;
constexpr std::uint8_t test_bad      = 0x04;
constexpr std::uint8_t rate_ok       = 0x10;

constexpr unsigned line_1 = 66;
constexpr unsigned line_2 = 75;

constexpr int failed_line_1 = 1;
constexpr int failed_line_2 = 2;
constexpr int failed_rate   = 4;

struct memory_part {
    std::uint8_t first;
    std::uint8_t last;
};

constexpr memory_part memory_parts[] = {
    { 0x40, 0x73 },
    { 0x78, 0x7D },
};
// clang-format on

constexpr std::size_t memory_size = 58;
using offset_bytes = std::array<std::uint8_t, GYRO_BMI055_OFFSET_BYTES>;

constexpr double steps_per_degree = 262.4;
constexpr int most_turns = 100;

bool gyro_started;
i2c_handle gyro_i2c_hnd;

void write_reg(std::uint8_t reg, std::uint8_t value)
{
    i2c_write_reg8(&gyro_i2c_hnd, reg, value);
}

// 0 for a register that can't be read.
std::uint8_t read_reg(std::uint8_t reg)
{
    std::uint8_t value = 0;
    i2c_read_reg8(&gyro_i2c_hnd, reg, &value);
    return value;
}

void soft_reset()
{
    write_reg(reg_reset, reset_key);
    tmr_msleep(50);
}

// Zeros for what the unit lacks, and for a unit that is too large to be ours.
offset_bytes stored_offsets()
{
    offset_bytes bytes = {};
    if (trim_rd(TRIM_GYRO_OFFSETS, bytes.data(), bytes.size()) <= 0)
        bytes = {};
    return bytes;
}

void gyro_bmi055_start()
{
    if (gyro_started || i2c_open(&gyro_i2c_hnd, "bmi055-gyro", 0, 0) < 0)
        return;
    soft_reset();
    write_reg(reg_range, range_use);
    write_reg(reg_bandwidth, bandwidth_use);
    write_reg(reg_interrupt, lines_high);
    const offset_bytes bytes = stored_offsets();
    for (std::size_t i = 0; i < bytes.size(); i++) {
        write_reg(static_cast<std::uint8_t>(reg_offset + i), bytes[i]);
        if (i + 1 < bytes.size())
            tmr_msleep(10);
    }
    gyro_started = true;
}

void gyro_bmi055_stop()
{
    if (!gyro_started)
        return;
    write_reg(reg_power_1, deep_suspend);
    i2c_close(&gyro_i2c_hnd);
    gyro_started = false;
}

int gyro_bmi055_chip_id()
{
    return gyro_started ? read_reg(reg_chip_id) : 0;
}

int gyro_bmi055_get(gyro_rate rate)
{
    if (!gyro_started)
        return 0;
    for (unsigned axis = 0; axis < 3; axis++) {
        const auto reg = static_cast<std::uint8_t>(reg_x + 2 * axis);
        const unsigned lsb = read_reg(reg);
        const unsigned msb = read_reg(static_cast<std::uint8_t>(reg + 1));
        rate[axis] = static_cast<std::int16_t>(msb << 8 | lsb) / steps_per_degree;
    }
    return 1;
}

float gyro_bmi055_get_temp()
{
    if (!gyro_started)
        return 0;
    const auto steps = static_cast<std::int8_t>(read_reg(reg_temp));
    return static_cast<float>(steps - 2) * 0.5F + 25.0F;
}

int gyro_bmi055_get_offset(gyro_offset offset)
{
    if (!gyro_started)
        return 0;
    offset_bytes bytes;
    for (std::size_t i = 0; i < bytes.size(); i++)
        bytes[i] = read_reg(static_cast<std::uint8_t>(reg_offset + i));
    gyro_bmi055_unpack(bytes.data(), offset);
    return 1;
}

int gyro_bmi055_offset_calibration(const gyro_offset wanted)
{
    offset_bytes bytes;
    gyro_bmi055_pack(wanted, bytes.data());
    return trim_wr(TRIM_GYRO_OFFSETS, bytes.data(), bytes.size());
}

// The lines must follow the level at which they rest.
int test_lines()
{
    int failed = 0;
    const auto look = [&failed](int level) {
        if (gpio_linux_rd(line_1) != level)
            failed |= failed_line_1;
        if (gpio_linux_rd(line_2) != level)
            failed |= failed_line_2;
    };
    write_reg(reg_interrupt, lines_low);
    look(1);
    write_reg(reg_interrupt, lines_high);
    look(0);
    return failed;
}

int test_rate()
{
    int failed = (read_reg(reg_self_test) & rate_ok) == 0 ? failed_rate : 0;
    tmr_msleep(10);
    write_reg(reg_self_test, test_start);
    for (int turn = 0; turn < most_turns; turn++) {
        const std::uint8_t state = read_reg(reg_self_test);
        if ((state & test_ready) != 0)
            return (state & test_bad) != 0 ? failed | failed_rate : failed;
        tmr_msleep(10);
    }
    return failed | failed_rate;
}

// What the last reset leaves stays: the offsets are gone until the next start.
int gyro_bmi055_self_test(int* p_result)
{
    if (!gyro_started) {
        *p_result = GYRO_NOT_STARTED;
        return 1;
    }
    soft_reset();
    *p_result = test_lines();
    soft_reset();
    write_reg(reg_interrupt, lines_high);
    *p_result |= test_rate();
    soft_reset();
    write_reg(reg_range, range_use);
    write_reg(reg_bandwidth, bandwidth_use);
    return 1;
}

void unlock(std::uint8_t key)
{
    for (const std::uint8_t byte : {memory_close, key, key})
        write_reg(reg_memory, byte);
}

// A register behind a key gives its value at the second reading.
std::uint8_t read_twice(std::uint8_t reg)
{
    read_reg(reg);
    return read_reg(reg);
}

void gyro_bmi055_deactivate_dsp()
{
    unlock(control_open);
    write_reg(reg_dsp, read_twice(reg_dsp) | dsp_off);
    tmr_msleep(600);
}

void gyro_bmi055_activate_dsp()
{
    unlock(control_open);
    write_reg(reg_dsp, read_twice(reg_dsp) & static_cast<std::uint8_t>(~dsp_off));
    tmr_msleep(600);
    write_reg(reg_memory, memory_close);
}

std::array<std::uint8_t, memory_size> read_memory()
{
    std::array<std::uint8_t, memory_size> memory = {};
    std::size_t n = 0;
    unlock(memory_open);
    for (const memory_part& part : memory_parts) {
        for (std::uint8_t reg = part.first; reg <= part.last; reg++) {
            tmr_msleep(10);
            read_reg(reg);
            tmr_msleep(10);
            memory[n++] = read_reg(reg);
        }
    }
    return memory;
}

int gyro_bmi055_backup(int* p_result)
{
    *p_result = 0;
    if (!gyro_started)
        return 0;
    if (gyro_bmi055_chip_id() == bmi055_id) {
        for (const std::uint8_t reg : {reg_power_1, reg_power_2}) {
            write_reg(reg, 0);
            tmr_msleep(10);
        }
        gyro_bmi055_deactivate_dsp();
        const auto memory = read_memory();
        trim_wr(TRIM_GYRO_BACKUP, memory.data(), memory.size());
        *p_result = 1;
    }
    gyro_bmi055_activate_dsp();
    return *p_result;
}

constexpr gyro_co gyro_bmi055_co = {
    .store_offset = nullptr,
    .offset_calibration = gyro_bmi055_offset_calibration,
    .start = gyro_bmi055_start,
    .stop = gyro_bmi055_stop,
    .chip_id = gyro_bmi055_chip_id,
    .get = gyro_bmi055_get,
    .get_offset = gyro_bmi055_get_offset,
    .self_test = gyro_bmi055_self_test,
    .get_temp = gyro_bmi055_get_temp,
    .calc_rms = nullptr,
    .rw_temp_ta = nullptr,
    .init_ta = nullptr,
    .get_calibrated = nullptr,
    .backup = gyro_bmi055_backup,
};

} // namespace

void gyro_bmi055_init()
{
    gyro_started = false;
    gyro_co_attach(&gyro_bmi055_co);
}
