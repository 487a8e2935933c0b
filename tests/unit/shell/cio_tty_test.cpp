// The console's port on a terminal of the host's, which starts cooked, as a port of the phone may.
#include <asm/termbits.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

#include "cio_tty/cio_tty.h"
#include "cio_v2/cio.h"
#include "core/core.h"
#include "dcp/dcp.h"
#include "tmr/tmr.h"
#include "unit/plat_fake.h"

namespace {

constexpr tcflag_t IN_OFF = ICRNL | IXON | IXOFF;
constexpr tcflag_t LOCAL_OFF = ICANON | ECHO | ISIG;

// A pseudo terminal and the program's end of it at a path.
struct cooked_port {
    int station = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    termios before{};

    explicit cooked_port(const std::string& path)
    {
        grantpt(station);
        unlockpt(station);
        unlink(path.c_str());
        EXPECT_EQ(symlink(ptsname(station), path.c_str()), 0);
        before = settings();
        before.c_iflag |= IN_OFF | BRKINT;
        EXPECT_EQ(ioctl(station, TCSETS, &before), 0);
        EXPECT_TRUE((before.c_oflag & OPOST) != 0 && (before.c_lflag & LOCAL_OFF) == LOCAL_OFF);
    }

    termios settings() const
    {
        termios now{};
        EXPECT_EQ(ioctl(station, TCGETS, &now), 0);
        return now;
    }

    // What the station hears.
    std::string said() const
    {
        char text[64];
        const ssize_t n = read(station, text, sizeof text);
        return std::string(text, n > 0 ? static_cast<std::size_t>(n) : 0);
    }
};

std::string heard(cio_dev_obj* p_obj)
{
    char text[64];
    return std::string(text, static_cast<std::size_t>(p_obj->rd(p_obj, text, sizeof text)));
}

} // namespace

TEST(CioTty, APortThatStartsCookedIsMadeRawAlsoWhenItComesBack)
{
    const std::string path = testing::TempDir() + "tty_" + std::to_string(getpid());
    plat_fake_reset();
    dcp_init();
    tmr_init();
    core_init();
    cio_dev_init();
    cio_tty_init();
    const cooked_port first(path);
    static cio_tty_config config;
    config = {path.c_str(), 0x100D}; // of the speed's own bits all count
    static cio console;
    cio_init(&console, nullptr, 64, "test", "tty", &config, nullptr);
    cio_start(&console);
    const termios raw = first.settings();
    EXPECT_EQ(raw.c_iflag, first.before.c_iflag & ~IN_OFF);
    EXPECT_EQ(raw.c_oflag, first.before.c_oflag & ~static_cast<tcflag_t>(OPOST));
    EXPECT_EQ(raw.c_lflag, first.before.c_lflag & ~LOCAL_OFF);
    EXPECT_EQ(raw.c_cflag & 0x100F, 0x100Du);
    EXPECT_EQ(write(first.station, "a\x03\x13\r", 4), 4);
    EXPECT_EQ(heard(console.p_dev_obj), "a\x03\x13\r");
    cio_print(&console, "b\n");
    EXPECT_EQ(first.said(), "b\n") << "and no echo";

    const cooked_port second(path);
    close(first.station);
    EXPECT_EQ(heard(console.p_dev_obj), "") << "the port has dropped";
    EXPECT_EQ(write(second.station, "c\r", 2), 2);
    EXPECT_EQ(heard(console.p_dev_obj), "c\r");
    cio_print(&console, "d\n");
    EXPECT_EQ(second.said(), "d\n");
    console.p_dev_obj->close(console.p_dev_obj);
    close(second.station);
    unlink(path.c_str());
    core_init();
    dcp_init();
}
