// The charging monitor by voltage and without discharge, as other phones use it. Battery and charger are
// spies; the log is a file of the test's.
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
#include "screen/screen.h"
#include "tmr/tmr.h"
#include "unit/plat_fake.h"
#include "usb/usb.h"

namespace {

std::string log_path;
int mv;
int ma;
std::vector<int> percents; // one a reading; the last one stays
std::string settings;      // of the charger: its modes and currents

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

int give_capacity(int* p_percent, int* p_mv, int* p_ma)
{
    *p_percent = percents.front();
    if (percents.size() > 1)
        percents.erase(percents.begin());
    if (p_mv != nullptr)
        *p_mv = mv;
    if (p_ma != nullptr)
        *p_ma = ma;
    return 1;
}

int charger;

int give_mv(int* p_out)
{
    *p_out = mv;
    return 1;
}

constexpr battery_co battery_spy = {give_mv, nullptr, give_capacity, give<1>, give<25>, nullptr};
constexpr charge_co charge_spy = {[](int mode) {
                                      settings += std::to_string(mode) + " ";
                                      return 1;
                                  },
                                  [](int query, int* p_out) {
                                      *p_out = charger;
                                      return query == CHARGE_GET_TYPE ? 1 : 0;
                                  },
                                  [](std::uint32_t battery_ma, std::uint32_t input_ma) {
                                      settings +=
                                          std::to_string(battery_ma) + "," + std::to_string(input_ma) + " ";
                                      return 1;
                                  },
                                  nullptr, nullptr};
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
        ma = 1000;
        percents = {30};
        charger = CHARGER_WALL;
        settings.clear();
        cfg.tick_period_us = second_us;
        cfg.target_percent = 60;
        cfg.recharge_percent = 58;
        cfg.max_celsius = 80;
        cfg.wall_ma = 1500;
        cfg.capacity_mah = 1000;
        cfg.charge_time_limit_ms = 3'600'000;
        cfg.done_check_period_ms = 10'000;
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

    void use_preset()
    {
        cfg = {};
        cfg.preset = 6;
        cfg.tick_period_us = second_us;
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
    cfg.max_mv = 4100;
    cfg.recharge_mv = 4000;
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
    cfg.max_mv = 4100;
    mv = 4101;
    start();
    ticks(1);
    EXPECT_EQ(log(3), "Voltage (4101 mV) too high for charging.\nEntering done state\n");
    cfg.charge_time_limit_ms = 5'000;
    mv = 4099;
    chargemon_stop();
    start();
    ticks(6);
    EXPECT_EQ(log(10), "Error state: Charging time limit reached.\n");
}

// 30 percent of 1000 mAh are 300; a tick of 1 s at 1000 mA adds 277 uAh, so that the 37th passes 310.
TEST_F(Chargemon, WithoutDischargeTheTargetItselfEndsCharging)
{
    cfg.target_percent = 31;
    cfg.charge_time_limit_ms = 37'000; // the target comes first
    start();
    ticks(37);
    EXPECT_EQ(log(76), "30%, 3700mV, 1000mA, 309mAh/310mAh\nEstimated time left 0h:0m:3s\n");
    ticks(1);
    EXPECT_EQ(log(78), "31%, 3700mV, 1000mA, 310mAh/310mAh\nCharging done.\nEntering done state\n");
}

TEST_F(Chargemon, TheBordersOfThePercents)
{
    struct row {
        std::vector<int> percents;
        unsigned ticks;
        const char* last; // line of the log
    };
    const row rows[] = {
        {{60}, 1, "Starting charging at 1500mA\n"},
        {{61}, 1, "Entering done state\n"},
        {{62}, 1, "Entering done state\n"},
        {{63}, 1, "Entering discharge state\n"},
        {{63, 58}, 122, "Entering done state\n"},
        {{63, 57}, 122, "Starting charging at 1500mA\n"},
        {{62, 58}, 121, "check if capacity keeps higher than recharge_cap.\n"},
        {{62, 57}, 121, "Starting charging at 1500mA\n"},
    };
    use_preset();
    for (const row& r : rows) {
        percents = r.percents;
        start();
        ticks(r.ticks);
        chargemon_stop();
        EXPECT_TRUE(log().ends_with(r.last)) << r.percents.front() << " to " << r.percents.back();
    }
}

TEST_F(Chargemon, OnlyFourBadTicksInARowAreTooMany)
{
    use_preset();
    cfg.simple_ma = 800;
    charger = CHARGER_SIMPLE;
    percents = {40, 30, 35, 30};
    ma = -100;
    start();
    ticks(3);
    // read once to judge, three times for the median
    EXPECT_EQ(log(3), "capacities read: 30%, 30%, 35%\n"
                      "Starting capacity (30%, 714mAh).\n"
                      "Starting charging at 800mA\n"
                      "30%, 3700mV, -100mA, 714mAh/1428mAh\n"
                      "Start charging retry 1\n"
                      "30%, 3700mV, -100mA, 714mAh/1428mAh\n"
                      "Start charging retry 2\n");
    EXPECT_EQ(settings, "2 800,0 0 2 800,0 0 2 800,0 ");
    ma = 0; // neither good nor bad
    ticks(1);
    EXPECT_EQ(log(10), "30%, 3700mV, 0mA, 714mAh/1428mAh\n");
    ma = 1;
    ticks(1);
    ma = -100;
    ticks(3);
    EXPECT_TRUE(log().ends_with("Start charging retry 3\n"));
    ticks(1);
    EXPECT_TRUE(log().ends_with("Error state: Charging did not start.\n"));
}

TEST_F(Chargemon, ATargetThatIsReachedWaitsForTheLeastTime)
{
    use_preset();
    cfg.target_percent = 30;
    cfg.min_charge_time_ms = 5'000;
    start();
    ticks(5);
    EXPECT_TRUE(log().find("discharge") == std::string::npos);
    ticks(1);
    EXPECT_TRUE(log().ends_with("Entering discharge state\n"));
}

TEST_F(Chargemon, ByCapacityThreeHoursAreEnough)
{
    use_preset();
    ma = 0; // the target stays away
    start();
    ticks(10'800); // the first one begins to charge
    EXPECT_TRUE(log().ends_with("30%, 3700mV, 0mA, 714mAh/1428mAh\n"));
    ticks(1);
    EXPECT_TRUE(log().ends_with("Error state: Charging time limit reached.\n"));
}

TEST_F(Chargemon, ThePresetStandsUnderWhatIsGiven)
{
    chargemon_cfg given{};
    given.preset = 6;
    given.target_percent = 70;
    given.recharge_mv = 4000; // which no preset takes
    chargemon_set_cfg(&given);
    EXPECT_EQ(chargemon_get_cfg()->target_percent, 70);
    EXPECT_EQ(chargemon_get_cfg()->recharge_percent, 58);
    EXPECT_EQ(chargemon_get_cfg()->capacity_mah, 2380U);
    EXPECT_EQ(chargemon_get_cfg()->recharge_mv, 0U);
}

} // namespace
