// The bridge's tests on the chip itself, as a phone without the kernel's tests runs them: on a bus that
// records, with a hot plug line of the test's own. A line of the record is the milliseconds that had passed,
// and the event.
#include <cstdio>
#include <gtest/gtest.h>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <map>
#include <string>
#include <vector>

#include "cfg/cfg.h"
#include "i2c/i2c.h"
#include "mhl/mhl.h"
#include "mhl_sii8334/mhl_sii8334.h"
#include "pin/pin.h"
#include "pin_brenk/pin_brenk.h"
#include "tmr/tmr.h"
#include "unit/plat_fake.h"

namespace {

constexpr int bus_fd = 1000000;

using list = std::vector<std::string>;

list record;
std::uint64_t last_us;
std::map<int, std::uint8_t> registers; // by device << 8 | register
int failing_write;                     // counts down to the write that fails; 0 for none
int failing_reg;                       // a register that can't be read
int plug_level;

void note(const std::string& event)
{
    const std::uint64_t now = plat_fake_now_us();
    record.push_back(std::to_string((now - last_us) / 1000) + " " + event);
    last_us = now;
}

std::string hex(const char* what, int dev, int reg, int val)
{
    char text[32];
    std::snprintf(text, sizeof text, "%s%02X %02X %02X", what, dev & 0xFF, reg & 0xFF, val & 0xFF);
    return text;
}

int transfer(const i2c_rdwr_ioctl_data& data)
{
    const i2c_msg& first = data.msgs[0];
    const int reg = first.addr << 8 | first.buf[0];
    if (data.nmsgs == 2) {
        if (reg == failing_reg)
            return -1;
        data.msgs[1].buf[0] = registers[reg];
        note(hex("? ", first.addr, reg, registers[reg]));
        return 2;
    }
    if (failing_write > 0 && --failing_write == 0)
        return -1;
    registers[reg] = first.buf[1];
    note(hex("", first.addr, reg, first.buf[1]));
    return 1;
}

int spy_ioctl(int fd, unsigned long request, void* arg)
{
    EXPECT_EQ(fd, bus_fd);
    return request == I2C_RDWR ? transfer(*static_cast<i2c_rdwr_ioctl_data*>(arg)) : 0;
}

int spy_open(const char* path, int, mode_t)
{
    const bool bus = std::string(path) == "/dev/i2c-4";
    if (!bus)
        note(path);
    return bus ? bus_fd : -1;
}

int change(pin_driver*, unsigned pin, int op, unsigned)
{
    if (op > 1)
        return pin == 34 ? plug_level : PIN_LEVEL_FAILED;
    note("pin " + std::to_string(pin) + " to " + std::to_string(op));
    return op;
}

const pin_fn pins = {change, nullptr, nullptr};
pin_driver pins_driver;

constexpr i2c_cfg_row chips[] = {{"other", 5, 0x18}, {"sii8334", 4, 0}, {}};

class Bridge : public testing::Test {
protected:
    void SetUp() override
    {
        plat_fake_reset();
        plat_fake_co.open = spy_open;
        plat_fake_co.close = [](int) { return 0; };
        plat_fake_co.ioctl = spy_ioctl;
        tmr_init();
        cfg_init();
        i2c_init();
        i2c_cfg(chips);
        pin_init();
        pin_map_set(pin_brenk_co_get, 1);
        pin_install(&pins_driver, PIN_GRP_GPIO, &pins, 0);
        mhl_init();
        mhl_sii8334_init();
        registers.clear();
        failing_write = failing_reg = 0;
        plug_level = 1;
        forget();
    }
    static void forget()
    {
        record.clear();
        last_us = plat_fake_now_us();
    }
};

// The writes of the self test, as the chip maker gives them.
const list self_test = {"100 4D 12 C0", "0 4D 00 01", "0 3D 3D 37", "0 49 11 01", "0 49 12 11", "0 4D 30 00",
                        "0 4D 31 F3",   "0 39 80 14", "0 4D 12 CA", "0 4D 30 00", "0 4D 32 00", "0 49 17 03",
                        "0 49 4D 04",   "0 49 4C 98", "0 49 1A 20", "0 49 22 8A", "0 49 23 6A", "0 49 24 AA",
                        "0 49 25 CA",   "0 49 26 EA", "0 49 45 44", "0 49 31 0A", "0 4D 33 FA", "0 39 85 00",
                        "0 4D 00 00",   "0 49 64 09", "0 49 66 FF", "0 49 65 06", "0 49 60 91"};

list joined(const list& a, const list& b, const list& c = {})
{
    list all = a;
    all.insert(all.end(), b.begin(), b.end());
    all.insert(all.end(), c.begin(), c.end());
    return all;
}

// What a test gives: "status result".
std::string run(int (*test)(int*))
{
    int result = 0;
    const int status = test(&result);
    return std::to_string(status) + " " + std::to_string(result);
}

} // namespace

TEST_F(Bridge, TheSelfTestPasses)
{
    registers[0x4969] = 0x02;
    EXPECT_EQ(run(mhl_run_bist), "1 1");
    const list result = {"0 ? 49 69 02", "0 ? 49 6A 00", "0 ? 49 6B 00", "0 ? 49 6C 00",
                         "0 ? 49 6D 00", "0 ? 49 6E 00", "0 ? 49 6F 00", "0 ? 49 70 00",
                         "0 ? 49 71 00", "0 ? 49 72 00", "0 ? 49 73 00"};
    // the board's reset line is GPIO 16, active high
    EXPECT_EQ(record, joined({"0 pin 16 to 0", "100 pin 16 to 1"}, self_test, result));
}

TEST_F(Bridge, TheSelfTestFails)
{
    registers[0x4969] = 0x02;
    registers[0x496A] = 0x01;
    EXPECT_EQ(run(mhl_run_bist), "1 0");
    registers[0x496A] = 0xFE;
    EXPECT_EQ(run(mhl_run_bist), "1 1") << "bit 0 alone counts";
    failing_reg = 0x496A;
    EXPECT_EQ(run(mhl_run_bist), "1 0");
}

TEST_F(Bridge, TheSelfTestIsAskedFor21Times)
{
    registers[0x4969] = 0xFD;
    EXPECT_EQ(run(mhl_run_bist), "1 0");
    list looks(21, "100 ? 49 69 FD");
    looks[0] = "0 ? 49 69 FD";
    EXPECT_EQ(record, joined({"0 pin 16 to 0", "100 pin 16 to 1"}, self_test, looks));
    failing_reg = 0x4969;
    EXPECT_EQ(run(mhl_run_bist), "1 0");
}

TEST_F(Bridge, AWriteOfTheSelfTestThatFailsEndsIt)
{
    registers[0x4969] = 0x02;
    for (int i = 1; i <= static_cast<int>(self_test.size()); i++) {
        forget();
        failing_write = i;
        EXPECT_EQ(run(mhl_run_bist), "0 0") << i;
        EXPECT_EQ(record.size(), 2u + static_cast<unsigned>(i) - 1);
    }
}

TEST_F(Bridge, TheDataLine)
{
    registers[0x4D12] = 0x81;
    registers[0x6408] = 0x04;
    registers[0x640B] = 0x01;
    EXPECT_EQ(run(mhl_run_ddc_test), "1 1");
    const list wanted = {"0 pin 16 to 0", "50 pin 16 to 1", "100 39 0D 12",
                         "0 ? 4D 12 81",  "0 4D 12 C1",     "0 /sys/hvt/hvt-hdmi/i2c_a0",
                         "0 ? 64 08 04",  "0 ? 64 0B 01"};
    EXPECT_EQ(record, wanted);
    for (const auto& [reg, wrong] : {std::pair{0x6408, 0xFB}, {0x640B, 0xFE}}) {
        const std::uint8_t right = std::exchange(registers[reg], static_cast<std::uint8_t>(wrong));
        EXPECT_EQ(run(mhl_run_ddc_test), "1 0") << reg;
        registers[reg] = right;
    }
    for (const int reg : {0x4D12, 0x6408, 0x640B}) {
        failing_reg = reg;
        EXPECT_EQ(run(mhl_run_ddc_test), "1 0") << reg;
    }
    failing_reg = 0;
    for (const int which : {1, 2}) {
        failing_write = which;
        EXPECT_EQ(run(mhl_run_ddc_test), "1 0") << which;
    }
}

TEST_F(Bridge, HotPlug)
{
    EXPECT_EQ(run(mhl_run_hpd_test), "1 1");
    EXPECT_EQ(record, (list{"0 pin 16 to 0", "100 pin 16 to 1", "10 4D 20 36"}));
    plug_level = 0;
    EXPECT_EQ(run(mhl_run_hpd_test), "1 0");
    plug_level = PIN_LEVEL_FAILED;
    EXPECT_EQ(run(mhl_run_hpd_test), "1 0");
    failing_write = 1;
    EXPECT_EQ(run(mhl_run_hpd_test), "0 0");
}

TEST_F(Bridge, WithTheKernelsTestsNothingAsksTheChip)
{
    cfg_set_str("sii8334", "use_debugfs", "/debug/");
    EXPECT_EQ(run(mhl_run_bist), "0 0");
    EXPECT_EQ(run(mhl_run_hpd_test), "0 0");
    EXPECT_EQ(run(mhl_run_ddc_test), "1 0");
    EXPECT_EQ(record, (list{"0 /debug/selftest", "0 /debug/hpd", "0 /debug/ddctest"}));
}
