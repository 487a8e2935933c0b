#include "shell/port.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <pty.h>
#include <set>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/life.h"
#include "core/log.h"
#include "core/record.h"
#include "core/text.h"
#include "core/uevents.h"
#include "core/watch.h"
#include "shell/usb_state.h"

namespace phone {

namespace {

int master = -1; // the program's end
int slave = -1;  // kept open here, so that the program's end doesn't hang up when no station is there

std::atomic<bool> station_reads = true;
std::atomic<bool> station_hung_up;

std::mutex port_mutex; // guards the two below and every change of a descriptor of the program
bool cable_in = true;
std::set<int> open_fds; // the program's descriptors of the port

// Puts what `source` is open on behind the program's descriptor `fd`, and gives `source` up.
void swap_behind_locked(int fd, int source)
{
    if (source < 0)
        return;
    dup3(source, fd, O_CLOEXEC);
    close(source);
}

// A descriptor that carries nothing and never wakes anybody; what is written to it is gone. `file` keeps the
// far end open as long as the program keeps this one.
int silent_end(open_file& file)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        return -1;
    const int far = ends[1];
    file.data = std::shared_ptr<void>(nullptr, [far](void*) { close(far); });
    return ends[0];
}

// Throws away what the station has sent and the program hasn't read.
void drain()
{
    char buf[4096];
    while (read(master, buf, sizeof buf) > 0) {
    }
}

// A descriptor that reads as an end of file.
int hung_up_end()
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends) != 0)
        return -1;
    close(ends[1]);
    return ends[0];
}

int port_open(open_file& file, int)
{
    const std::lock_guard lock(port_mutex);
    const int fd = cable_in ? fcntl(master, F_DUPFD_CLOEXEC, 0) : silent_end(file);
    if (fd >= 0)
        open_fds.insert(fd);
    return fd;
}

void port_close(open_file& file)
{
    const std::lock_guard lock(port_mutex);
    open_fds.erase(file.fd);
}

ssize_t port_read(open_file& file, void* buf, std::size_t size)
{
    const ssize_t n = read(file.fd, buf, size);
    watch_command(n > 0);
    if (n > 0) {
        const std::string_view bytes(static_cast<const char*>(buf), static_cast<std::size_t>(n));
        record_port(true, bytes);
        log_line(log_port, "< " + escaped(bytes));
    }
    return n;
}

// A pseudo terminal holds a few thousand bytes, and a station that reads takes them as fast as a bus does: a
// long answer waits for it. One that doesn't read is waited for once, until it reads again.
ssize_t write_patiently(int fd, const char* buf, std::size_t size)
{
    constexpr int patience_ms = 1000;
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = write(fd, buf + done, size - done);
        if (n > 0) {
            done += static_cast<std::size_t>(n);
            continue;
        }
        pollfd room{fd, POLLOUT, 0};
        if (errno != EAGAIN || !station_reads)
            break;
        station_reads = poll(&room, 1, patience_ms) > 0;
    }
    if (done == size)
        station_reads = true;
    return done > 0 || size == 0 ? static_cast<ssize_t>(done) : -1;
}

ssize_t port_write(open_file& file, const void* buf, std::size_t size)
{
    {
        const std::lock_guard lock(port_mutex);
        if (!cable_in) {
            errno = EIO;
            return -1;
        }
    }
    const ssize_t n = write_patiently(file.fd, static_cast<const char*>(buf), size);
    if (n > 0) {
        const std::string_view bytes(static_cast<const char*>(buf), static_cast<std::size_t>(n));
        record_port(false, bytes);
        log_line(log_port, "> " + escaped(bytes));
    }
    return n;
}

// The terminal requests are answered by the pseudo terminal itself, cable or not.
int port_ioctl(open_file&, unsigned long request, void* arg)
{
    return ioctl(master, request, arg);
}

constexpr node port_node = {
    .open = port_open, .read = port_read, .write = port_write, .ioctl = port_ioctl, .close = port_close};

void plug(bool in)
{
    {
        const std::lock_guard lock(port_mutex);
        if (cable_in == in)
            return;
        usb_state_set(in);
        cable_in = in;
        if (in)
            drain(); // what was sent without a cable never arrives
        for (const int fd : open_fds)
            swap_behind_locked(fd, in ? fcntl(master, F_DUPFD_CLOEXEC, 0) : hung_up_end());
        if (!in)
            drain(); // what was on its way is lost with the cable
    }
    clock_kick();
    usb_state_announce(in);
}

// Opens a pseudo terminal for both ends; the result is empty, or what is wrong.
std::string open_terminal()
{
    termios raw{};
    cfmakeraw(&raw);
    cfsetspeed(&raw, B115200);
    raw.c_cflag |= CREAD | CLOCAL;
    if (openpty(&master, &slave, nullptr, &raw, nullptr) != 0)
        return "no pseudo terminal can be had: " + std::string(std::strerror(errno));
    fcntl(master, F_SETFD, FD_CLOEXEC);
    fcntl(slave, F_SETFD, FD_CLOEXEC);
    fcntl(master, F_SETFL, O_RDWR | O_NONBLOCK);
    return {};
}

// Lays the link DIR/ttyGS0 to the station's end.
std::string lay_link()
{
    const std::string link = home_path("ttyGS0");
    char name[128];
    if (ttyname_r(slave, name, sizeof name) != 0)
        return "the pseudo terminal has no name: " + std::string(std::strerror(errno));
    unlink(link.c_str());
    return symlink(name, link.c_str()) == 0 ? "" : link + ": can't be made: " + std::strerror(errno);
}

// The station's adapter is pulled too: what the station has open is hung up, and there is no port until the
// cable is plugged in, when a new one comes.
std::string hang_up()
{
    const std::lock_guard lock(port_mutex);
    const int old_master = master;
    const int old_slave = slave;
    if (std::string wrong = open_terminal(); !wrong.empty()) {
        master = old_master;
        slave = old_slave;
        return wrong;
    }
    unlink(home_path("ttyGS0").c_str());
    close(old_slave);
    close(old_master);
    station_hung_up = true;
    return {};
}

std::string word_usb(request& rq)
{
    if (rq.args.empty()) {
        const std::lock_guard lock(port_mutex);
        rq.answer = cable_in ? "on" : "off";
        return {};
    }
    const bool hangup = rq.args.size() == 2 && rq.args[0] == "off" && rq.args[1] == "hangup";
    if (!hangup && (rq.args.size() != 1 || (rq.args[0] != "on" && rq.args[0] != "off")))
        return "on, off or off hangup is wanted";
    const bool in = rq.args[0] == "on";
    if (in && station_hung_up.exchange(false))
        if (std::string wrong = lay_link(); !wrong.empty())
            return wrong;
    plug(in);
    return hangup ? hang_up() : "";
}

std::string start()
{
    if (master < 0)
        if (std::string wrong = open_terminal(); !wrong.empty())
            return wrong;
    cable_in = usb_state_configured();
    return lay_link();
}

void hand_on(int* p_master, int* p_slave)
{
    *p_master = master;
    *p_slave = slave;
}

void inherit(int inherited_master, int inherited_slave)
{
    master = inherited_master;
    slave = inherited_slave;
}

void stop()
{
    unlink(home_path("ttyGS0").c_str());
}

} // namespace

void port_attach()
{
    node_add("/dev/ttyGS0", &port_node);
    path_optional("/dev/ttyGS1");
    conf_offer("/dev/ttyGS1", [] { node_add("/dev/ttyGS1", &port_node); });
    word_add("usb", "[on|off [hangup]]",
             "plugs or pulls the station's cable; off leaves the station's open port as it is, off hangup "
             "hangs it "
             "up, as an adapter that is pulled does: a new port comes with on; alone: says it",
             word_usb);
    conf_add_word("usb");
    life_port_attach({start, stop, hand_on, inherit});
}

} // namespace phone
