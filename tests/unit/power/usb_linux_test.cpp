// USB on the kernel's attribute: events at the start, and the watch of the host power.
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "charge/charge.h"
#include "tmr/tmr.h"
#include "unit/plat_fake.h"
#include "usb/usb.h"
#include "usb_linux/usb_linux.h"

namespace {

std::string switchings; // each mode with the ms since the test began
std::uint64_t began_us;

std::string switching(int mode, std::uint64_t at_ms)
{
    return std::to_string(mode) + "@" + std::to_string(at_ms) + " ";
}

int note_mode(int mode)
{
    switchings += switching(mode, (plat_fake_now_us() - began_us) / 1000);
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
    EXPECT_EQ(switchings, "");
    state("DISCONNECTED");
    plat_fake_advance_us(2'000'000);
    EXPECT_EQ(switchings, switching(CHARGE_HOST_POWER_ON, 500) + switching(CHARGE_HOST_POWER_OFF, 570));
    switchings.clear();
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, 7'200'000), 1); // two hours
    plat_fake_advance_us(100'000);
    EXPECT_EQ(switchings,
              switching(CHARGE_HOST_POWER_ON, 2550) + switching(CHARGE_HOST_POWER_OFF, 7'202'550));
}

TEST_F(UsbLinux, WatchEndsWithoutTheAttribute)
{
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, -1), 1);
    plat_fake_advance_us(100'000);
    state("DISCONNECTED");
    plat_fake_advance_us(2'000'000);
    EXPECT_EQ(switchings, "");
    EXPECT_EQ(usb_set(USB_SET_VBUS_WATCH, -1), 1); // a negative time is the default, 500 ms
    plat_fake_advance_us(100'000);
    EXPECT_EQ(switchings, switching(CHARGE_HOST_POWER_ON, 2200) + switching(CHARGE_HOST_POWER_OFF, 2700));
    switchings.clear();
    EXPECT_EQ(usb_set(USB_SET_HOST_POWER_OFF, 0), 1);
    EXPECT_EQ(switchings, switching(CHARGE_HOST_POWER_OFF, 2200)); // the test's clock leaves the 500 ms out
    EXPECT_EQ(usb_set(0, 0), 0);
}

} // namespace
