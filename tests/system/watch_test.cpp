// What a client that looks on is told, and handed out.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include "client/control_client.h"
#include "runner/phone_fixture.h"

namespace {

struct Watch : testing::Test {
    phone_fixture phone;
    int fd = -1; // of the client that looks on

    void SetUp() override
    {
        ASSERT_EQ(phone.up(), "");
        fd = control_connect(phone.dir);
        ASSERT_GE(fd, 0);
    }
    void TearDown() override { close(fd); }

    std::string ask(std::string_view line)
    {
        std::string answer;
        return control_ask(fd, line, answer) ? answer : "error: " + answer;
    }
    void say(std::string_view line)
    {
        std::string answer;
        EXPECT_TRUE(phone.ask(line, answer)) << answer;
    }
};

TEST_F(Watch, TellsEachChangeOnceAndOnlyTheKindsNamed)
{
    EXPECT_EQ(ask("watch 0 word"), "");
    say("light 5");
    say("light 6");
    say("light 5");
    say("light"); // changes nothing
    say("help light");
    EXPECT_EQ(ask("watch 5000 word"), "word light 5\nword light 6");
    EXPECT_EQ(ask("watch 50 screen"), "");
    say("light 7");
    EXPECT_EQ(ask("watch 50 screen"), "");
    say("key 116 tap"); // the menu
    EXPECT_EQ(ask("watch 10000 screen"), "screen 0");
    EXPECT_EQ(ask("watch 1 sound"), "error: no kind of change is \"sound\"; they are screen, log and word");
}

TEST_F(Watch, AClientThatGoesWhileItWaitsIsForgotten)
{
    constexpr std::string_view request = "watch\n";
    for (int i = 0; i < 40; i++) { // more than there may be at once
        const int one = control_connect(phone.dir);
        ASSERT_GE(one, 0);
        ASSERT_EQ(send(one, request.data(), request.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(request.size()));
        close(one);
        say("idle");
    }
    EXPECT_EQ(ask("light"), "180");
}

TEST_F(Watch, TheMemoryOfTheScreenIsHandedOutToBeRead)
{
    ask("watch 0 screen");
    say("key 116 tap");
    while (ask("pixel 500 30") == "000000") // until the menu is drawn
        ASSERT_EQ(ask("watch 10000 screen"), "screen 0");
    constexpr std::string_view request = "screen share\n";
    ASSERT_EQ(send(fd, request.data(), request.size(), MSG_NOSIGNAL), static_cast<ssize_t>(request.size()));
    char text[256] = "";
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))];
    iovec part{text, sizeof text - 1};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    ASSERT_GT(recvmsg(fd, &message, 0), 0);
    unsigned from = 0;
    ASSERT_EQ(std::sscanf(text, "1080x1920x32 line 4320 from %u unblanked\nok\n", &from), 1) << text;
    ASSERT_NE(CMSG_FIRSTHDR(&message), nullptr);
    int memory;
    std::memcpy(&memory, CMSG_DATA(CMSG_FIRSTHDR(&message)), sizeof memory);
    constexpr std::size_t size = std::size_t{4320} * 1920 * 2;
    EXPECT_EQ(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0), MAP_FAILED);
    void* const p = mmap(nullptr, size, PROT_READ, MAP_SHARED, memory, 0);
    ASSERT_NE(p, MAP_FAILED);
    const auto* const pixel = static_cast<const std::uint8_t*>(p) + from + 30 * 4320 + 500 * 4;
    char colour[8];
    std::snprintf(colour, sizeof colour, "%02X%02X%02X", pixel[2], pixel[1], pixel[0]);
    EXPECT_EQ(ask("pixel 500 30"), colour);
    EXPECT_STRNE(colour, "000000");
    munmap(p, size);
    close(memory);
}

} // namespace
