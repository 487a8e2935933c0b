#include "core/sockets.h"

#include <cerrno>
#include <map>
#include <memory>
#include <string>

#include "core/files_table.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr int hci_protocol = 1;

std::map<int, const socket_family*> families; // written before the program runs

const socket_family* find(int family)
{
    const auto found = families.find(family);
    return found != families.end() ? found->second : nullptr;
}

bool is_internet(int family)
{
    return family == AF_INET || family == AF_INET6;
}

// A socket pair has whatever the device gave it; the program asked for these two.
std::shared_ptr<open_file> open_claimed(const socket_family& family, int type, int protocol)
{
    auto file = std::make_shared<open_file>();
    file->path = family.name;
    file->p_node = family.p_node;
    file->attribute = false;
    file->p_family = &family;
    file->fd = family.open(*file, type & ~(SOCK_CLOEXEC | SOCK_NONBLOCK), protocol);
    return file->fd >= 0 ? file : nullptr;
}

} // namespace

void socket_family_add(int family, const socket_family* p_family)
{
    families[family] = p_family;
}

int sockets_open(int family, int type, int protocol)
{
    if (is_internet(family)) {
        const int fd = ::socket(family, type | SOCK_CLOEXEC, protocol);
        if (fd >= 0)
            files_enter(fd, sockets_name(family));
        return fd;
    }
    const socket_family* const p_family = find(family);
    if (p_family == nullptr) {
        strange("socket of family " + std::to_string(family));
        errno = EAFNOSUPPORT;
        return -1;
    }
    const auto file = open_claimed(*p_family, type, protocol);
    return file != nullptr ? files_enter(file) : -1;
}

int sockets_setsockopt(int fd, int level, int option, const void* p_value, socklen_t size)
{
    const auto file = file_of(fd);
    if (file == nullptr || file->p_family == nullptr)
        return ::setsockopt(fd, level, option, p_value, size);
    if (file->p_family->setsockopt != nullptr)
        return file->p_family->setsockopt(*file, level, option, p_value, size);
    strange("setsockopt " + file->path + " level " + std::to_string(level) + " option " +
            std::to_string(option));
    errno = ENOPROTOOPT;
    return -1;
}

int sockets_hci_open_dev(int device)
{
    const int fd = sockets_open(AF_BLUETOOTH, SOCK_RAW | SOCK_CLOEXEC, hci_protocol);
    if (fd < 0)
        return -1;
    const auto file = file_of(fd);
    errno = ENODEV;
    if (file->p_family->bind_device != nullptr && file->p_family->bind_device(*file, device) == 0)
        return fd;
    const int error = errno;
    files_close(fd);
    errno = error;
    return -1;
}

int sockets_hci_sent(int fd)
{
    const auto file = file_of(fd);
    const bool told = file != nullptr && file->p_family != nullptr && file->p_family->sent != nullptr;
    return told ? file->p_family->sent(*file) : 0;
}

const char* sockets_name(int family)
{
    const socket_family* const p_family = find(family);
    return p_family != nullptr ? p_family->name : "socket";
}

} // namespace phone
