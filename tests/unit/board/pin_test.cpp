// Logical pins on a board map and a driver of the test's own.
#include <gtest/gtest.h>

#include <vector>

#include "pin/pin.h"
#include "unit/plat_fake.h"

namespace {

constexpr int level_low = 0;
constexpr int level_high = 1;

struct drive {
    unsigned pin;
    int op;
    unsigned attr;
    bool operator==(const drive&) const = default;
};

std::vector<drive> drives; // what the driver was asked to set
std::vector<drive> events; // which reports it was asked for: op is the level, 10 more to end them
int line;                  // the level that it reads
std::uint8_t users[8];

int fake_chg(pin_driver*, unsigned pin, int op, unsigned attr)
{
    if (op > level_high)
        return pin == 21 && attr == 9 ? line : PIN_LEVEL_FAILED;
    drives.push_back({pin, op, attr});
    return op;
}

int fake_evt(pin_driver*, unsigned pin, int level, unsigned attr, int on)
{
    events.push_back({pin, on != 0 ? level : level + 10, attr});
    return 1;
}

std::uint8_t* fake_res(pin_driver*)
{
    return users;
}

constexpr pin_fn fake_fn = {fake_chg, fake_evt, fake_res};
pin_driver fake_hnd;

// clang-format off
constexpr pin_sub_row on_list[] = {
    { 0, 5, PIN_DIRECT, level_low,  50, 20 },
    { 0, 6, PIN_DIRECT, level_high, 60, 0  },
    { PIN_GRP_LAST, 0, 0, 0, 0, 0 },
};
constexpr pin_sub_row off_list[] = {
    { 0, 6, PIN_DIRECT, level_high, 60, 0 },
    { PIN_GRP_LAST, 0, 0, 0, 0, 0 },
};
constexpr pin_out_row out_map[] = {
    {  12, 0, 3, PIN_CNT_HIGH, level_high, 7, nullptr, nullptr },
    {  13, 0, 3, PIN_CNT_HIGH, level_high, 7, nullptr, nullptr }, // shares the rail of 12
    {  14, 0, 4, PIN_CNT_LOW,  level_low,  7, nullptr, nullptr },
    {  15, 0, 1, PIN_DIRECT,   level_high, 7, on_list, off_list },
    { 166, PIN_GRP_NONE, 0, PIN_DIRECT, level_high, 7, on_list, nullptr },
    { PIN_OUT_LAST, 0, 0, 0, 0, 0, nullptr, nullptr },
};
constexpr pin_in_row in_map[] = {
    {  0, 0, 21, level_low,  9 },
    { 70, 0, 21, level_high, 9 },
    { 40, 3, 21, level_high, 9 }, // a group without a driver
    { PIN_IN_LAST, 0, 0, 0, 0 },
};
// clang-format on

constexpr pin_tab tab = {"test", in_map, out_map};
constexpr pin_map_co map_co = {[] { return &tab; }};

const pin_map_co* get_map(std::uint8_t)
{
    return &map_co;
}

struct Pin : testing::Test {
    void SetUp() override
    {
        plat_fake_reset();
        drives.clear();
        events.clear();
        std::fill(std::begin(users), std::end(users), std::uint8_t{0});
        pin_init();
        pin_map_set(get_map, 3);
        pin_install(&fake_hnd, 0, &fake_fn, sizeof users);
    }
};

TEST_F(Pin, ASharedRailIsSwitchedByTheFirstAndTheLast)
{
    EXPECT_NE(pin_out_set(12, PIN_ACTIVE), 0);
    EXPECT_EQ(pin_out_set(13, PIN_ACTIVE), 0);
    EXPECT_EQ(drives, (std::vector<drive>{{3, 1, 7}}));
    EXPECT_EQ(pin_out_set(12, PIN_INACTIVE), 0);
    EXPECT_EQ(drives.size(), 1u);
    EXPECT_NE(pin_out_set(13, PIN_INACTIVE), 0);
    EXPECT_EQ(drives, (std::vector<drive>{{3, 1, 7}, {3, 0, 7}}));
    // Counting on low: two users of the inactive state, whatever its level.
    drives.clear();
    EXPECT_NE(pin_out_set(14, PIN_INACTIVE), 0);
    EXPECT_EQ(pin_out_set(14, PIN_LOW), 0);
    EXPECT_EQ(pin_out_set(14, PIN_ACTIVE), 0);
    EXPECT_NE(pin_out_set(14, PIN_ACTIVE), 0);
    EXPECT_EQ(drives, (std::vector<drive>{{4, 1, 7}, {4, 0, 7}}));
}

TEST_F(Pin, ASubListFollowsTheMainPinWithItsOwnPolarityAndPause)
{
    const std::uint64_t before = plat_fake_now_us();
    EXPECT_NE(pin_out_set(15, PIN_ACTIVE), 0);
    EXPECT_EQ(drives, (std::vector<drive>{{1, 1, 7}, {5, 0, 50}, {6, 1, 60}}));
    EXPECT_EQ(plat_fake_now_us() - before, 20'000u);
    drives.clear();
    EXPECT_NE(pin_out_set(15, PIN_INACTIVE), 0);
    EXPECT_EQ(drives, (std::vector<drive>{{1, 0, 7}, {6, 0, 60}}));
    // A signal without a pin of its own still runs its list.
    drives.clear();
    EXPECT_NE(pin_out_set(166, PIN_HIGH), 0);
    EXPECT_EQ(drives, (std::vector<drive>{{5, 1, 50}, {6, 1, 60}}));
}

TEST_F(Pin, AnInputIsReadByItsPolarity)
{
    struct row {
        int level, active_low, active_high;
    };
    for (const row& r : {row{0, PIN_ACTIVE, PIN_INACTIVE}, row{1, PIN_INACTIVE, PIN_ACTIVE},
                         row{PIN_LEVEL_UNKNOWN, PIN_UNREADABLE, PIN_UNREADABLE},
                         row{PIN_LEVEL_FAILED, PIN_UNREADABLE, PIN_UNREADABLE}}) {
        line = r.level;
        EXPECT_EQ(pin_in_get(0), r.active_low) << r.level;
        EXPECT_EQ(pin_in_get(70), r.active_high) << r.level;
        EXPECT_EQ(pin_in_get_lev(70), r.level);
    }
    line = level_high;
    EXPECT_EQ(pin_in_get(1), PIN_UNREADABLE) << "the board lacks it";
    EXPECT_EQ(pin_in_get(40), PIN_UNREADABLE) << "nobody drives it";
    EXPECT_EQ(pin_in_active(70), 1);
    EXPECT_EQ(pin_in_active(1), 0);
    EXPECT_EQ(drives, std::vector<drive>{});
}

TEST_F(Pin, AReportReachesEachInputOfItsPinByItsPolarity)
{
    static std::vector<int> told;
    told.clear();
    const pin_evt_cb low = [](int state) { told.push_back(state); };
    const pin_evt_cb high = [](int state) { told.push_back(10 + state); };
    EXPECT_EQ(pin_evt_req(0, PIN_ACTIVE, low), nullptr);
    EXPECT_EQ(pin_evt_req(70, PIN_ACTIVE, high), nullptr);
    EXPECT_EQ(pin_evt_req(40, PIN_ACTIVE, high), nullptr);
    pin_evt_disp(&fake_hnd, 21, level_low);
    pin_evt_disp(&fake_hnd, 22, level_low);
    EXPECT_EQ(told, (std::vector<int>{PIN_ACTIVE, 10 + PIN_INACTIVE}));
    EXPECT_EQ(pin_evt_req(0, PIN_ACTIVE, nullptr), low);
    pin_evt_disp(&fake_hnd, 21, level_high);
    EXPECT_EQ(told, (std::vector<int>{PIN_ACTIVE, 10 + PIN_INACTIVE, 10 + PIN_ACTIVE}));
    EXPECT_EQ(events, (std::vector<drive>{{21, level_low, 9}, {21, level_high, 9}, {21, level_low + 10, 9}}));
}

} // namespace
