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
constexpr std::uint8_t REG_CHIP_ID   = 0x00;
constexpr std::uint8_t REG_X         = 0x02;   // low and high byte; y and z follow
constexpr std::uint8_t REG_TEMP      = 0x08;
constexpr std::uint8_t REG_RANGE     = 0x0F;
constexpr std::uint8_t REG_BANDWIDTH = 0x10;
constexpr std::uint8_t REG_POWER_1   = 0x11;
constexpr std::uint8_t REG_POWER_2   = 0x12;
constexpr std::uint8_t REG_RESET     = 0x14;
constexpr std::uint8_t REG_INTERRUPT = 0x16;
constexpr std::uint8_t REG_MEMORY    = 0x35;
constexpr std::uint8_t REG_OFFSET    = 0x36;   // five
constexpr std::uint8_t REG_SELF_TEST = 0x3C;
constexpr std::uint8_t REG_DSP       = 0x7D;   // behind a key

constexpr std::uint8_t RANGE_USE     = 4;
constexpr std::uint8_t BANDWIDTH_USE = 5;
constexpr std::uint8_t LINES_LOW     = 0;      // active low: at rest they are high
constexpr std::uint8_t LINES_HIGH    = 5;
constexpr std::uint8_t DEEP_SUSPEND  = 0x20;
constexpr std::uint8_t RESET_KEY     = 0xB6;
constexpr std::uint8_t MEMORY_CLOSE  = 0x0A;
constexpr std::uint8_t CONTROL_OPEN  = 0xCA;   // twice: the signal processor's control register
constexpr std::uint8_t MEMORY_OPEN   = 0x8A;   // twice
constexpr std::uint8_t DSP_OFF       = 0x10;
constexpr int          BMI055_ID     = 0x0F;

constexpr std::uint8_t TEST_START    = 0x01;
constexpr std::uint8_t TEST_READY    = 0x02;
constexpr std::uint8_t TEST_BAD      = 0x04;
constexpr std::uint8_t RATE_OK       = 0x10;

constexpr unsigned LINE_1 = 66;
constexpr unsigned LINE_2 = 75;

constexpr int FAILED_LINE_1 = 1;
constexpr int FAILED_LINE_2 = 2;
constexpr int FAILED_RATE   = 4;

struct memory_part {
    std::uint8_t first;
    std::uint8_t last;
};

constexpr memory_part memory_parts[] = {
    { 0x40, 0x73 },
    { 0x78, 0x7D },
};
// clang-format on

constexpr std::size_t MEMORY_SIZE = 58;
using offset_bytes = std::array<std::uint8_t, GYRO_BMI055_OFFSET_BYTES>;

constexpr double STEPS_PER_DEGREE = 262.4;
constexpr int MOST_TURNS = 100;

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
    write_reg(REG_RESET, RESET_KEY);
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
    write_reg(REG_RANGE, RANGE_USE);
    write_reg(REG_BANDWIDTH, BANDWIDTH_USE);
    write_reg(REG_INTERRUPT, LINES_HIGH);
    const offset_bytes bytes = stored_offsets();
    for (std::size_t i = 0; i < bytes.size(); i++) {
        write_reg(static_cast<std::uint8_t>(REG_OFFSET + i), bytes[i]);
        if (i + 1 < bytes.size())
            tmr_msleep(10);
    }
    gyro_started = true;
}

void gyro_bmi055_stop()
{
    if (!gyro_started)
        return;
    write_reg(REG_POWER_1, DEEP_SUSPEND);
    i2c_close(&gyro_i2c_hnd);
    gyro_started = false;
}

int gyro_bmi055_chip_id()
{
    return gyro_started ? read_reg(REG_CHIP_ID) : 0;
}

int gyro_bmi055_get(gyro_rate rate)
{
    if (!gyro_started)
        return 0;
    for (unsigned axis = 0; axis < 3; axis++) {
        const auto reg = static_cast<std::uint8_t>(REG_X + 2 * axis);
        const unsigned lsb = read_reg(reg);
        const unsigned msb = read_reg(static_cast<std::uint8_t>(reg + 1));
        rate[axis] = static_cast<std::int16_t>(msb << 8 | lsb) / STEPS_PER_DEGREE;
    }
    return 1;
}

float gyro_bmi055_get_temp()
{
    if (!gyro_started)
        return 0;
    const auto steps = static_cast<std::int8_t>(read_reg(REG_TEMP));
    return static_cast<float>(steps - 2) * 0.5F + 25.0F;
}

int gyro_bmi055_get_offset(gyro_offset offset)
{
    if (!gyro_started)
        return 0;
    offset_bytes bytes;
    for (std::size_t i = 0; i < bytes.size(); i++)
        bytes[i] = read_reg(static_cast<std::uint8_t>(REG_OFFSET + i));
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
        if (gpio_linux_rd(LINE_1) != level)
            failed |= FAILED_LINE_1;
        if (gpio_linux_rd(LINE_2) != level)
            failed |= FAILED_LINE_2;
    };
    write_reg(REG_INTERRUPT, LINES_LOW);
    look(1);
    write_reg(REG_INTERRUPT, LINES_HIGH);
    look(0);
    return failed;
}

int test_rate()
{
    int failed = (read_reg(REG_SELF_TEST) & RATE_OK) == 0 ? FAILED_RATE : 0;
    tmr_msleep(10);
    write_reg(REG_SELF_TEST, TEST_START);
    for (int turn = 0; turn < MOST_TURNS; turn++) {
        const std::uint8_t state = read_reg(REG_SELF_TEST);
        if ((state & TEST_READY) != 0)
            return (state & TEST_BAD) != 0 ? failed | FAILED_RATE : failed;
        tmr_msleep(10);
    }
    return failed | FAILED_RATE;
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
    write_reg(REG_INTERRUPT, LINES_HIGH);
    *p_result |= test_rate();
    soft_reset();
    write_reg(REG_RANGE, RANGE_USE);
    write_reg(REG_BANDWIDTH, BANDWIDTH_USE);
    return 1;
}

void unlock(std::uint8_t key)
{
    for (const std::uint8_t byte : {MEMORY_CLOSE, key, key})
        write_reg(REG_MEMORY, byte);
}

// A register behind a key gives its value at the second reading.
std::uint8_t read_twice(std::uint8_t reg)
{
    read_reg(reg);
    return read_reg(reg);
}

void gyro_bmi055_deactivate_dsp()
{
    unlock(CONTROL_OPEN);
    write_reg(REG_DSP, read_twice(REG_DSP) | DSP_OFF);
    tmr_msleep(600);
}

void gyro_bmi055_activate_dsp()
{
    unlock(CONTROL_OPEN);
    write_reg(REG_DSP, read_twice(REG_DSP) & static_cast<std::uint8_t>(~DSP_OFF));
    tmr_msleep(600);
    write_reg(REG_MEMORY, MEMORY_CLOSE);
}

std::array<std::uint8_t, MEMORY_SIZE> read_memory()
{
    std::array<std::uint8_t, MEMORY_SIZE> memory = {};
    std::size_t n = 0;
    unlock(MEMORY_OPEN);
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
    if (gyro_bmi055_chip_id() == BMI055_ID) {
        for (const std::uint8_t reg : {REG_POWER_1, REG_POWER_2}) {
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
