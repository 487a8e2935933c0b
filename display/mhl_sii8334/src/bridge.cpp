#include "bridge.h"

#include <array>
#include <cstdint>

#include "attr_num/attr_num.h"
#include "i2c/i2c.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "tmr/tmr.h"

namespace {

using std::uint8_t;

constexpr const char* BUS_NAME = "sii8334";
constexpr const char* TRAFFIC =
    "/sys/hvt/hvt-hdmi/i2c_a0"; // its reading makes the kernel talk to the monitor
constexpr std::size_t TRAFFIC_BYTES = 256;

struct reg_row {
    uint8_t dev;
    uint8_t reg;
    uint8_t val;
};

// clang-format off
constexpr reg_row bist_writes[] = {
    { 0x4D, 0x12, 0xC0 },
    { 0x4D, 0x00, 0x01 },
    { 0x3D, 0x3D, 0x37 },
    { 0x49, 0x11, 0x01 },
    { 0x49, 0x12, 0x11 },
    { 0x4D, 0x30, 0x00 },
    { 0x4D, 0x31, 0xF3 },
    { 0x39, 0x80, 0x14 },
    { 0x4D, 0x12, 0xCA },
    { 0x4D, 0x30, 0x00 },
    { 0x4D, 0x32, 0x00 },
    { 0x49, 0x17, 0x03 },
    { 0x49, 0x4D, 0x04 },
    { 0x49, 0x4C, 0x98 },
    { 0x49, 0x1A, 0x20 },
    { 0x49, 0x22, 0x8A },
    { 0x49, 0x23, 0x6A },
    { 0x49, 0x24, 0xAA },
    { 0x49, 0x25, 0xCA },
    { 0x49, 0x26, 0xEA },
    { 0x49, 0x45, 0x44 },
    { 0x49, 0x31, 0x0A },
    { 0x4D, 0x33, 0xFA },
    { 0x39, 0x85, 0x00 },
    { 0x4D, 0x00, 0x00 },
    { 0x49, 0x64, 0x09 },
    { 0x49, 0x66, 0xFF },
    { 0x49, 0x65, 0x06 },
    { 0x49, 0x60, 0x91 },
};
// clang-format on

constexpr uint8_t BIST_DEV = 0x49;
constexpr uint8_t BIST_STATUS = 0x69; // bit 1: done
constexpr uint8_t BIST_RESULT = 0x6A; // bit 0: failed
constexpr uint8_t BIST_FIRST_DETAIL = 0x6B;
constexpr uint8_t BIST_LAST_DETAIL = 0x73;
constexpr uint8_t BIST_DONE = 0x02;
constexpr uint8_t BIST_FAILED = 0x01;
constexpr int BIST_LOOKS = 21;
constexpr std::uint32_t BIST_PERIOD_MS = 100;

// The chip is opened for each access: tests are rare, and another may want the bus between.
class chip {
public:
    explicit chip(uint8_t dev) : opened(i2c_open(&hnd, BUS_NAME, 0, dev) == 0) {}
    ~chip()
    {
        if (opened)
            i2c_close(&hnd);
    }
    chip(const chip&) = delete;
    chip& operator=(const chip&) = delete;

    bool write(uint8_t reg, uint8_t val) const { return opened && i2c_write_reg8(&hnd, reg, val) >= 0; }
    bool read(uint8_t reg, uint8_t* p_val) const { return opened && i2c_read_reg8(&hnd, reg, p_val) >= 0; }

private:
    i2c_handle hnd{};
    bool opened;
};

bool mhl_sii8334_reg_wr(uint8_t dev, uint8_t reg, uint8_t val)
{
    return chip(dev).write(reg, val);
}

bool mhl_sii8334_reg_rd(uint8_t dev, uint8_t reg, uint8_t* p_val)
{
    return chip(dev).read(reg, p_val);
}

// Changes the bits of `mask` alone.
bool mhl_sii8334_reg_wr_masked(uint8_t dev, uint8_t reg, uint8_t mask, uint8_t val)
{
    const chip bridge(dev);
    uint8_t old;
    return bridge.read(reg, &old) && bridge.write(reg, static_cast<uint8_t>((old & ~mask) | (val & mask)));
}

// All bits of `mask` are set in the register. False when it can't be read.
bool is_set(uint8_t dev, uint8_t reg, uint8_t mask)
{
    uint8_t val;
    return mhl_sii8334_reg_rd(dev, reg, &val) && (val & mask) == mask;
}

void reset(std::uint32_t low_ms, std::uint32_t high_ms)
{
    pin_out_set(PIN_OUT_MHL_RESET, PIN_INACTIVE);
    tmr_msleep(low_ms);
    pin_out_set(PIN_OUT_MHL_RESET, PIN_ACTIVE);
    tmr_msleep(high_ms);
}

bool bist_is_done()
{
    for (int i = 0; i < BIST_LOOKS; i++) {
        if (i > 0)
            tmr_msleep(BIST_PERIOD_MS);
        if (is_set(BIST_DEV, BIST_STATUS, BIST_DONE))
            return true;
    }
    return false;
}

// The details behind the result are read because the chip ends its test with that; they aren't used.
bool bist_is_passed()
{
    uint8_t result, detail;
    const bool passed = mhl_sii8334_reg_rd(BIST_DEV, BIST_RESULT, &result) && (result & BIST_FAILED) == 0;
    for (uint8_t reg = BIST_FIRST_DETAIL; reg <= BIST_LAST_DETAIL; reg++)
        mhl_sii8334_reg_rd(BIST_DEV, reg, &detail);
    return passed;
}

} // namespace

int mhl_sii8334_hotplug()
{
    return pin_in_get(PIN_IN_MHL_HOTPLUG) == PIN_ACTIVE ? 1 : 0;
}

int mhl_sii8334_bridge_bist(int* p_result)
{
    reset(100, 100);
    for (const reg_row& row : bist_writes)
        if (!mhl_sii8334_reg_wr(row.dev, row.reg, row.val))
            return 0;
    *p_result = bist_is_done() && bist_is_passed() ? 1 : 0;
    return 1;
}

int mhl_sii8334_bridge_ddc(int* p_result)
{
    reset(50, 100);
    *p_result = 0;
    if (!mhl_sii8334_reg_wr(0x39, 0x0D, 0x12) || !mhl_sii8334_reg_wr_masked(0x4D, 0x12, 0x40, 0x40))
        return 1;
    std::array<uint8_t, TRAFFIC_BYTES> bytes;
    attr_num_bytes(TRAFFIC, bytes.data(), bytes.size()); // what comes doesn't matter
    *p_result = is_set(0x64, 0x08, 0x04) && is_set(0x64, 0x0B, 0x01) ? 1 : 0;
    return 1;
}

int mhl_sii8334_bridge_hpd(int* p_result)
{
    reset(100, 10);
    if (!mhl_sii8334_reg_wr(0x4D, 0x20, 0x36))
        return 0;
    *p_result = mhl_sii8334_hotplug();
    return 1;
}
