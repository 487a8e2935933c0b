// Logical pins on a board map and a driver of the test's own.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pin/pin.h"
#include "plat_fake.h"

namespace {

constexpr int LOW = 0;
constexpr int HIGH = 1;

struct drive {
    unsigned pin;
    int op;
    unsigned attr;
    bool operator==(const drive&) const = default;
};

std::vector<drive> drives; // what the driver was asked to set
int level_read;            // what a reading gives
bool driver_fails;
std::uint8_t users[8];
std::vector<std::string> events;

int fake_chg(pin_driver*, unsigned pin, int op, unsigned attr)
{
    if (op >= 2)
        return level_read;
    drives.push_back({pin, op, attr});
    return driver_fails ? -1 : op;
}

int fake_evt(pin_driver*, unsigned pin, int level, unsigned, int on)
{
    events.push_back(std::to_string(pin) + " " + std::to_string(level) + " " + std::to_string(on));
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
    { 0, 5, PIN_DIRECT, LOW,  50, 20 },
    { 0, 6, PIN_DIRECT, HIGH, 60, 0  },
    { PIN_GRP_LAST, 0, 0, 0, 0, 0 },
};
constexpr pin_sub_row off_list[] = {
    { 0, 6, PIN_DIRECT, HIGH, 60, 0 },
    { PIN_GRP_LAST, 0, 0, 0, 0, 0 },
};
constexpr pin_out_row out_map[] = {
    {  10, 0, 1, PIN_DIRECT,   HIGH, 7, nullptr, nullptr },
    {  11, 0, 2, PIN_DIRECT,   LOW,  7, nullptr, nullptr },
    {  12, 0, 3, PIN_CNT_HIGH, HIGH, 7, nullptr, nullptr },
    {  13, 0, 3, PIN_CNT_HIGH, HIGH, 7, nullptr, nullptr }, // shares the rail of 12
    {  14, 0, 4, PIN_CNT_LOW,  LOW,  7, nullptr, nullptr },
    {  15, 0, 1, PIN_DIRECT,   HIGH, 7, on_list, off_list },
    { 166, PIN_GRP_NONE, 0, PIN_DIRECT, HIGH, 7, on_list, nullptr },
    { PIN_OUT_LAST, 0, 0, 0, 0, 0, nullptr, nullptr },
};
constexpr pin_in_row in_map[] = {
    { 0,  0, 9, HIGH, 7 },
    { 1,  0, 9, LOW,  7 },
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
        driver_fails = false;
        level_read = 0;
        std::fill(std::begin(users), std::end(users), std::uint8_t{0});
        pin_init();
        pin_map_set(get_map, 3);
        pin_install(&fake_hnd, 0, &fake_fn, sizeof users);
    }
};

TEST_F(Pin, StatesBecomeLevelsByPolarity)
{
    const int high_active[] = {0, 1, 0, 1};
    const int low_active[] = {0, 1, 1, 0};
    for (int state = PIN_LOW; state <= PIN_ACTIVE; state++) {
        drives.clear();
        EXPECT_NE(pin_out_set(10, state), 0);
        EXPECT_NE(pin_out_set(11, state), 0);
        EXPECT_EQ(drives, (std::vector<drive>{{1, high_active[state], 7}, {2, low_active[state], 7}}));
    }
    driver_fails = true;
    EXPECT_EQ(pin_out_set(10, PIN_ACTIVE), 0);
}

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

TEST_F(Pin, LevelsBecomeStatesByPolarity)
{
    const int wanted[][2] = {{PIN_INACTIVE, PIN_ACTIVE}, {PIN_ACTIVE, PIN_INACTIVE}};
    for (int sig = 0; sig < 2; sig++) {
        for (level_read = 0; level_read < 2; level_read++)
            EXPECT_EQ(pin_in_get(sig), wanted[sig][level_read]);
    }
    for (level_read = PIN_LEVEL_UNKNOWN; level_read <= PIN_LEVEL_FAILED; level_read++) {
        EXPECT_EQ(pin_in_get(0), PIN_UNREADABLE);
        EXPECT_EQ(pin_in_get_lev(0), level_read);
        EXPECT_EQ(pin_out_get(10), level_read);
    }
}

int state_0;
int state_1;

TEST_F(Pin, AnEventReachesEverySignalOfItsPinAsAState)
{
    state_0 = state_1 = -1;
    EXPECT_EQ(pin_evt_req(0, PIN_ACTIVE, [](int state) { state_0 = state; }), nullptr);
    pin_evt_req(1, PIN_ACTIVE, [](int state) { state_1 = state; });
    pin_evt_disp(&fake_hnd, 9, 1);
    EXPECT_EQ(state_0, PIN_ACTIVE);
    EXPECT_EQ(state_1, PIN_INACTIVE);
    pin_evt_disp(&fake_hnd, 8, 0);
    EXPECT_EQ(state_0, PIN_ACTIVE);
    EXPECT_NE(pin_evt_req(0, PIN_ACTIVE, nullptr), nullptr);
    pin_evt_disp(&fake_hnd, 9, 0);
    EXPECT_EQ(state_0, PIN_ACTIVE);
    EXPECT_EQ(state_1, PIN_ACTIVE);
    EXPECT_EQ(events, (std::vector<std::string>{"9 1 1", "9 0 1", "9 1 0"}));
}

using PinDeath = Pin;

TEST_F(PinDeath, ANumberThatCantBeIsAProgrammingFault)
{
    EXPECT_EXIT(pin_out_set(PIN_OUT_LAST, PIN_LOW), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(pin_in_get(PIN_IN_LAST), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(pin_out_set(-1, PIN_LOW), testing::ExitedWithCode(1), "");
    pin_init();
    EXPECT_EXIT(pin_out_set(10, PIN_LOW), testing::ExitedWithCode(1), ""); // no driver
    EXPECT_EQ(pin_out_set(73, PIN_LOW), 0);
}

} // namespace
