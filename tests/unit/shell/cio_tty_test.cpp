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

constexpr tcflag_t in_off = ICRNL | IXON | IXOFF;
constexpr tcflag_t local_off = ICANON | ECHO | ISIG;

// A terminal whose program's end lies at `path`: the station's end.
int cooked_port(const std::string& path, termios* p_before)
{
    const int station = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    grantpt(station);
    unlockpt(station);
    unlink(path.c_str());
    EXPECT_EQ(symlink(ptsname(station), path.c_str()), 0);
    EXPECT_EQ(ioctl(station, TCGETS, p_before), 0);
    p_before->c_iflag |= in_off | BRKINT;
    EXPECT_EQ(ioctl(station, TCSETS, p_before), 0);
    EXPECT_TRUE((p_before->c_oflag & OPOST) != 0 && (p_before->c_lflag & local_off) == local_off);
    return station;
}

// What a line that must come through as it is becomes on its way in, and a text on its way out.
void expect_raw(cio* p_console, int station)
{
    char text[64] = {};
    EXPECT_EQ(write(station, "a\x03\x13\r", 4), 4);
    EXPECT_EQ(p_console->p_dev_obj->rd(p_console->p_dev_obj, text, sizeof text), 4);
    EXPECT_STREQ(text, "a\x03\x13\r");
    cio_print(p_console, "b\n");
    EXPECT_EQ(read(station, text, sizeof text), 2) << "and no echo";
    EXPECT_EQ(std::string(text, 2), "b\n");
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
    termios before, raw;
    const int first = cooked_port(path, &before);
    static cio_tty_config config;
    static cio console;
    config = {path.c_str(), 0x100D}; // all bits that count of a speed
    cio_init(&console, nullptr, 64, "test", "tty", &config, nullptr);
    cio_start(&console);
    ASSERT_EQ(ioctl(first, TCGETS, &raw), 0);
    EXPECT_EQ(raw.c_iflag, before.c_iflag & ~in_off);
    EXPECT_EQ(raw.c_oflag, before.c_oflag & ~static_cast<tcflag_t>(OPOST));
    EXPECT_EQ(raw.c_lflag, before.c_lflag & ~local_off);
    EXPECT_EQ(raw.c_cflag & 0x100F, 0x100Du);
    expect_raw(&console, first);
    const int second = cooked_port(path, &before);
    close(first);
    EXPECT_EQ(console.p_dev_obj->rd(console.p_dev_obj, &raw, 1), 0) << "the port has dropped";
    expect_raw(&console, second);
    console.p_dev_obj->close(console.p_dev_obj);
    close(second);
    unlink(path.c_str());
    core_init();
    dcp_init();
}
