// A serial line of the phone: settings, bytes at a speed, readings of an empty line.
#include <gtest/gtest.h>

#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cerrno>
#include <fcntl.h>
#include <string>

#include "board/serial_line.h"
#include "core/control.h"
#include "core/table.h"
#include "phone/clock_once.h"
#include "phone/error_of.h"

namespace {

using namespace phone;

constexpr const char* path = "/dev/ttyTEST";
constexpr nanoseconds ns_per_us = 1000;

std::string sent;  // bytes that have left, each burst behind its end in us from the test's start
nanoseconds start; // of the test

void take(const serial_burst& burst)
{
    sent += std::to_string((burst.end - start) / ns_per_us) + ":" +
            std::string(burst.bytes.begin(), burst.bytes.end()) + " ";
}

constexpr serial_model model = {.sent = take};

struct SerialLine : testing::Test {
    int fd = -1;
    struct termios settings {};

    static void SetUpTestSuite()
    {
        static const bool attached = [] {
            clock_attach_once();
            serial_add(path, &model);
            return true;
        }();
        ASSERT_TRUE(attached);
        control_request("clock hold");
    }
    static void TearDownTestSuite() { control_request("clock run"); }

    void SetUp() override
    {
        fd = phone_co.open(path, O_RDWR | O_NOCTTY | O_NONBLOCK, 0);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(phone_co.ioctl(fd, TCGETS, &settings), 0);
        set(B9600, 0, 0);
        start = clock_now(CLOCK_MONOTONIC);
        sent.clear();
    }
    void TearDown() override { phone_co.close(fd); }

    void set(unsigned speed, unsigned char min, unsigned char time)
    {
        settings.c_cflag = (settings.c_cflag & ~static_cast<unsigned>(CBAUD)) | speed;
        settings.c_cc[VMIN] = min;
        settings.c_cc[VTIME] = time;
        ASSERT_EQ(phone_co.ioctl(fd, TCSETS, &settings), 0);
    }
    bool all_out() const
    {
        int status = -1;
        EXPECT_EQ(phone_co.ioctl(fd, TIOCSERGETLSR, &status), 0);
        return status == 1;
    }
    static void receive(std::string_view text)
    {
        serial_receive(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }
    static void step(int ms) { control_request("clock +" + std::to_string(ms)); }
};

TEST_F(SerialLine, KeepsItsSettingsWhileItIsClosed)
{
    settings.c_iflag = IGNPAR;
    set(B460800, 3, 4);
    phone_co.close(fd);
    fd = phone_co.open(path, O_RDWR | O_NONBLOCK, 0);
    struct termios found {};
    ASSERT_EQ(phone_co.ioctl(fd, TCGETS, &found), 0);
    EXPECT_EQ(std::tuple(found.c_iflag, found.c_cflag & CBAUD, found.c_cc[VMIN], found.c_cc[VTIME]),
              std::tuple(static_cast<unsigned>(IGNPAR), static_cast<unsigned>(B460800), 3, 4));
    EXPECT_EQ(serial_speed(path), 460800);
    EXPECT_EQ(error_of(phone_co.ioctl(fd, 0x1234, nullptr)), ENOTTY);
}

TEST_F(SerialLine, BytesGoOutAtTheSpeedThatWasSetTenBitsAByte)
{
    ASSERT_EQ(phone_co.write(fd, "abcdefghijklmnopqrst", 20), 20); // 20 bytes of 1041.666 us
    ASSERT_EQ(phone_co.write(fd, "XY", 2), 2);                     // right behind them
    EXPECT_FALSE(all_out());
    step(20);
    serial_update(path);
    EXPECT_EQ(sent, "19791:abcdefghijklmnopqrs ") << "what is out at this moment";
    set(B115200, 0, 0); // for what is written from now on
    ASSERT_EQ(phone_co.write(fd, "z", 1), 1);
    step(10);
    EXPECT_EQ(sent, "19791:abcdefghijklmnopqrs 20833:t 22916:XY 23003:z ");
    EXPECT_TRUE(all_out());
}

TEST_F(SerialLine, AFullLineTakesNoMoreAndAnotherWaits)
{
    set(B115200, 0, 0);
    const std::string many(5000, 'm');
    EXPECT_EQ(phone_co.write(fd, many.data(), many.size()), 4096);
    EXPECT_EQ(error_of(phone_co.write(fd, "x", 1)), EAGAIN);
    const int other = phone_co.open(path, O_RDWR, 0);
    const int ms = step_until_done([&] {
        EXPECT_EQ(phone_co.write(other, "tail", 4), 4);
        EXPECT_EQ(phone_co.ioctl(other, TCSBRK, reinterpret_cast<void*>(1)), 0);
    });
    EXPECT_EQ(ms, 355); // 4100 bytes take 355.9 ms
    EXPECT_TRUE(sent.ends_with(":tail "));
    phone_co.close(other);
}

TEST_F(SerialLine, AnEmptyLineReadsAsItsSettingsSay)
{
    char buf[8] = {};
    EXPECT_EQ(phone_co.read(fd, buf, sizeof buf), 0) << "no error with VMIN and VTIME 0";
    set(B9600, 1, 0);
    EXPECT_EQ(error_of(phone_co.read(fd, buf, sizeof buf)), EAGAIN);
    pollfd p{fd, POLLIN, 0};
    EXPECT_EQ(phone_co.poll(&p, 1, 0), 0);
    receive("hello world");
    EXPECT_EQ(phone_co.poll(&p, 1, 0), 1);
    EXPECT_EQ(phone_co.read(fd, buf, 8), 8);
    EXPECT_EQ(std::string(buf, 8), "hello wo");
    EXPECT_EQ(phone_co.read(fd, buf, 8), 3);
    fd_set none;
    FD_ZERO(&none);
    FD_SET(fd, &none);
    timeval at_once{};
    EXPECT_EQ(phone_co.select(fd + 1, &none, nullptr, nullptr, &at_once), 0) << "nothing is left";
    receive("gone");
    EXPECT_EQ(phone_co.ioctl(fd, TCFLSH, reinterpret_cast<void*>(TCIFLUSH)), 0);
    EXPECT_EQ(phone_co.poll(&p, 1, 0), 0);
}

TEST_F(SerialLine, AReadingThatWaitsDoesSoByThePhonesClock)
{
    const int other = phone_co.open(path, O_RDWR, 0);
    char buf[8] = {};
    ssize_t got = -2;
    const auto reading = [&] { got = phone_co.read(other, buf, sizeof buf); };
    set(B9600, 0, 3);
    EXPECT_EQ(step_until_done(reading), 300);
    EXPECT_EQ(got, 0);
    set(B9600, 2, 0);
    const int first = clock_timer_create([] { receive("1"); });
    const int second = clock_timer_create([] { receive("2"); });
    clock_timer_set(first, 40'000'000, 0);
    clock_timer_set(second, 70'000'000, 0);
    EXPECT_EQ(step_until_done(reading), 70);
    EXPECT_EQ(std::string(buf, 2), "12") << "one byte isn't enough";
    EXPECT_EQ(got, 2);
    phone_co.close(other);
}

} // namespace
