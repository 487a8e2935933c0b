#include "aclmr_bmi055/aclmr_bmi055.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "aclmr/aclmr.h"
#include "bmi055_samples.h"
#include "i2c/i2c.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "tmr/tmr.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

// clang-format off
constexpr std::uint8_t REG_CHIP_ID   = 0x00;
constexpr std::uint8_t REG_X         = 0x02;   // low and high byte; y and z follow
constexpr std::uint8_t REG_RANGE     = 0x0F;
constexpr std::uint8_t REG_BANDWIDTH = 0x10;
constexpr std::uint8_t REG_POWER     = 0x11;
constexpr std::uint8_t REG_RESET     = 0x14;
constexpr std::uint8_t REG_INTERRUPT = 0x20;
constexpr std::uint8_t REG_SELF_TEST = 0x32;
constexpr std::uint8_t REG_MEMORY    = 0x35;
constexpr std::uint8_t REG_OFFSET_X  = 0x38;   // y and z follow

constexpr std::uint8_t RANGE_2G      = 3;
constexpr std::uint8_t RANGE_8G      = 8;
constexpr std::uint8_t BANDWIDTH_USE = 10;
constexpr std::uint8_t BANDWIDTH_MAX = 15;
constexpr std::uint8_t RESET_KEY     = 0xB6;
constexpr std::uint8_t MEMORY_OPEN   = 0xAA;   // twice
constexpr std::uint8_t MEMORY_CLOSE  = 0x0A;
constexpr std::uint8_t LINES_LOW     = 0;      // active low: at rest they are high
constexpr std::uint8_t LINES_HIGH    = 5;
constexpr int          BMI055_ID     = 0xFA;

constexpr int FAILED_LINE_1 = 1;
constexpr int FAILED_LINE_2 = 2;

struct axis_test {
    std::uint8_t reg;
    std::uint8_t positive; // drives
    std::uint8_t negative;
    float        least;    // difference, milli-g
    int          failed;
};

constexpr axis_test axis_tests[] = {
    // reg   positive  negative  least    failed
    { 0x02,  21,       17,       800.0F,   4 },
    { 0x04,  22,       18,       800.0F,   8 },
    { 0x06,  23,       19,       400.0F,  16 },
};
// clang-format on

constexpr std::size_t MEMORY_SIZE = 27; // registers 0 to 26, the last a checksum of the others
constexpr float LARGEST_STEP = 127;

bool aclmr_started;
i2c_handle bmi055_i2c_hnd;

void write_reg(std::uint8_t reg, std::uint8_t value)
{
    i2c_write_reg8(&bmi055_i2c_hnd, reg, value);
}

// 0 for a register that can't be read.
std::uint8_t read_reg(std::uint8_t reg)
{
    std::uint8_t value = 0;
    i2c_read_reg8(&bmi055_i2c_hnd, reg, &value);
    return value;
}

int aclmr_bmi055_ta_rd(std::uint8_t (&offsets)[3])
{
    return trim_rd(TRIM_ACCEL_OFFSETS, offsets, sizeof offsets);
}

// A unit of another size isn't one of ours, and stays.
int aclmr_bmi055_ta_wr(const std::array<std::uint8_t, MEMORY_SIZE>& memory)
{
    std::array<std::uint8_t, MEMORY_SIZE> old;
    if (trim_rd(TRIM_ACCEL_BACKUP, old.data(), old.size()) != static_cast<int>(old.size()))
        return 0;
    return trim_wr(TRIM_ACCEL_BACKUP, memory.data(), memory.size());
}

void aclmr_bmi055_start()
{
    if (aclmr_started || i2c_open(&bmi055_i2c_hnd, "bmi055-aclm", 0, 0) < 0)
        return;
    write_reg(REG_RESET, RESET_KEY);
    tmr_msleep(50);
    write_reg(REG_BANDWIDTH, BANDWIDTH_USE);
    write_reg(REG_RANGE, RANGE_2G);
    std::uint8_t offsets[3] = {};
    if (aclmr_bmi055_ta_rd(offsets) != sizeof offsets) {
        i2c_close(&bmi055_i2c_hnd);
        return;
    }
    for (unsigned axis = 0; axis < 3; axis++)
        write_reg(static_cast<std::uint8_t>(REG_OFFSET_X + axis), offsets[axis]);
    aclmr_started = true;
}

void aclmr_bmi055_stop()
{
    if (!aclmr_started)
        return;
    i2c_close(&bmi055_i2c_hnd);
    aclmr_started = false;
}

int aclmr_bmi055_chip_id()
{
    return aclmr_started ? read_reg(REG_CHIP_ID) : 0;
}

int aclmr_bmi055_get(aclmr_vector vector)
{
    if (!aclmr_started)
        return 0;
    for (unsigned axis = 0; axis < 3; axis++) {
        const auto reg = static_cast<std::uint8_t>(REG_X + 2 * axis);
        const std::uint8_t lsb = read_reg(reg);
        const std::uint8_t msb = read_reg(static_cast<std::uint8_t>(reg + 1));
        vector[axis] = bmi055_float(msb, lsb);
    }
    return 1;
}

// Refused values write no register.
int aclmr_bmi055_get_samples(int count, int mode, int bandwidth, char* text)
{
    constexpr int BANDWIDTHS = 8;
    constexpr std::uint8_t LOWEST = 8;
    if (!aclmr_started || mode != 0 || bandwidth < 1 || bandwidth > BANDWIDTHS)
        return 0;
    write_reg(REG_BANDWIDTH, static_cast<std::uint8_t>(LOWEST + bandwidth - 1));
    return bmi055_samples(&bmi055_i2c_hnd, count, text);
}

float aclmr_bmi055_offset2float(std::uint8_t byte)
{
    return static_cast<float>(static_cast<std::int8_t>(byte)) / 128.0F * 1000.0F;
}

int aclmr_bmi055_get_offset(aclmr_vector vector)
{
    if (!aclmr_started)
        return 0;
    for (unsigned axis = 0; axis < 3; axis++)
        vector[axis] = aclmr_bmi055_offset2float(read_reg(static_cast<std::uint8_t>(REG_OFFSET_X + axis)));
    return 1;
}

std::uint8_t offset_byte(float wanted)
{
    const float steps = std::min((std::fabs(wanted) * 128.0F + 500.0F) / 1000.0F, LARGEST_STEP);
    const int m = static_cast<int>(steps);
    return static_cast<std::uint8_t>(wanted < 0 ? -m : m);
}

int aclmr_bmi055_offset_calibration(const aclmr_vector vector)
{
    std::uint8_t offsets[3];
    std::transform(vector, vector + 3, offsets, offset_byte);
    return trim_wr(TRIM_ACCEL_OFFSETS, offsets, sizeof offsets);
}

// The lines must follow the level at which they rest.
int test_lines()
{
    int failed = 0;
    const auto look = [&failed](bool active) {
        if ((pin_in_get(PIN_IN_ACCEL_IRQ1) == PIN_ACTIVE) != active)
            failed |= FAILED_LINE_1;
        if ((pin_in_get(PIN_IN_ACCEL_IRQ2) == PIN_ACTIVE) != active)
            failed |= FAILED_LINE_2;
    };
    write_reg(REG_INTERRUPT, LINES_LOW);
    tmr_msleep(10);
    look(true);
    write_reg(REG_INTERRUPT, LINES_HIGH);
    look(false);
    tmr_msleep(10);
    return failed;
}

float driven(const axis_test& test, std::uint8_t drive)
{
    write_reg(REG_SELF_TEST, drive);
    tmr_msleep(50);
    const std::uint8_t lsb = read_reg(test.reg);
    const std::uint8_t msb = read_reg(static_cast<std::uint8_t>(test.reg + 1));
    return bmi055_float_8g(msb, lsb);
}

int test_axes()
{
    int failed = 0;
    write_reg(REG_RANGE, RANGE_8G);
    write_reg(REG_BANDWIDTH, BANDWIDTH_MAX);
    for (const axis_test& test : axis_tests) {
        const float positive = driven(test, test.positive);
        const float negative = driven(test, test.negative);
        if (positive - negative < test.least)
            failed |= test.failed;
    }
    write_reg(REG_SELF_TEST, 0);
    write_reg(REG_RANGE, RANGE_2G);
    write_reg(REG_BANDWIDTH, BANDWIDTH_USE);
    return failed;
}

// The self test. The slot has its name from chips that find their offset by themselves.
int aclmr_bmi055_store_offset()
{
    if (!aclmr_started)
        return ACLMR_NOT_STARTED;
    const int failed = test_lines();
    return failed | test_axes();
}

int aclmr_bmi055_get_rom_state()
{
    return ACLMR_NO_ROM_STATE;
}

std::array<std::uint8_t, MEMORY_SIZE> read_memory()
{
    for (int turn = 0; turn < 2; turn++) {
        tmr_msleep(10);
        write_reg(REG_MEMORY, MEMORY_OPEN);
    }
    tmr_msleep(10);
    std::array<std::uint8_t, MEMORY_SIZE> memory;
    for (std::size_t i = 0; i < memory.size(); i++) {
        memory[i] = read_reg(static_cast<std::uint8_t>(i));
        tmr_msleep(10);
    }
    write_reg(REG_MEMORY, MEMORY_CLOSE);
    return memory;
}

int aclmr_bmi055_nvm_backup()
{
    if (aclmr_bmi055_chip_id() != BMI055_ID)
        return 0;
    write_reg(REG_POWER, 0);
    const auto memory = read_memory();
    if (aclmr_bmi055_crc(memory.data(), memory.size() - 1) != memory.back())
        return 0;
    return aclmr_bmi055_ta_wr(memory);
}

constexpr aclmr_co aclmr_bmi055_co = {
    .store_offset = aclmr_bmi055_store_offset,
    .offset_calibration = aclmr_bmi055_offset_calibration,
    .start = aclmr_bmi055_start,
    .stop = aclmr_bmi055_stop,
    .chip_id = aclmr_bmi055_chip_id,
    .get = aclmr_bmi055_get,
    .get_samples = aclmr_bmi055_get_samples,
    .get_offset = aclmr_bmi055_get_offset,
    .get_rom_state = aclmr_bmi055_get_rom_state,
    .selftest = nullptr,
    .get_temp = nullptr,
    .nvm_backup = aclmr_bmi055_nvm_backup,
};

} // namespace

std::uint8_t aclmr_bmi055_crc(const std::uint8_t* p_data, std::size_t size)
{
    constexpr unsigned POLYNOMIAL = 0x1D;
    unsigned crc = 0xFF;
    for (std::size_t i = 0; i < size; i++) {
        crc ^= p_data[i];
        for (int bit = 0; bit < 8; bit++)
            crc = (crc & 0x80) != 0 ? (crc << 1 ^ POLYNOMIAL) & 0xFF : crc << 1;
    }
    return static_cast<std::uint8_t>(~crc);
}

void aclmr_bmi055_init()
{
    aclmr_started = false;
    aclmr_co_attach(&aclmr_bmi055_co);
}
