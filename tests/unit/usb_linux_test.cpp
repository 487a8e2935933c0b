// USB on the kernel's attribute: events at the start, and the watch of the host power.
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "charge/charge.h"
#include "plat_fake.h"
#include "tmr/tmr.h"
#include "usb/usb.h"
#include "usb_linux/usb_linux.h"

namespace {

struct switching {
    int mode;
    std::uint64_t at_ms; // since the test began
};

std::vector<switching> switchings;
std::uint64_t began_us;

int note_mode(int mode)
{
    switchings.push_back({mode, (plat_fake_now_us() - began_us) / 1000});
    return 1;
}

constexpr charge_co charge_spy = {note_mode, nullptr, nullptr, nullptr, nullptr};

struct UsbLinux : testing::Test {
    std::string path = testing::TempDir() + "usb_state_" + std::to_string(getpid());
    usb_linux_config config = {path.c_str(), "CONFIGURED", "DISCONNECTED", nullptr};

    UsbLinux()
    {
        plat_fake_reset();
        tmr_init();
        charge_co_attach(&charge_spy);
        usb_init();
        usb_linux_init();
        usb_linux_set_cfg(&config);
        switchings.clear();
        began_us = plat_fake_now_us();
    }
    ~UsbLinux() override { unlink(path.c_str()); }

    void state(const char* text) const { std::ofstream(path) << text; }
};

// Every 100 ms while something is connected; then the host power goes for the time asked for, once.
TEST_F(UsbLinux, WatchOfTheHostPower)
{
    state("CONFIGURED");
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, 250), 1);
    plat_fake_advance_us(350'000);
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, 70), 1) << "asked for while it runs: the newest time counts";
    plat_fake_advance_us(100'000);
    EXPECT_TRUE(switchings.empty());
    state("DISCONNECTED");
    plat_fake_advance_us(2'000'000);
    ASSERT_EQ(switchings.size(), 2U);
    EXPECT_EQ(switchings[0].mode, CHARGE_HOST_POWER_ON);
    EXPECT_EQ(switchings[0].at_ms, 500U);
    EXPECT_EQ(switchings[1].mode, CHARGE_HOST_POWER_OFF);
    EXPECT_EQ(switchings[1].at_ms, 570U);
}

TEST_F(UsbLinux, WatchEndsWithoutTheAttribute)
{
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, -1), 1);
    plat_fake_advance_us(100'000);
    state("DISCONNECTED");
    plat_fake_advance_us(2'000'000);
    EXPECT_TRUE(switchings.empty());
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, -1), 1);
    plat_fake_advance_us(100'000);
    ASSERT_EQ(switchings.size(), 2U);
    EXPECT_EQ(switchings[1].at_ms - switchings[0].at_ms, 500U) << "a negative time is the default";
    EXPECT_EQ(usb_set(USB_SET_HOST_POWER_OFF, 0), 1);
    EXPECT_EQ(switchings.back().mode, CHARGE_HOST_POWER_OFF);
    EXPECT_EQ(usb_set(0, 0), 0);
}

} // namespace
