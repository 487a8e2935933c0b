#include "core/table.h"

#include <algorithm>
#include <bluetooth/bluetooth.h>
#include <bluetooth/hci.h>
#include <bluetooth/hci_lib.h>
#include <cerrno>
#include <dlfcn.h>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <sys/ioctl.h>

#include "core/clock.h"
#include "core/files_table.h"
#include "core/libraries.h"
#include "core/mounts.h"
#include "core/sockets.h"
#include "core/toolbox.h"
#include "core/uevents.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr nanoseconds ns_per_s = 1'000'000'000;

// Every call is watched in the same way: an armed fault fails it, otherwise `work` is done.
template <typename Result, typename Work>
Result watched(const char* operation, std::string_view path, Result failed, Work work)
{
    if (watch_call(operation, path) == fault::eio) {
        watch_result(operation, path, -1);
        return failed;
    }
    const Result result = work();
    if constexpr (std::is_pointer_v<Result>)
        watch_result(operation, path, result == failed ? -1 : 0);
    else
        watch_result(operation, path, static_cast<long long>(result));
    return result;
}

std::string path_of(int fd)
{
    const auto file = file_of(fd);
    return file != nullptr ? file->path : "descriptor " + std::to_string(fd);
}

// For operations on a path that hand the place on the host to the host.
template <typename Work>
int on_host(const char* operation, const char* path, bool follow, Work work)
{
    return watched(operation, path, -1, [&] {
        if (path_is_lacking(path)) {
            errno = ENOENT;
            return -1;
        }
        const std::string host = host_path(path, follow);
        return host.empty() ? -1 : work(host.c_str());
    });
}

int co_open(const char* path, int flags, mode_t mode)
{
    return watched("open", path, -1, [&] { return files_open(path, flags, mode); });
}

int co_close(int fd)
{
    bool closed = false;
    const int result = watched("close", path_of(fd), -1, [&] {
        closed = true;
        return files_close(fd);
    });
    // A failing close has closed the descriptor all the same, as Linux does.
    if (!closed) {
        const int error = errno;
        files_close(fd);
        errno = error;
    }
    return result;
}

template <typename Transfer>
ssize_t transfer(const char* operation, int fd, std::size_t size, Transfer move)
{
    const auto file = file_of(fd);
    const std::string_view path = file != nullptr ? std::string_view(file->path) : "unnamed";
    ssize_t result = -1;
    switch (watch_call(operation, path)) {
    case fault::eio:
        break;
    case fault::eof:
        result = 0;
        break;
    case fault::shortened:
        result = move(file.get(), size > 1 ? size / 2 : size);
        break;
    case fault::none:
        result = move(file.get(), size);
        break;
    }
    watch_result(operation, path, result);
    return result;
}

ssize_t co_read(int fd, void* buf, std::size_t size)
{
    return transfer("read", fd, size,
                    [&](open_file* p_file, std::size_t n) { return files_read(p_file, fd, buf, n); });
}

ssize_t co_write(int fd, const void* buf, std::size_t size)
{
    return transfer("write", fd, size,
                    [&](open_file* p_file, std::size_t n) { return files_write(p_file, fd, buf, n); });
}

off_t co_lseek(int fd, off_t offset, int whence)
{
    const auto file = file_of(fd);
    return watched("lseek", path_of(fd), off_t{-1}, [&] {
        if (file != nullptr && file->p_node != nullptr && file->p_node->lseek != nullptr)
            return file->p_node->lseek(*file, offset, whence);
        return ::lseek(fd, offset, whence);
    });
}

int co_ioctl(int fd, unsigned long request, void* arg)
{
    const auto file = file_of(fd);
    std::string text = path_of(fd);
    if (watch_active() && file != nullptr && file->p_node != nullptr && file->p_node->about != nullptr)
        text += " " + file->p_node->about(request, arg);
    return watched("ioctl", text, -1, [&] {
        if (file != nullptr && file->p_node != nullptr && file->p_node->ioctl != nullptr)
            return file->p_node->ioctl(*file, request, arg);
        strange("ioctl " + path_of(fd) + " request " + std::to_string(request));
        errno = ENOTTY;
        return -1;
    });
}

void* co_mmap(void* addr, std::size_t size, int prot, int flags, int fd, off_t offset)
{
    return watched("mmap", path_of(fd), MAP_FAILED,
                   [&] { return ::mmap(addr, size, prot, flags, fd, offset); });
}

// A look without a wait at devices that know themselves what there is to read; -1 if others are among them.
int poll_devices(std::span<pollfd> fds)
{
    int ready = 0;
    for (pollfd& p : fds) {
        const auto file = file_of(p.fd);
        if (p.events != POLLIN || file == nullptr || file->p_node == nullptr ||
            file->p_node->readable == nullptr)
            return -1;
        p.revents = file->p_node->readable(*file) ? POLLIN : 0;
        ready += p.revents != 0 ? 1 : 0;
    }
    return ready;
}

int co_poll(pollfd* fds, nfds_t count, int timeout_ms)
{
    const auto file = count > 0 ? file_of(fds[0].fd) : nullptr;
    return watched("poll", file != nullptr ? std::string_view(file->path) : "", -1, [&] {
        if (timeout_ms == 0)
            if (const int ready = poll_devices({fds, count}); ready >= 0)
                return ready;
        return clock_poll(fds, count, timeout_ms < 0 ? forever : nanoseconds{timeout_ms} * 1'000'000);
    });
}

int co_select(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, timeval* timeout)
{
    return watched("select", "", -1, [&] {
        if (timeout == nullptr)
            watch_command(false);
        const nanoseconds limit =
            timeout == nullptr ? forever : timeout->tv_sec * ns_per_s + timeout->tv_usec * 1000;
        return clock_select(nfds, rd, wr, ex, limit);
    });
}

int co_stat(const char* path, struct stat* p_out)
{
    return on_host("stat", path, true, [&](const char* host) {
        if (!node_exists(path))
            return ::stat(host, p_out);
        *p_out = {};
        p_out->st_mode = S_IFCHR | 0666;
        p_out->st_nlink = 1;
        return 0;
    });
}

int co_access(const char* path, int mode)
{
    return on_host("access", path, true,
                   [&](const char* host) { return node_exists(path) ? 0 : ::access(host, mode); });
}

DIR* co_opendir(const char* path)
{
    return watched("opendir", path, static_cast<DIR*>(nullptr), [&]() -> DIR* {
        const std::string host = path_is_lacking(path) ? "" : host_path(path);
        if (!host.empty())
            return ::opendir(host.c_str());
        errno = ENOENT;
        return nullptr;
    });
}

dirent* co_readdir(DIR* dir)
{
    return watched("readdir", "", static_cast<dirent*>(nullptr), [&] { return ::readdir(dir); });
}

int co_closedir(DIR* dir)
{
    const int result = ::closedir(dir); // as with close, the fault comes behind the deed
    return watched("closedir", "", -1, [&] { return result; });
}

int co_rename(const char* from, const char* to)
{
    return on_host("rename", from, false, [&](const char* host) {
        const std::string target = host_path(to, false);
        return target.empty() ? -1 : ::rename(host, target.c_str());
    });
}

int co_system(const char* line)
{
    return watched("system", line, -1, [&] { return toolbox_run(line); });
}

FILE* co_popen(const char* line, const char* mode)
{
    return watched("popen", line, static_cast<FILE*>(nullptr), [&] { return toolbox_popen(line, mode); });
}

int co_mount(const char* device, const char* dir, const char* type, unsigned long flags, const void* data)
{
    return watched("mount", std::string(device) + " " + dir, -1,
                   [&] { return mounts_mount(device, dir, type, flags, data); });
}

int co_umount(const char* dir)
{
    return watched("umount", dir, -1, [&] { return mounts_umount(dir); });
}

int co_statfs(const char* path, struct statfs* p_out)
{
    return watched("statfs", path, -1, [&] { return mounts_statfs(path, p_out); });
}

void* co_dlopen(const char* name, int flags)
{
    return watched("dlopen", name, static_cast<void*>(nullptr), [&] { return libraries_open(name, flags); });
}

void* co_dlsym(void* library, const char* name)
{
    return watched("dlsym", name, static_cast<void*>(nullptr), [&] { return ::dlsym(library, name); });
}

int co_pipe(int fds[2])
{
    return watched("pipe", "", -1, [&] {
        if (::pipe2(fds, O_CLOEXEC) != 0)
            return -1;
        files_enter(fds[0], "pipe");
        files_enter(fds[1], "pipe");
        return 0;
    });
}

int co_uevent_open()
{
    return watched("uevent_open", "", -1, [] {
        const int fd = uevents_open();
        return fd >= 0 ? files_enter(fd, "uevent") : -1;
    });
}

ssize_t co_uevent_recv(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred)
{
    return watched("uevent_recv", path_of(fd), ssize_t{-1},
                   [&] { return uevents_receive(fd, buf, size, p_sender, p_cred); });
}

// The phone's network is the host's.
int co_getaddrinfo(const char* host, const char* service, const addrinfo* p_hints, addrinfo** pp_found)
{
    return watched("getaddrinfo", host, EAI_FAIL,
                   [&] { return ::getaddrinfo(host, service, p_hints, pp_found); });
}

int co_socket(int family, int type, int protocol)
{
    return watched("socket", sockets_name(family), -1, [&] { return sockets_open(family, type, protocol); });
}

int co_connect(int fd, const sockaddr* p_addr, socklen_t size)
{
    return watched("connect", path_of(fd), -1, [&] { return ::connect(fd, p_addr, size); });
}

ssize_t co_send(int fd, const void* buf, std::size_t size)
{
    return watched("send", path_of(fd), ssize_t{-1}, [&] { return ::send(fd, buf, size, MSG_NOSIGNAL); });
}

int co_setsockopt(int fd, int level, int option, const void* p_value, socklen_t size)
{
    return watched("setsockopt", path_of(fd), -1,
                   [&] { return sockets_setsockopt(fd, level, option, p_value, size); });
}

int co_hci_open_dev(int device)
{
    return watched("hci_open_dev", sockets_name(AF_BLUETOOTH), -1,
                   [&] { return sockets_hci_open_dev(device); });
}

// The packet is made by the real library: it goes into the real descriptor that a device has given.
int co_hci_send_cmd(int fd, std::uint16_t ogf, std::uint16_t ocf, std::uint8_t size, const void* p_param)
{
    return watched("hci_send_cmd", path_of(fd), -1, [&] {
        const int result = ::hci_send_cmd(fd, ogf, ocf, size, const_cast<void*>(p_param));
        return result < 0 ? result : sockets_hci_sent(fd);
    });
}

int co_clock_gettime(clockid_t clock, timespec* p_out)
{
    return watched("clock_gettime", "", -1, [&] {
        const nanoseconds now = clock_now(clock);
        *p_out = clock_timespec(now);
        return 0;
    });
}

int co_nanosleep(const timespec* p_time, timespec* p_left)
{
    return watched("nanosleep", "", -1, [&] {
        if (p_time->tv_nsec < 0 || p_time->tv_nsec >= ns_per_s || p_time->tv_sec < 0) {
            errno = EINVAL;
            return -1;
        }
        clock_sleep_until(clock_now(CLOCK_MONOTONIC) + p_time->tv_sec * ns_per_s + p_time->tv_nsec);
        if (p_left != nullptr)
            *p_left = {};
        return 0;
    });
}

int timer_number(timer_t timer)
{
    return static_cast<int>(reinterpret_cast<std::intptr_t>(timer));
}

int co_timer_create(clockid_t, sigevent* p_event, timer_t* p_timer)
{
    return watched("timer_create", "", -1, [&] {
        if (p_event->sigev_notify != SIGEV_THREAD) {
            strange("timer_create with another notification than a thread");
            errno = EINVAL;
            return -1;
        }
        const auto notify = p_event->sigev_notify_function;
        const sigval value = p_event->sigev_value;
        const int id = clock_timer_create([notify, value] { notify(value); });
        *p_timer = reinterpret_cast<timer_t>(static_cast<std::intptr_t>(id));
        return 0;
    });
}

nanoseconds to_ns(const timespec& t)
{
    return t.tv_sec * ns_per_s + t.tv_nsec;
}

int gettime(timer_t timer, itimerspec* p_out)
{
    nanoseconds left;
    nanoseconds interval;
    if (!clock_timer_get(timer_number(timer), &left, &interval)) {
        errno = EINVAL;
        return -1;
    }
    p_out->it_value = clock_timespec(left);
    p_out->it_interval = clock_timespec(interval);
    return 0;
}

int co_timer_settime(timer_t timer, int flags, const itimerspec* p_new, itimerspec* p_old)
{
    return watched("timer_settime", "", -1, [&] {
        if (p_old != nullptr && gettime(timer, p_old) != 0)
            return -1;
        const nanoseconds now = (flags & TIMER_ABSTIME) != 0 ? clock_now(CLOCK_REALTIME) : 0;
        const nanoseconds value = to_ns(p_new->it_value);
        const nanoseconds time = value == 0 ? 0 : std::max<nanoseconds>(value - now, 1);
        if (clock_timer_set(timer_number(timer), time, to_ns(p_new->it_interval)))
            return 0;
        errno = EINVAL;
        return -1;
    });
}

int co_timer_delete(timer_t timer)
{
    return watched("timer_delete", "", -1, [&] {
        if (clock_timer_delete(timer_number(timer)))
            return 0;
        errno = EINVAL;
        return -1;
    });
}

// Not watched: what threads of the program tell one another is none of the phone's business.
int co_cond_wait(std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock,
                 const timespec* p_until)
{
    return clock_cond_wait(p_cond, *p_lock, p_until != nullptr ? to_ns(*p_until) : forever) ? 0 : ETIMEDOUT;
}

} // namespace

// clang-format off
const plat_callouts phone_co = {
    .open          = co_open,
    .close         = co_close,
    .read          = co_read,
    .write         = co_write,
    .lseek         = co_lseek,
    .ftruncate     = [](int fd, off_t length) { return watched("ftruncate", path_of(fd), -1, [&] { return ::ftruncate(fd, length); }); },
    .fsync         = [](int fd) { return watched("fsync", path_of(fd), -1, [&] { return ::fsync(fd); }); },
    .ioctl         = co_ioctl,
    .fcntl         = [](int fd, int cmd, long arg) { return watched("fcntl", path_of(fd), -1, [&] { return ::fcntl(fd, cmd, arg); }); },
    .mmap          = co_mmap,
    .munmap        = [](void* addr, std::size_t size) { return watched("munmap", "", -1, [&] { return ::munmap(addr, size); }); },
    .pipe          = co_pipe,
    .poll          = co_poll,
    .select        = co_select,
    .stat          = co_stat,
    .access        = co_access,
    .opendir       = co_opendir,
    .readdir       = co_readdir,
    .closedir      = co_closedir,
    .rename        = co_rename,
    .unlink        = [](const char* path) { return on_host("unlink", path, false, [](const char* host) { return ::unlink(host); }); },
    .symlink       = [](const char* target, const char* path) { return on_host("symlink", path, false, [&](const char* host) { return ::symlink(target, host); }); },
    .mkdir         = [](const char* path, mode_t mode) { return on_host("mkdir", path, false, [&](const char* host) { return ::mkdir(host, mode); }); },
    .rmdir         = [](const char* path) { return on_host("rmdir", path, false, [](const char* host) { return ::rmdir(host); }); },
    .system        = co_system,
    .popen         = co_popen,
    .pclose        = [](FILE* stream) { return watched("pclose", "", -1, [&] { return toolbox_pclose(stream); }); },
    .mount         = co_mount,
    .umount        = co_umount,
    .statfs        = co_statfs,
    .sync          = [] { watched("sync", "", -1, [] { ::sync(); return 0; }); },
    .dlopen        = co_dlopen,
    .dlsym         = co_dlsym,
    .dlclose       = [](void* library) { return watched("dlclose", "", -1, [&] { return ::dlclose(library); }); },
    .uevent_open   = co_uevent_open,
    .uevent_recv   = co_uevent_recv,
    .getaddrinfo   = co_getaddrinfo,
    .socket        = co_socket,
    .connect       = co_connect,
    .send          = co_send,
    .setsockopt    = co_setsockopt,
    .hci_open_dev  = co_hci_open_dev,
    .hci_send_cmd  = co_hci_send_cmd,
    .clock_gettime = co_clock_gettime,
    .nanosleep     = co_nanosleep,
    .timer_create  = co_timer_create,
    .timer_settime = co_timer_settime,
    .timer_gettime = [](timer_t timer, itimerspec* p_out) { return watched("timer_gettime", "", -1, [&] { return gettime(timer, p_out); }); },
    .timer_delete  = co_timer_delete,
    .cond_wait     = co_cond_wait,
    .cond_wake     = [](std::condition_variable* p_cond) { clock_cond_wake(p_cond); },
    .host_path     = [](const char* path) { return path_is_lacking(path) ? std::string() : host_path(path); },
};
// clang-format on

} // namespace phone
