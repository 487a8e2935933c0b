// What a chip can do beside keeping its registers: notice its supply, own timers, show another register map,
// take its time, and be looked at from outside; and a line that moves with time.
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <linux/i2c-dev.h>
#include <linux/i2c.h>
#include <string>
#include <thread>
#include <vector>

#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "core/control.h"
#include "core/table.h"
#include "phone/bus_steps.h"
#include "phone/clock_once.h"
#include "phone/error_of.h"

namespace {

using namespace phone;

constexpr int bus = 5;
constexpr int addr = 0x7A;
constexpr nanoseconds ns_per_ms = 1'000'000;

std::vector<std::string> told; // by the chip, in order
int queued;                    // what its queue holds

void key_written(chip& c, std::uint8_t written)
{
    chip_show(c, written == 0xAA ? 1 : written == 0xCA ? 2 : 0);
}

// clang-format off
constexpr reg_row regs[] = {
    { 0x00, 0x42, 0x00 },
    { 0x01, 0x00, 0x00, [](chip& c) { c.val[1] = static_cast<std::uint8_t>(queued); }, nullptr,
                        [](chip& c) { if (queued > 0) queued--; else c.takes = 5 * ns_per_ms; } },
    { 0x02, 0x11, 0x0F },
    { 0x03, 0x00, 0x00, nullptr, key_written },
};
constexpr reg_row memory[] = {{ 0x00, 0xE1, 0x00 }, { 0x02, 0xE2, 0x00 }};
constexpr reg_row control[] = {{ 0x02, 0x30, 0xFF }, { 0x7D, 0x01, 0xFF }};
// clang-format on
constexpr std::span<const reg_row> overlays[] = {memory, control};
constexpr supply_line supply[] = {{20, 1}, {21, 0}};

constinit const chip_model probe = {
    .name = "probe",
    .bus = bus,
    .addr = addr,
    .regs = regs,
    .overlays = overlays,
    .supply = supply,
    .supply_changed = [](chip&, bool on) { told.emplace_back(on ? "on" : "off"); },
    .silent = [](const chip& c) { return c.val[2] == 0x1F; },
    .reset = [](chip&) { told.emplace_back("reset"); },
    .timer =
        [](chip&, int which) {
            told.push_back(std::to_string(which) + " at " +
                           std::to_string(clock_now(CLOCK_MONOTONIC) / ns_per_ms));
        }};

std::atomic<int> live_level;
int heard_level = -1;

struct ChipLife : testing::Test {
    static void SetUpTestSuite()
    {
        static const bool attached = [] {
            clock_attach_once();
            gpio_attach();
            i2c_attach();
            gpio_drive(20, 1);
            i2c_put(&probe);
            gpio_live(22, [](unsigned line) { gpio_drive(line, live_level); });
            gpio_listen(22, [](unsigned, int level) { heard_level = level; });
            return true;
        }();
        ASSERT_TRUE(attached);
        ask("clock hold");
    }
    static void TearDownTestSuite() { ask("clock run"); }

    void SetUp() override
    {
        chip_reset(the_chip());
        told.clear();
        queued = 0;
    }

    static chip& the_chip() { return *i2c_chip(bus, addr); }
    static std::string ask(std::string_view line) { return control_request(line); }

    static int message(std::uint16_t flags, std::uint16_t size, std::uint8_t* p)
    {
        static const int fd = phone_co.open("/dev/i2c-5", O_RDWR, 0);
        i2c_msg msg{addr, flags, size, p};
        i2c_rdwr_ioctl_data data{&msg, 1};
        return phone_co.ioctl(fd, I2C_RDWR, &data);
    }
    static int write(std::uint8_t reg, std::uint8_t value)
    {
        std::uint8_t bytes[] = {reg, value};
        return message(0, 2, bytes);
    }
    static void steps(const std::string& text)
    {
        bus_steps(
            text, [](std::uint8_t reg, std::uint8_t value) { EXPECT_EQ(write(reg, value), 1); }, read);
    }
    // The register as the bus reads it; -1 without an acknowledge.
    static int read(std::uint8_t reg)
    {
        std::uint8_t value = 0;
        return message(0, 1, &reg) == 1 && message(I2C_M_RD, 1, &value) == 1 ? value : -1;
    }
};

TEST_F(ChipLife, ItsSupplyIsNoticedBetweenTwoMessages)
{
    steps("02<05 02=15");
    gpio_drive(21, 1);
    EXPECT_EQ(error_of(read(0x00)), ENXIO);
    EXPECT_EQ(ask("i2c 5 7A 02"), "15\nok\n") << "kept until the supply comes back";
    gpio_drive(20, 0); // the second line of a supply that is gone already
    gpio_drive(20, 1);
    EXPECT_EQ(told, (std::vector<std::string>{"off"}));
    gpio_drive(21, 0);
    EXPECT_EQ(told, (std::vector<std::string>{"off", "reset", "on"}));
    EXPECT_EQ(read(0x02), 0x11);
    ask("gpio 20 0");
    ask("gpio 20 free");
    EXPECT_EQ(told, (std::vector<std::string>{"off", "reset", "on", "off", "reset", "on"}));
    ASSERT_EQ(write(0x02, 0x0F), 1);
    EXPECT_EQ(read(0x00), -1) << "with its supply, but silent";
}

TEST_F(ChipLife, ItsTimersComeInTimeAndNotWhenTheyWereStopped)
{
    const nanoseconds start = clock_now(CLOCK_MONOTONIC) / ns_per_ms;
    const auto at = [&](int which, int ms) {
        return std::to_string(which) + " at " + std::to_string(start + ms);
    };
    i2c_locked([] {
        chip_timer_set(the_chip(), 0, 10 * ns_per_ms);
        chip_timer_set(the_chip(), 1, 20 * ns_per_ms);
        chip_timer_set(the_chip(), 2, 5 * ns_per_ms);
        chip_timer_set(the_chip(), 2, 30 * ns_per_ms);
        chip_timer_set(the_chip(), 3, 15 * ns_per_ms);
        chip_timer_stop(the_chip(), 3);
    });
    ask("clock +29");
    EXPECT_EQ(told, (std::vector<std::string>{at(0, 10), at(1, 20)}));
    i2c_locked([] { chip_reset(the_chip()); });
    ask("clock +100");
    EXPECT_EQ(told.back(), "reset") << "a reset stops them";
}

TEST_F(ChipLife, AKeyLaysAnotherRegisterMapOverItsOwn)
{
    queued = 3;
    steps("03<AA 00=E1 02<00 02=E2 01=3"); // what the map lacks stays
    steps("03<CA 00=42 7D<77 02<99");
    EXPECT_EQ(ask("i2c 5 7A 2"), "99\nok\n");
    steps("03<0A 02=11 03<CA 7D=77 03<AA 00=E1");
    chip_reset(the_chip());
    steps("00=42 03<CA 7D=01");
}

TEST_F(ChipLife, ALookPastTheBusIsUpToDateAndChangesNothing)
{
    queued = 2;
    EXPECT_EQ(ask("i2c 5 7A 1"), "02\nok\n");
    EXPECT_EQ(ask("i2c 5 7A 1"), "02\nok\n");
    EXPECT_EQ(read(0x01), 2);
    EXPECT_EQ(ask("i2c 5 7A 1"), "01\nok\n");
    EXPECT_EQ(ask("i2c 5 7A 1 5"), "error: register 1 shows what is true, and can't be set\n");
    EXPECT_EQ(ask("i2c 5 7A 2 C3"), "ok\n");
    EXPECT_EQ(read(0x02), 0xC3);
}

TEST_F(ChipLife, AReadingThatTakesItsTimeLeavesTheBusFree)
{
    std::atomic<bool> reads = false;
    std::thread other([&] {
        while (!reads)
            std::this_thread::yield();
        EXPECT_EQ(read(0x00), 0x42); // with the clock held, as long as the test doesn't move it
        reads = false;
    });
    const int ms = step_until_done([&] {
        reads = true;
        while (reads)
            std::this_thread::yield();
        EXPECT_EQ(read(0x01), 0);
    });
    EXPECT_EQ(ms, 5);
    other.join();
}

TEST_F(ChipLife, ALineThatMovesWithTimeIsReadAsItIsNow)
{
    const int fd = phone_co.open("/dev/gpio22", O_RDWR, 0);
    char text[6] = {};
    live_level = 1;
    EXPECT_EQ(ask("gpio 22"), "1\nok\n");
    EXPECT_EQ(heard_level, 1);
    live_level = 0;
    ASSERT_EQ(phone_co.read(fd, text, sizeof text), 6);
    EXPECT_EQ(text[0], '0');
    live_level = 1;
    EXPECT_EQ(gpio_level(22), 1);
    ask("gpio 22 0");
    EXPECT_EQ(gpio_level(22), 0) << "the bench has the last word";
    ask("gpio 22 free");
    phone_co.close(fd);
}

} // namespace
