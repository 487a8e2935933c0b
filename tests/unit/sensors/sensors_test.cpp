// Sums of the sensor drivers: checksum, packed offsets, lists of values, and the order in which a gain is
// written.
#include <gtest/gtest.h>

#include <climits>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <string>
#include <utility>
#include <vector>

#include "aclmr_bmi055/aclmr_bmi055.h"
#include "als/als.h"
#include "als_apds_9930/als_apds_9930.h"
#include "gyro_bmi055/gyro_bmi055.h"
#include "i2c/i2c.h"
#include "unit/plat_fake.h"
#include "value_list/value_list.h"

namespace {

TEST(Checksum, HasItsPublishedCheckValue)
{
    const std::string text = "123456789";
    EXPECT_EQ(aclmr_bmi055_crc(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()), 0x4B);
    EXPECT_EQ(aclmr_bmi055_crc(nullptr, 0), 0x00);
    const std::uint8_t zeros[26] = {};
    EXPECT_NE(aclmr_bmi055_crc(zeros, sizeof zeros), 0) << "a dead bus must not look like a memory";
}

// Where each of an axis's twelve bits stands, from the lowest: register and bit.
// clang-format off
constexpr std::pair<int, int> bit_places[3][12] = {
    { {4,2}, {4,3}, {0,6}, {0,7}, {1,0}, {1,1}, {1,2}, {1,3}, {1,4}, {1,5}, {1,6}, {1,7} },
    { {4,1}, {0,3}, {0,4}, {0,5}, {2,0}, {2,1}, {2,2}, {2,3}, {2,4}, {2,5}, {2,6}, {2,7} },
    { {4,0}, {0,0}, {0,1}, {0,2}, {3,0}, {3,1}, {3,2}, {3,3}, {3,4}, {3,5}, {3,6}, {3,7} },
};
// clang-format on

TEST(GyroOffsets, EachBitStandsInItsPlace)
{
    for (int axis = 0; axis < 3; axis++) {
        for (int bit = 0; bit < 12; bit++) {
            const auto [reg, place] = bit_places[axis][bit];
            std::uint8_t bytes[GYRO_BMI055_OFFSET_BYTES] = {};
            bytes[reg] = static_cast<std::uint8_t>(1 << place);
            const int steps = bit == 11 ? -2048 : 1 << bit;
            gyro_offset offset;
            gyro_bmi055_unpack(bytes, offset);
            for (int other = 0; other < 3; other++)
                EXPECT_FLOAT_EQ(offset[other], other == axis ? static_cast<float>(steps / 16.384) : 0)
                    << axis << " " << bit;
            // What is wanted has the other sign; the lowest step of all is out of reach.
            gyro_offset wanted = {0, 0, 0};
            wanted[axis] = static_cast<float>(-steps * 125.0 / 2048);
            std::uint8_t packed[GYRO_BMI055_OFFSET_BYTES];
            gyro_bmi055_pack(wanted, packed);
            if (bit != 11) {
                EXPECT_EQ(std::vector(packed, packed + 5), std::vector(bytes, bytes + 5))
                    << axis << " " << bit;
            }
        }
    }
}

TEST(GyroOffsets, ComeBackWithTheirSignChangedToWithinAStep)
{
    for (float dps = -124; dps <= 124; dps += 0.37F) {
        const gyro_offset wanted = {dps, -dps, dps / 3};
        std::uint8_t bytes[GYRO_BMI055_OFFSET_BYTES];
        gyro_offset offset;
        gyro_bmi055_pack(wanted, bytes);
        gyro_bmi055_unpack(bytes, offset);
        for (int axis = 0; axis < 3; axis++)
            EXPECT_NEAR(offset[axis], -wanted[axis], 0.061) << dps;
    }
}

value_list cut(std::string& text)
{
    value_list list;
    value_list_cut(&list, text.data());
    return list;
}

TEST(ValueList, TakesExactlySoManyNumbers)
{
    struct row {
        const char* text;
        bool three_floats, three_ints;
    };
    const row rows[] = {
        {"1,2,3", true, true},     {" 1 ,, 2,3,", true, true},  {"-1.5,+2,.5", true, false},
        {"1x,2y,3z", true, true},  {"1e30,inf,0", true, false}, {"1,2", false, false},
        {"1,2,3,4", false, false}, {"1,nan,3", false, false},   {"1,x,3", false, false},
        {"", false, false},        {" , ,", false, false},
    };
    for (const row& r : rows) {
        std::string text = r.text;
        const value_list list = cut(text);
        float floats[3];
        int ints[3];
        EXPECT_EQ(value_list_floats(&list, floats, 3), r.three_floats) << r.text;
        EXPECT_EQ(value_list_ints(&list, ints, 3), r.three_ints) << r.text;
    }
    value_list list;
    value_list_cut(&list, nullptr);
    EXPECT_EQ(list.count, 0);
    float first;
    EXPECT_FALSE(value_list_float(&list, 0, &first));
}

TEST(ValueList, KeepsToItsTypesAndToItsRoom)
{
    std::string text = "99999999999999999999,-99999999999999999999,2147483648";
    const value_list list = cut(text);
    int ints[3];
    ASSERT_TRUE(value_list_ints(&list, ints, 3));
    EXPECT_EQ(std::tuple(ints[0], ints[1], ints[2]), std::tuple(INT_MAX, INT_MIN, INT_MAX));
    std::string many;
    for (int i = 0; i < 2000; i++)
        many += "7,";
    EXPECT_EQ(cut(many).count, VALUE_LIST_MAX);
}

// A bus that keeps what is written, and reads `gain` from register 0x8F.
struct light_bus {
    std::vector<std::pair<int, int>> writes;
    std::uint8_t gain;
};
light_bus bus;

int light_ioctl(int, unsigned long request, void* arg)
{
    if (request != I2C_RDWR)
        return 0;
    const auto& data = *static_cast<i2c_rdwr_ioctl_data*>(arg);
    if (data.nmsgs == 1 && data.msgs[0].len == 2)
        bus.writes.emplace_back(data.msgs[0].buf[0], data.msgs[0].buf[1]);
    else if (data.nmsgs == 2)
        data.msgs[1].buf[0] = bus.gain;
    return static_cast<int>(data.nmsgs);
}

TEST(LightGain, IsWrittenFirstWhereItWasHighAndLastWhereItWasLow)
{
    constexpr i2c_cfg_row chips[] = {{"apds_9930-als", 5, 0x39}, {"", 0, 0}};
    plat_fake_reset();
    plat_fake_co.open = [](const char*, int, mode_t) { return 1000; };
    plat_fake_co.close = [](int) { return 0; };
    plat_fake_co.ioctl = light_ioctl;
    i2c_cfg(chips);
    als_apds_9930_init();
    EXPECT_EQ(als_set_resistor(15, 1, 0), 0) << "not started";
    ASSERT_EQ(als_start(), 1);
    using writes = std::vector<std::pair<int, int>>;
    for (const int old : {0, 1, 2, 3}) {
        bus = {{}, static_cast<std::uint8_t>(old)};
        ASSERT_EQ(als_set_resistor(15, 2, 0), 1);
        EXPECT_EQ(bus.writes, old >= 2 ? (writes{{0x8F, 1}, {0x8D, 4}}) : (writes{{0x8D, 4}, {0x8F, 1}}))
            << old;
    }
    bus = {};
    EXPECT_EQ(als_set_resistor(15, 6, 0), 0);
    EXPECT_EQ(als_set_resistor(14, 1, 0), 0);
    EXPECT_EQ(bus.writes, writes{});
    EXPECT_EQ(als_stop(), 1);
}

} // namespace
