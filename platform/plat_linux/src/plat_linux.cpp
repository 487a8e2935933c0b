#include "plat_linux/plat_linux.h"

#include <bluetooth/bluetooth.h>
#include <bluetooth/hci.h>
#include <bluetooth/hci_lib.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <linux/netlink.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/mount.h>

namespace {

int linux_uevent_open()
{
    const int fd = socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_KOBJECT_UEVENT);
    if (fd < 0)
        return -1;
    const int on = 1;
    sockaddr_nl addr{};
    addr.nl_family = AF_NETLINK;
    addr.nl_pid = static_cast<std::uint32_t>(getpid());
    addr.nl_groups = 0xFFFFFFFF;
    // A burst of events may come while a command holds the loop up. Without the right to it the usual size
    // does.
    const int room = 0x10000;
    setsockopt(fd, SOL_SOCKET, SO_RCVBUFFORCE, &room, sizeof room);
    if (setsockopt(fd, SOL_SOCKET, SO_PASSCRED, &on, sizeof on) != 0 ||
        bind(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof addr) != 0) {
        const int error = errno;
        close(fd);
        errno = error;
        return -1;
    }
    return fd;
}

ssize_t linux_uevent_recv(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred)
{
    sockaddr_nl addr{};
    iovec part{buf, size};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(ucred))];
    msghdr msg{};
    msg.msg_name = &addr;
    msg.msg_namelen = sizeof addr;
    msg.msg_iov = &part;
    msg.msg_iovlen = 1;
    msg.msg_control = control;
    msg.msg_controllen = sizeof control;
    const ssize_t n = recvmsg(fd, &msg, 0);
    if (n < 0)
        return n;
    *p_sender = addr.nl_groups != 0 ? addr.nl_pid : PLAT_UEVENT_UNICAST;
    *p_cred = {-1, static_cast<uid_t>(-1), static_cast<gid_t>(-1)};
    for (cmsghdr* p = CMSG_FIRSTHDR(&msg); p != nullptr; p = CMSG_NXTHDR(&msg, p))
        if (p->cmsg_level == SOL_SOCKET && p->cmsg_type == SCM_CREDENTIALS)
            std::memcpy(p_cred, CMSG_DATA(p), sizeof *p_cred);
    return n;
}

int linux_hci_send_cmd(int fd, std::uint16_t ogf, std::uint16_t ocf, std::uint8_t size, const void* p_param)
{
    return hci_send_cmd(fd, ogf, ocf, size, const_cast<void*>(p_param)); // which it only reads
}

int linux_cond_wait(std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock,
                    const timespec* p_until)
{
    if (p_until == nullptr)
        return pthread_cond_wait(p_cond->native_handle(), p_lock->mutex()->native_handle());
    return pthread_cond_clockwait(p_cond->native_handle(), p_lock->mutex()->native_handle(), CLOCK_MONOTONIC,
                                  p_until);
}

} // namespace

// clang-format off
const plat_callouts plat_linux_co = {
    .open          = [](const char* path, int flags, mode_t mode) { return open(path, flags, mode); },
    .close         = close,
    .read          = read,
    .write         = write,
    .lseek         = lseek,
    .ftruncate     = ftruncate,
    .fsync         = fsync,
    .ioctl         = [](int fd, unsigned long request, void* arg) { return ioctl(fd, request, arg); },
    .fcntl         = [](int fd, int cmd, long arg) { return fcntl(fd, cmd, arg); },
    .mmap          = mmap,
    .munmap        = munmap,
    .pipe          = pipe,
    .poll          = poll,
    .select        = select,
    .stat          = stat,
    .access        = access,
    .opendir       = opendir,
    .readdir       = readdir,
    .closedir      = closedir,
    .rename        = rename,
    .unlink        = unlink,
    .symlink       = symlink,
    .mkdir         = mkdir,
    .rmdir         = rmdir,
    .system        = system,
    .popen         = popen,
    .pclose        = pclose,
    .mount         = mount,
    .umount        = umount,
    .statfs        = statfs,
    .sync          = sync,
    .dlopen        = dlopen,
    .dlsym         = dlsym,
    .dlclose       = dlclose,
    .uevent_open   = linux_uevent_open,
    .uevent_recv   = linux_uevent_recv,
    .getaddrinfo   = getaddrinfo,
    .socket        = socket,
    .connect       = connect,
    .send          = [](int fd, const void* buf, std::size_t size) { return send(fd, buf, size, MSG_NOSIGNAL); },
    .setsockopt    = setsockopt,
    .hci_open_dev  = hci_open_dev,
    .hci_send_cmd  = linux_hci_send_cmd,
    .clock_gettime = clock_gettime,
    .nanosleep     = nanosleep,
    .timer_create  = timer_create,
    .timer_settime = timer_settime,
    .timer_gettime = timer_gettime,
    .timer_delete  = timer_delete,
    .cond_wait     = linux_cond_wait,
    .cond_wake     = [](std::condition_variable* p_cond) { p_cond->notify_all(); },
    .host_path     = [](const char* path) { return std::string(path); },
};
// clang-format on
