// Input that must not hurt. After each assault the next good line is answered right.
#include <cstdio>
#include <gtest/gtest.h>

#include <string>
#include <unistd.h>

#include "client/port_client.h"
#include "runner/phone_fixture.h"
#include "runner/transcript.h"

namespace {

constexpr int send_ms = 30'000;

struct Input : testing::Test {
    phone_fixture phone;
    std::string answer;

    void SetUp() override { ASSERT_EQ(phone.up(), ""); }

    // What the phone says to `bytes` until its loop waits again.
    std::string exchange(const std::string& bytes)
    {
        std::string got;
        EXPECT_TRUE(port_send(phone.port, bytes, got, send_ms));
        EXPECT_TRUE(phone.ask("idle", answer)) << answer;
        port_take(phone.port, got);
        return got;
    }

    void expect_alive()
    {
        // An empty line first: what a broken line has left behind ends here.
        exchange("\r");
        EXPECT_EQ(shown(exchange("case?\r")), shown("CASE:false,OK\r\n"));
    }

    void TearDown() override { EXPECT_EQ(phone.down(), ""); }
};

TEST_F(Input, LinesOfAnyLength)
{
    // 32767 bytes and the line end fill the buffer. Each full buffer of 32768 bytes is a line; the rest is
    // another.
    for (const std::size_t size :
         {1, 2, 255, 256, 257, 4095, 4096, 32766, 32767, 32768, 32769, 65536, 100'000}) {
        std::string wanted;
        for (std::size_t i = 0; i < size / 32768; i++)
            wanted += "NOT FOUND\r\n";
        wanted += size % 32768 == 0 ? "\r\n" : "NOT FOUND\r\n";
        EXPECT_EQ(shown(exchange(std::string(size, 'a') + "\r")), shown(wanted)) << size;
    }
    expect_alive();
}

TEST_F(Input, EveryByteValueInEveryPlace)
{
    for (int byte = 0; byte < 256; byte++) {
        const char c = static_cast<char>(byte);
        for (const std::string& line : {std::string(1, c), "case?" + std::string(3, c),
                                        std::string("s3=") + c, std::string("help=\"") + c + "\"," + c})
            exchange(line + "\r");
        if (c != '\r' && c != '\n')
            exchange("\r");
    }
    // Some of these have set the terminators; put them back before the check.
    exchange("s3=2c,d\r");
    exchange("s4=0,a,0\r");
    exchange("case=0\r");
    expect_alive();
}

TEST_F(Input, ALongLineInSingleBytes)
{
    std::string got;
    for (const char c : "case?" + std::string(500, '\b') + "case?\r")
        ASSERT_TRUE(port_send(phone.port, std::string(1, c), got, send_ms));
    got += exchange("");
    // However the bytes were read together, the backspaces have eaten the first name.
    EXPECT_EQ(shown(got), "CASE:false,OK\\r\\n");
    expect_alive();
}

TEST_F(Input, ThePortIsPulledInTheMiddleOfALineAThousandTimes)
{
    for (int i = 0; i < 1000; i++) {
        std::string got;
        port_send(phone.port, "cas", got, send_ms);
        if (i % 2 == 0) {
            ASSERT_TRUE(phone.ask("idle", answer)) << answer;
        }
        ASSERT_TRUE(phone.ask("usb off", answer)) << answer;
        ASSERT_TRUE(phone.ask("usb on", answer)) << answer;
    }
    exchange("\r");
    expect_alive();
}

TEST_F(Input, AStationThatNeverReads)
{
    std::string ignored;
    for (int i = 0; i < 3000; i++) {
        // Straight to the port: what comes back stays where it is.
        ASSERT_GT(write(phone.port, "help=\"\",255\r", 12), 0);
        ASSERT_TRUE(phone.ask("idle", answer)) << answer;
    }
    port_take(phone.port, ignored);
    EXPECT_GT(ignored.size(), 1000u);
    expect_alive();
}

// An answer of 30,000 bytes is more than the pseudo terminal holds: the phone's end waits for the station.
TEST_F(Input, ALongAnswerComesWhole)
{
    std::string packet, wanted = "FTMC:";
    for (int i = 0; i < 6000; i++) {
        char text[8];
        std::snprintf(text, sizeof text, "%02x", i % 251);
        packet += text;
        wanted += std::string(i != 0 ? ",0x" : "0x") + text;
    }
    wanted += ",OK\r\n";
    ASSERT_TRUE(phone.ask("diag 01 " + packet, answer)) << answer;
    ASSERT_GT(write(phone.port, "ftmc=1\r", 7), 0);
    std::string got;
    phone.receive(got, wanted.size());
    EXPECT_TRUE(got == wanted) << got.size() << " of " << wanted.size() << " bytes";
    expect_alive();
}

} // namespace
