// The charging monitor by voltage and without discharge, as other phones use it. Battery and charger are
// spies; the log is a file of the test's.
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>

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
int mv;

int (*plain_open)(const char*, int, mode_t);

int open_log(const char* path, int flags, mode_t mode)
{
    return plain_open(std::strcmp(path, "/system/chargemon.txt") == 0 ? log_path.c_str() : path, flags, mode);
}

template <int value>
int give(int* p_out)
{
    *p_out = value;
    return 1;
}

int give_mv(int* p_out)
{
    *p_out = mv;
    return 1;
}

int give_capacity(int* p_percent, int* p_mv, int* p_ma)
{
    *p_percent = 30;
    if (p_mv != nullptr)
        *p_mv = mv;
    if (p_ma != nullptr)
        *p_ma = 1000;
    return 1;
}

int get_mode(int query, int* p_out)
{
    *p_out = CHARGER_WALL;
    return query == CHARGE_GET_TYPE;
}

constexpr battery_co battery_spy = {give_mv, give<1000>, give_capacity, give<1>, give<25>, nullptr};
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
        mv = 3700;
        cfg.tick_period = second_us;
        cfg.target_cap = 60;
        cfg.recharge_cap = 58;
        cfg.max_temp = 80;
        cfg.wall_current = 1500;
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

TEST_F(Chargemon, ByVoltageNotFromAboveAndNotForTooLong)
{
    cfg.voltage_mode = 1;
    cfg.max_voltage = 4100;
    mv = 4101;
    start();
    ticks(1);
    EXPECT_EQ(log(3), "Voltage (4101 mV) too high for charging.\nEntering done state\n");
    cfg.charge_time_limit = 5'000;
    mv = 4099;
    chargemon_stop();
    start();
    ticks(6);
    EXPECT_EQ(log(10), "Error state: Charging time limit reached.\n");
}

// 30 percent of 1000 mAh are 300; a tick of 1 s at 1000 mA adds 277 uAh, so that the 37th passes 310.
TEST_F(Chargemon, WithoutDischargeTheTargetItselfEndsCharging)
{
    cfg.target_cap = 31;
    cfg.charge_time_limit = 37'000; // the target comes first
    start();
    ticks(37);
    EXPECT_EQ(log(76), "30%, 3700mV, 1000mA, 309mAh/310mAh\nEstimated time left 0h:0m:3s\n");
    ticks(1);
    EXPECT_EQ(log(78), "31%, 3700mV, 1000mA, 310mAh/310mAh\nCharging done.\nEntering done state\n");
}

TEST_F(Chargemon, ThePresetStandsUnderWhatIsGiven)
{
    chargemon_cfg given{};
    given.preset = 6;
    given.target_cap = 70;
    given.recharge_voltage = 4000; // which no preset takes
    chargemon_set_cfg(&given);
    EXPECT_EQ(chargemon_get_cfg()->target_cap, 70);
    EXPECT_EQ(chargemon_get_cfg()->recharge_cap, 58);
    EXPECT_EQ(chargemon_get_cfg()->capacity, 2380U);
    EXPECT_EQ(chargemon_get_cfg()->recharge_voltage, 0U);
}

} // namespace
