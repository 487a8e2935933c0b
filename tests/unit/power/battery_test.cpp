// Capacity from the voltage at rest, against values that were interpolated by hand from the cells' tables;
// the settings and slots of `battery`.
#include <gtest/gtest.h>
#include <vector>

#include "battery/battery.h"

namespace {

int measured_mv, measured_ma, known_type;

template <int& value>
int tell(int* p)
{
    *p = value;
    return 1;
}
constexpr battery_co spy = {tell<measured_mv>, tell<measured_ma>, nullptr,
                            tell<known_type>,  nullptr,           nullptr};

struct Battery : testing::Test {
    Battery()
    {
        measured_mv = 3800;
        measured_ma = -1;
        known_type = 1;
        battery_init();
        battery_cmd_co_attach(&spy);
    }

    static void set(std::uint32_t algorithm, std::uint32_t model, std::uint32_t ires)
    {
        const battery_cfg cfg = {algorithm, model, ires, "asked for", nullptr};
        battery_set_cfg(&cfg);
    }

    static int capacity()
    {
        int percent = -1;
        return battery_read_capacity(&percent, nullptr, nullptr) != 0 ? percent : -1;
    }
};

struct at_rest {
    int mv, percent;
};

struct cell_case {
    const char* name;
    std::uint32_t algorithm, model;
    int type;
    std::vector<at_rest> points;
};

// Pairs of each table, points between pairs, both ends and beyond them.
// clang-format off
const cell_case cells[] = {
    { "model 1", 1, 1, 1,
      { { 4728, 100 }, { 4228, 100 }, { 4209, 99 }, { 4172, 99 }, { 4122, 96 }, { 3997, 81 }, { 3873, 63 },
        { 3798,  43 }, { 3761,  28 }, { 3595,  5 }, { 3578,  4 }, { 3411,  2 }, { 3410,  0 }, { 3180,  0 } } },
    { "model 2", 1, 2, 1,
      { { 4793, 100 }, { 4293, 100 }, { 4265, 99 }, { 4211, 99 }, { 4116, 90 }, { 4015, 78 }, { 3916, 65 },
        { 3829,  47 }, { 3803,  41 }, { 3613,  7 }, { 3593,  6 }, { 3415,  2 }, { 3414,  0 }, { 3120,  0 } } },
    { "model 3", 1, 3, 1,
      { { 4832, 100 }, { 4332, 100 }, { 4307, 98 }, { 4258, 95 }, { 4201, 90 }, { 4130, 83 }, { 4049, 75 },
        { 3954,  63 }, { 3782,  30 }, { 3607,  3 }, { 3589,  2 }, { 3489,  1 }, { 3488,  0 }, { 3000,  0 } } },
    { "type 1", 2, 1, 1,
      { { 4671, 100 }, { 4171, 100 }, { 4152, 98 }, { 4114, 95 }, { 4009, 83 }, { 3933, 71 }, { 3863, 59 },
        { 3805,  50 }, { 3771,  33 }, { 3635,  5 }, { 3610,  4 }, { 3408,  1 }, { 3407,  0 }, { 3247,  0 } } },
    { "type 2", 2, 1, 2,
      { { 4661, 100 }, { 4161, 100 }, { 4148, 99 }, { 4124, 98 }, { 4044, 90 }, { 3990, 83 }, { 3933, 75 },
        { 3837,  58 }, { 3787,  47 }, { 3546,  7 }, { 3529,  6 }, { 3404,  2 }, { 3403,  0 }, { 3250,  0 } } },
};
// clang-format on

TEST_F(Battery, CapacityFollowsTheCellsTable)
{
    for (const cell_case& c : cells) {
        set(c.algorithm, c.model, 1); // 1 mA through 1 milliohm: the voltage at rest is the one measured
        known_type = c.type;
        for (const at_rest& p : c.points) {
            measured_mv = p.mv;
            EXPECT_EQ(capacity(), p.percent) << c.name << " at " << p.mv << " mV";
        }
    }
}

TEST_F(Battery, AlgorithmsDifferInTheTypesThatTheyKnow)
{
    set(1, 3, 135);
    known_type = 2;
    EXPECT_EQ(capacity(), -1);
    known_type = 1;
    measured_ma = 0;
    int percent = 7;
    EXPECT_EQ(battery_read_capacity(&percent, nullptr, nullptr), 0);
    EXPECT_EQ(percent, 0);
    set(2, 3, 135);
    known_type = 0;
    EXPECT_EQ(capacity(), -1);
    known_type = 3;
    EXPECT_EQ(capacity(), -1);
}

TEST_F(Battery, ValuesThatAreGivenTakeThePlaceOfTheMeasurement)
{
    set(1, 3, 135);
    int percent = 0;
    // the largest numbers that a line can hold
    int mv = INT32_MAX, ma = INT32_MAX;
    EXPECT_EQ(battery_read_capacity(&percent, &mv, &ma), 1);
    EXPECT_EQ(percent, 100);
    ma = INT32_MIN;
    EXPECT_EQ(battery_read_capacity(&percent, &mv, &ma), 1);
}

} // namespace

TEST_F(Battery, WithoutAPathTypeAndTemperatureAreGivenAndNoDriverIsAsked)
{
    known_type = 2;
    int type = 0;
    EXPECT_EQ(battery_read_type(&type), 1);
    EXPECT_EQ(type, 1);
    int degrees = 0;
    EXPECT_EQ(battery_read_temp(&degrees), 1);
    EXPECT_EQ(degrees, 25);
    set(1, 1, 200);
    EXPECT_EQ(battery_read_type(&type), 1);
    EXPECT_EQ(type, 2);
}
