// The yardstick of the start: a program with the same libraries that opens a pseudo terminal, links it where
// the station looks, and answers one line.
#include <fcntl.h>
#include <pty.h>
#include <string>
#include <termios.h>
#include <unistd.h>

int main(int, char** argv)
{
    int master;
    int slave;
    termios raw{};
    cfmakeraw(&raw);
    char name[128];
    if (openpty(&master, &slave, name, &raw, nullptr) != 0)
        return 1;
    const std::string link = std::string(argv[1]) + "/ttyGS0";
    unlink(link.c_str());
    char buf[16];
    if (symlink(name, link.c_str()) != 0 || read(master, buf, sizeof buf) <= 0 ||
        write(master, "\r\n", 2) < 0)
        return 1;
    pause();
}
