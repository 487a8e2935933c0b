#include "client/port_client.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

int port_open_raw(const std::string& path)
{
    const int fd = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return -1;
    termios t;
    if (tcgetattr(fd, &t) == 0) {
        cfmakeraw(&t);
        cfsetspeed(&t, B115200);
        t.c_cflag |= CREAD | CLOCAL;
        tcsetattr(fd, TCSANOW, &t);
    }
    return fd;
}

bool port_take(int fd, std::string& got)
{
    for (;;) {
        char part[65536];
        const ssize_t n = read(fd, part, sizeof part);
        if (n > 0)
            got.append(part, static_cast<std::size_t>(n));
        else if (n < 0 && (errno == EAGAIN || errno == EINTR))
            return true;
        else
            return false;
    }
}

bool port_send(int fd, std::string_view bytes, std::string& got, int timeout_ms)
{
    int turns = timeout_ms / 10 + 1;
    while (!bytes.empty() && turns > 0) {
        const ssize_t n = write(fd, bytes.data(), bytes.size());
        if (n > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(n));
            continue;
        }
        if (n < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        pollfd p{fd, POLLIN | POLLOUT, 0};
        poll(&p, 1, 10);
        if ((p.revents & POLLIN) != 0 ? !port_take(fd, got) : (p.revents & (POLLERR | POLLHUP)) != 0)
            return false;
        if ((p.revents & POLLOUT) == 0)
            turns--;
    }
    return bytes.empty();
}
