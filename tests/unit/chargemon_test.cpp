// The charging monitor with settings that other phones use: by voltage, without discharging. Battery and
// charger are spies; the log is a file of the test's.
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "autopoff/autopoff.h"
#include "battery/battery.h"
#include "charge/charge.h"
#include "chargemon/chargemon.h"
#include "light/light.h"
#include "plat_fake.h"
#include "screen/screen.h"
#include "tmr/tmr.h"
#include "usb/usb.h"

namespace {

std::string log_path;
int mv, ma, percent, degrees, type, charger;

int (*plain_open)(const char*, int, mode_t);

int open_log(const char* path, int flags, mode_t mode)
{
    return plain_open(std::strcmp(path, "/system/chargemon.txt") == 0 ? log_path.c_str() : path, flags, mode);
}

template <int& value>
int give(int* p_out)
{
    *p_out = value;
    return 1;
}

int give_capacity(int* p_percent, int* p_mv, int* p_ma)
{
    *p_percent = percent;
    if (p_mv != nullptr)
        *p_mv = mv;
    if (p_ma != nullptr)
        *p_ma = ma;
    return 1;
}

int get_mode(int query, int* p_out)
{
    *p_out = charger;
    return query == CHARGE_GET_TYPE;
}

constexpr battery_co battery_spy = {give<mv>, give<ma>, give_capacity, give<type>, give<degrees>, nullptr};
constexpr charge_co charge_spy = {[](int) { return 1; }, get_mode,
                                  [](std::uint32_t, std::uint32_t) { return 1; }, nullptr, nullptr};
constexpr usb_co usb_spy = {nullptr, nullptr, [](int, int*) { return 0; }};

constexpr light_map_row no_lights[] = {{0, 0, 0}};

constexpr std::uint32_t second_us = 1'000'000;

struct Chargemon : testing::Test {
    chargemon_cfg cfg{};

    Chargemon()
    {
        plat_fake_reset();
        log_path = testing::TempDir() + "chargemon_" + std::to_string(getpid());
        unlink(log_path.c_str());
        plain_open = plat_fake_co.open;
        plat_fake_co.open = open_log;
        tmr_init();
        const battery_cfg asked = {0, 0, 0, "x", "x"};
        battery_init();
        battery_set_cfg(&asked);
        battery_cmd_co_attach(&battery_spy);
        charge_co_attach(&charge_spy);
        usb_init();
        usb_co_attach(&usb_spy);
        screen_init();
        screen_callouts no_panel{};
        no_panel.start = [](std::uint32_t) { return 0; };
        screen_register_platform_co(&no_panel);
        light_init();
        light_map_set(no_lights);
        autopoff_init();
        chargemon_init();
        mv = 3700, ma = 1000, percent = 30, degrees = 25, type = 1, charger = CHARGER_WALL;
        cfg.tick_period = second_us;
        cfg.target_cap = 60;
        cfg.recharge_cap = 58;
        cfg.cap_margin_low = 1;
        cfg.cap_margin_high = 2;
        cfg.max_temp = 80;
        cfg.wall_current = 1500;
        cfg.simple_current = 700;
        cfg.capacity = 1000;
        cfg.charge_time_limit = 3'600'000;
        cfg.done_check_period = 10'000;
    }
    ~Chargemon() override
    {
        chargemon_stop();
        unlink(log_path.c_str());
    }

    void start() const
    {
        chargemon_set_cfg(&cfg);
        chargemon_start();
    }

    static void ticks(unsigned count) { plat_fake_advance_us(std::uint64_t{count} * second_us); }

    // The log's lines from number `from` on, each without its time.
    static std::string log(unsigned from = 0)
    {
        std::ifstream file(log_path);
        std::ostringstream text;
        std::string line;
        for (unsigned i = 0; std::getline(file, line); i++)
            if (i >= from)
                text << line.substr(line.find(']') + 2) << "\n";
        return text.str();
    }
};

TEST_F(Chargemon, ByVoltageUntilItIsReachedAndAgainWhenItHasSunk)
{
    cfg.voltage_mode = 1;
    cfg.max_voltage = 4100;
    cfg.recharge_voltage = 4000;
    start();
    ticks(2);
    mv = 4100;
    ticks(1);
    EXPECT_EQ(log(), "-------- New session ---------\n"
                     "USB Wall charger connected.\n"
                     "Charger connected.\n"
                     "Starting voltage (3700mV).\n"
                     "Starting charging at 1500mA\n"
                     "Voltage reached limit, charging done.\n"
                     "Read voltage 4100mV, Max voltage 4100mV\n"
                     "Entering done state\n");
    mv = 4000;
    ticks(10);
    mv = 3999;
    ticks(10);
    EXPECT_EQ(log(8), "4000mV\n4000mV\n4000mV\n4000mV\n4000mV\n4000mV\n4000mV\n4000mV\n4000mV\n4000mV\n"
                      "check if capacity keeps higher than recharge_cap.\n"
                      "3999mV\n3999mV\n3999mV\n3999mV\n3999mV\n3999mV\n3999mV\n3999mV\n3999mV\n3999mV\n"
                      "check if capacity keeps higher than recharge_cap.\n"
                      "Starting voltage (3999mV).\n"
                      "Starting charging at 1500mA\n");
}

TEST_F(Chargemon, ByVoltageItStartsBelowTheLimitAndEndsWithTheTime)
{
    cfg.voltage_mode = 1;
    cfg.max_voltage = 4100;
    cfg.charge_time_limit = 5000;
    mv = 4100;
    start();
    ticks(1);
    EXPECT_EQ(log(3), "Starting voltage (4100mV).\nStarting charging at 1500mA\n");
    mv = 4099;
    ticks(5);
    EXPECT_EQ(log(5), "Error state: Charging time limit reached.\n");

    // a new session, above the limit
    chargemon_stop();
    mv = 4101;
    start();
    ticks(1);
    EXPECT_EQ(log(6), "-------- New session ---------\n"
                      "USB Wall charger connected.\n"
                      "Charger connected.\n"
                      "Voltage (4101 mV) too high for charging.\n"
                      "Entering done state\n");
}

TEST_F(Chargemon, WithoutDischargingItChargesUpToTheTarget)
{
    // 1000 mAh and 3600 mA: 1 mAh a tick, 300 mAh to go
    ma = 3600;
    charger = CHARGER_SIMPLE;
    start();
    ticks(301);
    EXPECT_EQ(log(3 + 3 + 299 * 2),
              "60%, 3700mV, 3600mA, 600mAh/600mAh\nCharging done.\nEntering done state\n");
    charger = CHARGER_NONE;
    ticks(1);
    EXPECT_EQ(plat_fake_shell(), std::vector<std::string>{"reboot -p"});
}

TEST_F(Chargemon, ARetryIsForgottenOnceACurrentFlows)
{
    ma = -1;
    start();
    ticks(3);
    ma = 1;
    ticks(1);
    ma = -1;
    ticks(3);
    EXPECT_EQ(log().find("Error"), std::string::npos);
    EXPECT_NE(log().rfind("Start charging retry 3"), std::string::npos);
    ticks(1);
    EXPECT_NE(log().find("Error state: Charging did not start."), std::string::npos);
}

} // namespace
