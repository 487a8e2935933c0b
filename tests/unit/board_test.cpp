// Board access that no command reaches in full: I2C by name, GPIO configuration, named converters.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <sstream>
#include <string>
#include <vector>

#include "adc/adc.h"
#include "gpio_linux/gpio_linux.h"
#include "i2c/i2c.h"
#include "plat_fake.h"

namespace {

std::vector<std::string> bus_calls; // what the bus was asked for, one text a call
bool bus_fails;

std::string hex(const std::uint8_t* p, unsigned len)
{
    std::string text;
    char digits[4];
    for (unsigned i = 0; i < len; i++) {
        std::snprintf(digits, sizeof digits, "%02X", p[i]);
        text += digits;
    }
    return text;
}

int fake_ioctl(int, unsigned long request, void* arg)
{
    if (request == I2C_TIMEOUT || request == I2C_RETRIES) {
        bus_calls.push_back((request == I2C_TIMEOUT ? "timeout " : "retries ") +
                            std::to_string(reinterpret_cast<std::uintptr_t>(arg)));
        return 0;
    }
    EXPECT_EQ(request, static_cast<unsigned long>(I2C_RDWR));
    const auto* const p_data = static_cast<const i2c_rdwr_ioctl_data*>(arg);
    std::string text;
    for (unsigned i = 0; i < p_data->nmsgs; i++) {
        const i2c_msg& msg = p_data->msgs[i];
        const bool reads = (msg.flags & I2C_M_RD) != 0;
        if (reads)
            std::memset(msg.buf, 0xC0 + static_cast<int>(i), msg.len);
        text += (i > 0 ? ", " : "") + std::to_string(msg.addr) + (reads ? " r" : " w ") +
                (reads ? std::to_string(msg.len) : hex(msg.buf, msg.len));
    }
    bus_calls.push_back(text);
    errno = ENXIO;
    return bus_fails ? -1 : static_cast<int>(p_data->nmsgs);
}

constexpr i2c_cfg_row chips[] = {{"fixed", 5, 0x18}, {"open", 4, 0}, {"", 0, 0}};

struct I2c : testing::Test {
    void SetUp() override
    {
        plat_fake_reset();
        plat_fake_co.open = [](const char* path, int flags, mode_t) {
            bus_calls.push_back(path);
            return std::strcmp(path, "/dev/i2c-9") == 0 ? -1 : open("/dev/null", flags);
        };
        plat_fake_co.ioctl = fake_ioctl;
        bus_calls.clear();
        bus_fails = false;
        i2c_init();
        i2c_cfg(chips);
    }
};

using texts = std::vector<std::string>;

TEST_F(I2c, ANameGivesBusAndAddressUnlessTheCallerSaysOtherwise)
{
    i2c_handle hnd;
    ASSERT_EQ(i2c_open(&hnd, "fixed", 99, 0), 0);
    EXPECT_EQ(hnd.port, 5);
    EXPECT_EQ(hnd.addr, 0x18);
    EXPECT_EQ(bus_calls, (texts{"/dev/i2c-5", "timeout 2", "retries 1"}));
    i2c_close(&hnd);
    ASSERT_EQ(i2c_open(&hnd, "fixed", 0, 0x19), 0);
    EXPECT_EQ(hnd.addr, 0x19);
    i2c_close(&hnd);
    i2c_close(&hnd); // closes once
    ASSERT_EQ(i2c_open(&hnd, "open", 0, 0x64), 0);
    EXPECT_EQ(hnd.port, 4);
    EXPECT_EQ(hnd.addr, 0x64);
    i2c_close(&hnd);
    bus_calls.clear();
    EXPECT_EQ(i2c_open(&hnd, "none", 5, 0x18), -1);
    EXPECT_EQ(i2c_open(&hnd, nullptr, 256, 0x18), -1);
    EXPECT_EQ(i2c_open(&hnd, nullptr, 5, 0x10000), -1);
    EXPECT_TRUE(bus_calls.empty());
    EXPECT_EQ(i2c_open(&hnd, nullptr, 9, 0x18), -1);
}

TEST_F(I2c, EachOperationIsOneCallOfTheBus)
{
    i2c_handle hnd;
    ASSERT_EQ(i2c_open(&hnd, nullptr, 5, 24), 0);
    bus_calls.clear();
    std::uint8_t buf[3] = {1, 2, 3};
    EXPECT_GE(i2c_write(&hnd, buf, 3), 0);
    EXPECT_GE(i2c_write_reg8(&hnd, 0x38, 0x7F), 0);
    EXPECT_GE(i2c_read(&hnd, buf, 2), 0);
    EXPECT_EQ(buf[1], 0xC0);
    EXPECT_EQ(buf[2], 3);
    EXPECT_GE(i2c_read_reg8(&hnd, 0x02, buf), 0);
    EXPECT_EQ(buf[0], 0xC1);
    EXPECT_GE(i2c_read_regs(&hnd, 0x10, buf, 3), 0);
    EXPECT_EQ(bus_calls, (texts{"24 w 010203", "24 w 387F", "24 r2", "24 w 02, 24 r1", "24 w 10, 24 r3"}));
    bus_fails = true;
    EXPECT_LT(i2c_write_reg8(&hnd, 0x38, 0x7F), 0);
    EXPECT_LT(i2c_read_regs(&hnd, 0x10, buf, 3), 0);
    bus_calls.clear();
    EXPECT_LT(i2c_read(&hnd, buf, 0x10000), 0); // more than a message can say
    EXPECT_TRUE(bus_calls.empty());
    i2c_close(&hnd);
}

std::string gpio_dir;

TEST(GpioLinux, EveryAccessIsOneShortTransferWithTheLinesNode)
{
    plat_fake_reset();
    plat_fake_co.open = [](const char* path, int flags, mode_t) {
        return open((gpio_dir + path).c_str(), flags);
    };
    std::string pattern = testing::TempDir() + "/gpio-XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    gpio_dir = pattern;
    std::filesystem::create_directories(gpio_dir + "/dev");
    const std::string node = gpio_dir + "/dev/gpio558";
    const auto put = [&](const char* text) { std::ofstream(node) << text; };
    const auto get = [&] {
        std::ostringstream text;
        text << std::ifstream(node).rdbuf();
        return text.str();
    };
    put("0");
    EXPECT_EQ(gpio_linux_rd(558), 0);
    put("1xxxxxxxxx");
    EXPECT_EQ(gpio_linux_rd(558), 1);
    EXPECT_EQ(gpio_linux_set(558, 0), 1);
    EXPECT_EQ(get(), "0xxxxxxxxx");
    EXPECT_EQ(gpio_linux_set(558, 2), 1);
    EXPECT_EQ(get(), "0xxxxxxxxx");
    EXPECT_EQ(gpio_linux_dir(558, 1), 1);
    EXPECT_EQ(get(), "Oxxxxxxxxx");
    EXPECT_EQ(gpio_linux_rd(558), 4);
    EXPECT_EQ(gpio_linux_dir(558, 0), 1);
    EXPECT_EQ(gpio_linux_cfg(558, "abcdefghij"), 1);
    EXPECT_EQ(get(), "abcdefghix");
    char buf[7] = "??????";
    EXPECT_EQ(gpio_linux_cfgr(558, buf), 0);
    EXPECT_STREQ(buf, "abcdef");
    put("short");
    EXPECT_EQ(gpio_linux_cfgr(558, buf), 1);
    put("");
    EXPECT_EQ(gpio_linux_rd(558), 5);
    EXPECT_EQ(gpio_linux_rd(3), 5);
    EXPECT_EQ(gpio_linux_set(3, 1), 0);
    EXPECT_EQ(gpio_linux_cfg(3, "abcdefghi"), 0);
    std::filesystem::remove_all(gpio_dir);
}

TEST(Adc, AConverterIsFoundByItsNameUntilTheTableIsFull)
{
    adc_init();
    int value = -1;
    EXPECT_EQ(adc_read("lmu_led_adc-00", 0, &value), 0);
    EXPECT_EQ(adc_read("", 0, &value), 0);
    for (int i = 0; i < 32; i++) {
        adc_rec rec{};
        std::snprintf(rec.name, sizeof rec.name, "converter %d", i);
        rec.fn = [](const char* name, int arg, int* p_val) {
            *p_val = std::atoi(name + std::strlen("converter ")) * 100 + arg;
            return 7;
        };
        EXPECT_EQ(adc_co_add(&rec), 1);
    }
    const adc_rec one_more{"one more", nullptr};
    EXPECT_EQ(adc_co_add(&one_more), 0);
    EXPECT_EQ(adc_read("converter 31", 5, &value), 7);
    EXPECT_EQ(value, 3105);
    EXPECT_EQ(adc_read("one more", 0, &value), 0);
}

} // namespace
