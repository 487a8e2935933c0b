// hvt-line STATION PORT: the station's end of the gadget inside the machine. What comes from the one serial
// line to the desk, STATION, goes to PORT (/dev/ttyACM0) and the other way round. While the cable is out PORT
// isn't there, and what the desk sends is lost.
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int look_again_ms = 5;

int open_port(const char* path)
{
    const int fd = open(path, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    termios settings;
    if (fd < 0 || tcgetattr(fd, &settings) != 0) {
        if (fd >= 0)
            close(fd);
        return -1;
    }
    cfmakeraw(&settings);
    settings.c_cflag |= CREAD | CLOCAL;
    tcsetattr(fd, TCSANOW, &settings);
    return fd;
}

// All of it; what is left when the other end is gone, or takes nothing for a second, is lost.
void send_all(int fd, const char* bytes, ssize_t size)
{
    while (size > 0) {
        const ssize_t taken = write(fd, bytes, static_cast<std::size_t>(size));
        pollfd room{fd, POLLOUT, 0};
        if (taken > 0) {
            bytes += taken;
            size -= taken;
        } else if (errno != EAGAIN || poll(&room, 1, 1000) <= 0 ||
                   (room.revents & (POLLHUP | POLLERR)) != 0) {
            return;
        }
    }
}

// Hands on what there is to read; false when `from` is gone.
bool hand_on(int from, int to)
{
    char part[4096];
    const ssize_t n = read(from, part, sizeof part);
    if (n > 0 && to >= 0)
        send_all(to, part, n);
    return n > 0 || (n < 0 && errno == EAGAIN);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: hvt-line STATION PORT\n", stderr);
        return 2;
    }
    const int station = open(argv[1], O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (station < 0) {
        std::perror(argv[1]);
        return 1;
    }
    int port = -1;
    for (;;) {
        if (port < 0)
            port = open_port(argv[2]);
        pollfd fds[2] = {{station, POLLIN, 0}, {port, POLLIN, 0}};
        poll(fds, 2, port < 0 ? look_again_ms : -1);
        if ((fds[0].revents & POLLIN) != 0)
            hand_on(station, port);
        else if (fds[0].revents != 0)
            poll(nullptr, 0, look_again_ms); // the desk isn't there
        if (port >= 0 && fds[1].revents != 0 && !hand_on(port, station)) {
            close(port);
            port = -1;
        }
    }
}
