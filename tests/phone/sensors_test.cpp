// The sensors' chips by themselves: scales, times, queues, keys and interrupts that no command of the program
// shows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <set>
#include <string>
#include <vector>

#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/control.h"
#include "core/home.h"
#include "core/table.h"
#include "core/watch.h"
#include "phone/bus_steps.h"
#include "phone/clock_once.h"
#include "sensors/ak8963.h"
#include "sensors/apds9930.h"
#include "sensors/bmi055.h"
#include "sensors/motor.h"
#include "sensors/surroundings.h"

namespace {

using namespace phone;

constexpr int accel = 0x18;
constexpr int gyro = 0x68;
constexpr int compass = 0x0C;
constexpr int light = 0x39;

// The clock is held; each test begins with chips that have just got their supply, on a phone that is still.
struct Sensors : testing::Test {
    static std::string dir;

    static void SetUpTestSuite()
    {
        char pattern[] = "/tmp/hvt-sensors-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir = pattern;
        ASSERT_EQ(home_take(dir), "");
        clock_attach_once();
        watch_attach();
        gpio_attach();
        i2c_attach();
        surroundings_attach();
        motor_attach();
        bmi055_attach();
        ak8963_attach();
        apds9930_attach();
        ask("clock hold");
    }
    static void TearDownTestSuite()
    {
        ask("clock run");
        std::filesystem::remove_all(dir);
    }

    void SetUp() override
    {
        for (const char* line : {"tremble off", "pose 0 0 1000", "turn 0 0 0", "magnet 6 12 -60", "light 100",
                                 "near none", "sensor accel good", "sensor gyro good", "sensor compass good"})
            ask(line);
        for (const int addr : {accel, gyro, compass, light})
            i2c_locked([&] { chip_reset(*i2c_chip(5, addr)); });
    }

    static std::string ask(const std::string& line)
    {
        const std::string answer = control_request(line);
        EXPECT_TRUE(answer.ends_with("ok\n")) << line << ": " << answer;
        return answer.substr(0, answer.size() - 3);
    }
    static void wait_us(nanoseconds us) { clock_step(us * 1000); }

    static bool transfer(int addr, std::vector<std::uint8_t> out, std::vector<std::uint8_t>* p_in = nullptr)
    {
        static const int fd = phone_co.open("/dev/i2c-5", O_RDWR, 0);
        const auto at = static_cast<std::uint16_t>(addr);
        i2c_msg messages[2] = {{at, 0, static_cast<std::uint16_t>(out.size()), out.data()}, {}};
        if (p_in != nullptr)
            messages[1] = {at, I2C_M_RD, static_cast<std::uint16_t>(p_in->size()), p_in->data()};
        i2c_rdwr_ioctl_data data{out.empty() ? messages + 1 : messages,
                                 (out.empty() ? 0U : 1U) + (p_in != nullptr ? 1U : 0U)};
        return phone_co.ioctl(fd, I2C_RDWR, &data) > 0;
    }
    static void write(int addr, std::uint8_t reg, std::uint8_t value)
    {
        ASSERT_TRUE(transfer(addr, {reg, value}));
    }
    static std::vector<std::uint8_t> read(int addr, std::uint8_t reg, std::size_t count)
    {
        std::vector<std::uint8_t> bytes(count);
        EXPECT_TRUE(transfer(addr, {reg}, &bytes));
        return bytes;
    }
    static void steps(int addr, const std::string& text)
    {
        bus_steps(
            text, [addr](std::uint8_t reg, std::uint8_t value) { write(addr, reg, value); },
            [addr](std::uint8_t reg) { return read_one(addr, reg); });
    }
    static int read_one(int addr, std::uint8_t reg) { return read(addr, reg, 1)[0]; }
    static int word(int addr, std::uint8_t reg)
    {
        const auto bytes = read(addr, reg, 2);
        return static_cast<std::int16_t>(bytes[0] | bytes[1] << 8);
    }
    static int accel_steps(std::uint8_t reg) { return word(accel, reg) / 16; }
};

std::string Sensors::dir;

TEST_F(Sensors, AccelerationHasTheScaleOfItsRangeAndItsOwnError)
{
    ask("pose 500 -250 1000");
    // -15.625, 15.625 and -39.0625 mg of its own: 484.375, -234.375 and 960.9375
    const int cases[][5] = {{3, 1024, 496, -240, 984},
                            {5, 512, 248, -120, 492},
                            {8, 256, 124, -60, 246},
                            {12, 128, 62, -30, 123}};
    for (const auto& s : cases) {
        write(accel, 0x0F, static_cast<std::uint8_t>(s[0]));
        EXPECT_EQ((std::vector{accel_steps(0x02), accel_steps(0x04), accel_steps(0x06)}),
                  std::vector(s + 2, s + 5))
            << s[1];
    }
    // An offset is 7.8125 mg at any range: 16 and -8 of them
    steps(accel, "38<10 39<F8");
    EXPECT_EQ(accel_steps(0x02), 78) << "609.375 mg";
    EXPECT_EQ(accel_steps(0x04), -38) << "-296.875 mg";
}

TEST_F(Sensors, AHighByteBelongsToTheLowByteThatWasReadBefore)
{
    ask("pose 0 0 500"); // 460.9375 mg: 472 steps, 0x1D80
    EXPECT_EQ(read_one(accel, 0x06), 0x80);
    ask("pose 0 0 1000"); // 984 steps, 0x3D80
    EXPECT_EQ(ask("i2c 5 18 07"), "1D\n");
    EXPECT_EQ(read_one(accel, 0x07), 0x1D);
    EXPECT_EQ(read_one(accel, 0x07), 0x3D);
}

TEST_F(Sensors, TheQueueFillsAtItsBandwidthAndEndsWhenItIsFull)
{
    const nanoseconds periods_us[] = {64000, 32000, 16000, 8000, 4000, 2000, 1000, 500};
    for (std::uint8_t code = 0; code < 8; code++) {
        SCOPED_TRACE(int{code});
        write(accel, 0x10, static_cast<std::uint8_t>(8 + code));
        write(accel, 0x3E, 0x40);
        const auto filled = [](nanoseconds us) {
            wait_us(us);
            return read_one(accel, 0x0E);
        };
        EXPECT_EQ(filled(3 * periods_us[code] - 1), 2);
        EXPECT_EQ(filled(1), 3);
        EXPECT_EQ(filled(29 * periods_us[code]), 32);
        EXPECT_EQ(filled(periods_us[code]), 0x80 + 32);
    }
    write(accel, 0x3E, 0x40);
    EXPECT_EQ(read_one(accel, 0x0E), 0) << "a write empties it";
    wait_us(1000);
    write(accel, 0x3E, 0x00);
    wait_us(1000);
    EXPECT_EQ(read_one(accel, 0x0E), 0);
}

TEST_F(Sensors, TheQueueGivesWholeFramesAndZerosWhenItIsEmpty)
{
    write(accel, 0x10, 15);
    write(accel, 0x3E, 0x40);
    wait_us(1000); // two frames of 0, 0 and 984 steps; -16 and 16 of its own
    const std::vector<std::uint8_t> frame = {0x00, 0xFF, 0x00, 0x01, 0x80, 0x3D};
    std::vector<std::uint8_t> bytes(6);
    ASSERT_TRUE(transfer(accel, {0x3F}, &bytes));
    EXPECT_EQ(bytes, frame);
    EXPECT_EQ(ask("i2c 5 18 3F"), "00\n") << "a look takes nothing";
    EXPECT_EQ(read(accel, 0x3F, 2), (std::vector<std::uint8_t>{0x00, 0xFF}));
    EXPECT_EQ(read_one(accel, 0x0E), 0) << "the rest of a frame goes with it";
    write(accel, 0x3E, 0x40);
    // A message that finds it empty gives zeros and takes 160 us, whatever comes meanwhile.
    std::vector<std::uint8_t> empty(6, 0xAA);
    EXPECT_EQ(step_until_done([&] { transfer(accel, {0x3F}, &empty); }), 0);
    EXPECT_EQ(empty, std::vector<std::uint8_t>(6, 0));
    wait_us(500);
    bytes.assign(6, 0);
    ASSERT_TRUE(transfer(accel, {}, &bytes)) << "the pointer stands still";
    EXPECT_EQ(bytes, frame);
}

TEST_F(Sensors, TheSelfTestMovesAnAxisToItsSideWithin40ms)
{
    write(accel, 0x0F, 8); // 256 steps a g
    const int rest = accel_steps(0x02);
    write(accel, 0x32, 0x15);
    EXPECT_EQ(accel_steps(0x02), rest);
    wait_us(20000);
    EXPECT_EQ(accel_steps(0x02) - rest, 72) << "half of 560 mg, to the nearest step";
    wait_us(20000);
    EXPECT_EQ(accel_steps(0x02) - rest, 143) << "143.36";
    write(accel, 0x32, 0x11);
    wait_us(100000);
    EXPECT_EQ(accel_steps(0x02) - rest, -143);
    EXPECT_EQ(accel_steps(0x04), 4) << "no other axis";
}

TEST_F(Sensors, AfterASoftResetTheHalvesDoNotAcknowledgeForAWhile)
{
    for (const auto& [addr, ms] : {std::pair{accel, 3}, std::pair{gyro, 30}}) {
        write(addr, 0x14, 0xB5);
        EXPECT_EQ(read(addr, 0x00, 1).size(), 1u) << "only the key";
        write(addr, 0x14, 0xB6);
        wait_us(ms * 1000 - 1);
        EXPECT_FALSE(transfer(addr, {0x00}));
        wait_us(1);
        EXPECT_TRUE(transfer(addr, {0x00}));
    }
}

TEST_F(Sensors, AMemoryNeedsItsWholeKey)
{
    steps(accel, "35<AA 00=FA 35<00 35<AA 00=FA 35<AA 00=5A 1A=A0 20=05 35<0A 00=FA");

    const auto unlock = [](std::uint8_t key) {
        for (const std::uint8_t byte : {std::uint8_t{0x0A}, key, key})
            write(gyro, 0x35, byte);
    };
    ask("turn 10 0 0");
    EXPECT_NE(word(gyro, 0x02), 0);
    unlock(0xCA);
    const int control = read_one(gyro, 0x7D);
    write(gyro, 0x7D, static_cast<std::uint8_t>(control | 0x10));
    EXPECT_EQ(word(gyro, 0x02), 0) << "no rates while the processor is off";
    unlock(0x8A);
    wait_us(499999);
    read_one(gyro, 0x40);
    steps(gyro, "40=00"); // not yet
    wait_us(1);
    steps(gyro, "41=00 41=30 7D=00 7D=48"); // a first reading gives nothing
    unlock(0xCA);
    EXPECT_EQ(read_one(gyro, 0x7D), control | 0x10);
    write(gyro, 0x7D, static_cast<std::uint8_t>(control));
    EXPECT_NE(word(gyro, 0x02), 0);
}

TEST_F(Sensors, RatesHaveTheScaleOfTheirRange)
{
    ask("turn 100 0 0");
    // Its own -41 steps of 125 / 2048 are -2.50244 degrees a second: 97.49756 of them
    const int wanted[] = {1599, 3198, 6396, 12792, 25583};
    for (std::uint8_t range = 0; range < 5; range++) {
        write(gyro, 0x0F, range);
        EXPECT_EQ(word(gyro, 0x02), wanted[range]) << int{range};
    }
}

TEST_F(Sensors, ADeskTremblesByAStepOrTwo)
{
    ask("tremble on");
    ask("pose 0 0 1000");
    std::set<int> seen;
    for (int turn = 0; turn < 100; turn++) {
        wait_us(1000);
        seen.insert(accel_steps(0x06));
    }
    EXPECT_EQ(seen, (std::set<int>{982, 983, 984, 985, 986}));
    ask("sensor accel stuck");
    const int stuck = accel_steps(0x06);
    ask("pose 0 0 0");
    wait_us(1000);
    EXPECT_EQ(accel_steps(0x06), stuck);
}

TEST_F(Sensors, TheCompassMeasuresInTwoWidthsAndHidesItsFuses)
{
    EXPECT_EQ(read(compass, 0x10, 3), std::vector<std::uint8_t>(3, 0));
    EXPECT_EQ(ask("i2c 5 0C 10"), "AC\n");
    write(compass, 0x0A, 0x0F);
    EXPECT_EQ(read(compass, 0x10, 3), (std::vector<std::uint8_t>{0xAC, 0xAE, 0xA3}));
    for (const auto& [width, x, y, z] : {std::tuple{0x00, 9, 17, -88}, std::tuple{0x10, 34, 68, -352}}) {
        write(compass, 0x0A, static_cast<std::uint8_t>(width | 1));
        wait_us(7199);
        EXPECT_EQ(read_one(compass, 0x02), 0);
        wait_us(1);
        EXPECT_EQ(read_one(compass, 0x02), 1);
        // 6, 12 and -60 uT by 0.6 or 0.15 and 1.171875, 1.1796875 and 1.13671875
        EXPECT_EQ((std::vector{word(compass, 3), word(compass, 5), word(compass, 7)}),
                  (std::vector{x, y, z}));
        EXPECT_EQ(read_one(compass, 0x02), 0) << "taken";
        EXPECT_EQ(read_one(compass, 0x09), width);
    }
}

TEST_F(Sensors, AnInterruptComesAfterSoManyConversionsOutsideTheThresholds)
{
    const auto line = [] { return gpio_level(74); };
    // proximity: above 500, three in a row; 6 ms each
    steps(light, "8A<F4 8B<01 8C<30 8E<08 8F<20 80<25");
    ask("near 100");
    wait_us(5999);
    EXPECT_EQ(word(light, 0xB8), 0) << "no conversion yet";
    wait_us(1);
    EXPECT_EQ(word(light, 0xB8), 557);
    wait_us(11999);
    EXPECT_EQ(line(), 1);
    wait_us(1);
    EXPECT_EQ(line(), 0);
    EXPECT_EQ(read_one(light, 0x93), 0x22) << "valid, and its interrupt";
    ASSERT_TRUE(transfer(light, {0xE6})); // light's
    EXPECT_EQ(line(), 0);
    ASSERT_TRUE(transfer(light, {0xE5}));
    EXPECT_EQ(line(), 1);
    wait_us(17999);
    EXPECT_EQ(line(), 1);
    ask("near none"); // one within the thresholds, and the count begins anew
    wait_us(6000);
    ask("near 100");
    wait_us(12000);
    EXPECT_EQ(line(), 1);
    wait_us(6000);
    EXPECT_EQ(line(), 0);
    write(light, 0x80, 0x05);
    EXPECT_EQ(line(), 1) << "not enabled";
}

TEST_F(Sensors, LightIsValidAfterAConversionAndItsInterruptSharesTheLine)
{
    // 4 cycles of 2.73 ms; between 10 and 1000, twice in a row
    steps(light, "81<FC 84<0A 86<E8 87<03 8C<02 80<13");
    wait_us(10919);
    EXPECT_EQ(word(light, 0xB4), 0);
    EXPECT_EQ(read_one(light, 0x93), 0x00);
    wait_us(1);
    EXPECT_EQ(word(light, 0xB4), 43) << "100 * 10.92 / 25.48 = 42.9";
    ask("light 1000");
    EXPECT_EQ(word(light, 0xB4), 429) << "at once";
    write(light, 0x8F, 1);
    EXPECT_EQ(word(light, 0xB4), 3429) << "428.57 * 8";
    write(light, 0x8D, 4);
    EXPECT_EQ(word(light, 0xB4), 549) << "* 0.16";
    write(light, 0x8F, 3);
    write(light, 0x8D, 0);
    EXPECT_EQ(word(light, 0xB4), 4095) << "1024 a cycle, less one";
    wait_us(2 * 10920);
    EXPECT_EQ(gpio_level(74), 0);
    EXPECT_EQ(read_one(light, 0x93), 0x11);
    ASSERT_TRUE(transfer(light, {0xE7}));
    EXPECT_EQ(gpio_level(74), 1);
    EXPECT_EQ(word(light, 0xB6), 0) << "no infrared";
}

TEST_F(Sensors, WordsTellWhatIsSetAndRefuseWhatTheyDoNotTake)
{
    ask("pose 12.5 -640 768");
    EXPECT_EQ(ask("pose"), "12.5 -640 768\n");
    EXPECT_EQ(ask("near"), "none\n");
    EXPECT_EQ(ask("sensor"), "accel good\ngyro good\ncompass good\n");
    for (const char* line : {"pose 1 2", "pose 1 2 x", "turn nan 0 0", "magnet 1 2 3 4", "pose 1e7 0 0",
                             "light -1", "light 1 2", "light inf", "near 9", "near 2001", "near far",
                             "tremble maybe", "sensor nose good", "sensor gyro", "sensor gyro dead"})
        EXPECT_TRUE(control_request(line).starts_with("error: ")) << line;
    EXPECT_EQ(ask("pose"), "12.5 -640 768\n");
    // A restart finds the phone as it was left.
    ask("near 80");
    ask("sensor gyro stuck");
    surroundings_start();
    EXPECT_EQ(ask("near"), "80\n");
    EXPECT_EQ(ask("sensor"), "accel good\ngyro stuck\ncompass good\n");
}

} // namespace
