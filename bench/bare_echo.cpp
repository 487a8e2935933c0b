// The yardstick of the console's round trip: on a pseudo terminal of its own it waits with select, reads, and
// answers each read in as many writes as the console makes for `case?`. Prints the terminal's name first.
#include <cstdio>
#include <fcntl.h>
#include <pty.h>
#include <sys/select.h>
#include <termios.h>
#include <unistd.h>

int main()
{
    int master;
    int slave;
    termios raw{};
    cfmakeraw(&raw);
    char name[128];
    if (openpty(&master, &slave, name, &raw, nullptr) != 0)
        return 1;
    std::puts(name);
    std::fflush(stdout);
    for (;;) {
        fd_set rd;
        FD_ZERO(&rd);
        FD_SET(master, &rd);
        char buf[256];
        if (select(master + 1, &rd, nullptr, nullptr, nullptr) < 0 || read(master, buf, sizeof buf) <= 0)
            return 0;
        if (write(master, "CASE:false", 10) < 0 || write(master, ",", 1) < 0 || write(master, "OK", 2) < 0 ||
            write(master, "\r\n", 2) < 0)
            return 0;
    }
}
