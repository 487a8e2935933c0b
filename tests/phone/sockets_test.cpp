// Sockets and other descriptors that no path was opened for.
#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

#include "core/control.h"
#include "core/files.h"
#include "core/sockets.h"
#include "core/table.h"
#include "core/watch.h"
#include "phone/error_of.h"

namespace {

using namespace phone;

constexpr int bluetooth = 31;
constexpr int raw_hci = 1;

int far_end = -1;
std::string last_option;

int open_controller(open_file&, int type, int protocol)
{
    int ends[2];
    if (type != SOCK_RAW || protocol != raw_hci) {
        errno = EPROTONOSUPPORT;
        return -1;
    }
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        return -1;
    far_end = ends[1];
    return ends[0];
}

int set_option(open_file&, int level, int option, const void*, socklen_t size)
{
    last_option = std::to_string(level) + " " + std::to_string(option) + " " + std::to_string(size);
    return 0;
}

int bind_to(open_file&, int device)
{
    errno = ENODEV;
    return device == 0 ? 0 : -1;
}

int answer_ioctl(open_file&, unsigned long request, void*)
{
    return request == 0x48D3 ? 7 : -1;
}

constexpr node behind = {.ioctl = answer_ioctl};
constexpr socket_family controller = {.name = "hci0",
                                      .p_node = &behind,
                                      .open = open_controller,
                                      .setsockopt = set_option,
                                      .bind_device = bind_to};

struct Sockets : testing::Test {
    static void SetUpTestSuite()
    {
        watch_attach();
        files_attach();
    }
    void SetUp() override { ask("strange off"); }
    static std::string ask(std::string_view line) { return control_request(line); }
    static bool is_open(const std::string& name)
    {
        return ("\n" + ask("files")).find("\n" + name + "\n") != std::string::npos;
    }
};

TEST_F(Sockets, AFamilyThatNobodyHasNeverReachesTheHost)
{
    EXPECT_EQ(error_of(phone_co.socket(bluetooth, SOCK_RAW | SOCK_CLOEXEC, raw_hci)), EAFNOSUPPORT);
    EXPECT_EQ(error_of(phone_co.hci_open_dev(0)), EAFNOSUPPORT);
    EXPECT_EQ(error_of(phone_co.socket(AF_UNIX, SOCK_STREAM, 0)), EAFNOSUPPORT);
    EXPECT_EQ(ask("strange"), "1 socket of family 1\n2 socket of family 31\nok\n");
}

TEST_F(Sockets, ADeviceClaimsAFamily)
{
    socket_family_add(bluetooth, &controller);
    const int plain = phone_co.socket(bluetooth, SOCK_RAW | SOCK_CLOEXEC, raw_hci);
    ASSERT_GE(plain, 0);
    EXPECT_EQ(phone_co.ioctl(plain, 0x48D3, nullptr), 7);
    EXPECT_EQ(phone_co.close(plain), 0);
    close(far_end);
    EXPECT_EQ(error_of(phone_co.socket(bluetooth, SOCK_STREAM, 0)), EPROTONOSUPPORT);
    EXPECT_EQ(error_of(phone_co.hci_open_dev(1)), ENODEV);
    close(far_end);
    EXPECT_FALSE(is_open("hci0"));

    const int fd = phone_co.hci_open_dev(0);
    ASSERT_GE(fd, 0);
    EXPECT_TRUE(is_open("hci0"));
    const std::uint32_t filter = 0;
    EXPECT_EQ(phone_co.setsockopt(fd, 0, 2, &filter, sizeof filter), 0);
    EXPECT_EQ(last_option, "0 2 4");
    const std::uint8_t param[] = {0x11, 0x22};
    EXPECT_EQ(phone_co.hci_send_cmd(fd, 0x3F, 0x0005, 2, param), 0);
    std::uint8_t packet[16];
    ASSERT_EQ(read(far_end, packet, sizeof packet), 6);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(packet), 6), std::string("\x01\x05\xFC\x02\x11\x22", 6));
    ask("fail hci_send_cmd hci0");
    EXPECT_EQ(error_of(phone_co.hci_send_cmd(fd, 0x3F, 0x0005, 2, param)), EIO);
    ASSERT_EQ(write(far_end, "\x04\x0E", 2), 2);
    ask("calls on");
    ask("fail read hci0 short");
    EXPECT_EQ(phone_co.read(fd, packet, 2), 1);
    EXPECT_EQ(ask("calls"), "read hci0 = 1 (by fail)\nok\n");
    EXPECT_EQ(phone_co.close(fd), 0);
    EXPECT_FALSE(is_open("hci0"));
    EXPECT_EQ(ask("strange"), "ok\n");
    ask("calls off");
    ask("fail off");
}

TEST_F(Sockets, PipesAndSocketsOfTheInternetHaveNames)
{
    int ends[2];
    ASSERT_EQ(phone_co.pipe(ends), 0);
    EXPECT_TRUE(is_open("pipe\npipe"));
    ask("fail write pipe");
    EXPECT_EQ(phone_co.write(ends[1], "x", 1), -1);
    EXPECT_EQ(phone_co.write(ends[1], "x", 1), 1);
    for (const int fd : ends)
        EXPECT_EQ(phone_co.close(fd), 0);
    const int fd = phone_co.socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_GE(fd, 0);
    EXPECT_TRUE(is_open("socket"));
    const int on = 1;
    EXPECT_EQ(phone_co.setsockopt(fd, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on), 0);
    EXPECT_EQ(phone_co.close(fd), 0);
    EXPECT_FALSE(is_open("socket"));
}

} // namespace
