// GPIO configuration, which no command reaches.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "gpio_linux/gpio_linux.h"
#include "plat_fake.h"

namespace {

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

} // namespace
