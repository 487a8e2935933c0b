// hvt-forge HEADER FIELD...: sends a uevent that isn't the kernel's to all who listen to the kernel's.
#include <cstdio>
#include <string>

#include <linux/netlink.h>
#include <sys/socket.h>

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: hvt-forge HEADER FIELD...\n", stderr);
        return 2;
    }
    std::string message;
    for (int i = 1; i < argc; i++)
        message.append(argv[i]).push_back('\0');
    sockaddr_nl all{};
    all.nl_family = AF_NETLINK;
    all.nl_groups = 1;
    const int fd = socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_KOBJECT_UEVENT);
    if (fd < 0 || sendto(fd, message.data(), message.size(), 0, reinterpret_cast<const sockaddr*>(&all),
                         sizeof all) < 0) {
        std::perror("forge");
        return 1;
    }
}
