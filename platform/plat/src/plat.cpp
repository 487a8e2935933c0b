#include "plat/plat.h"

#include <algorithm>

#include "check/check.h"

namespace {
const plat_callouts* p_plat_co;
} // namespace

void plat_attach(const plat_callouts* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_plat_co = p_co;
}

int plat_open(const char* path, int flags, mode_t mode)
{
    return p_plat_co->open(path, flags, mode);
}

int plat_close(int fd)
{
    return p_plat_co->close(fd);
}

ssize_t plat_read(int fd, void* buf, std::size_t size)
{
    return p_plat_co->read(fd, buf, size);
}

ssize_t plat_write(int fd, const void* buf, std::size_t size)
{
    return p_plat_co->write(fd, buf, size);
}

off_t plat_lseek(int fd, off_t offset, int whence)
{
    return p_plat_co->lseek(fd, offset, whence);
}

int plat_ftruncate(int fd, off_t length)
{
    return p_plat_co->ftruncate(fd, length);
}

int plat_fsync(int fd)
{
    return p_plat_co->fsync(fd);
}

int plat_ioctl(int fd, unsigned long request, void* arg)
{
    return p_plat_co->ioctl(fd, request, arg);
}

int plat_fcntl(int fd, int cmd, long arg)
{
    return p_plat_co->fcntl(fd, cmd, arg);
}

void* plat_mmap(void* addr, std::size_t size, int prot, int flags, int fd, off_t offset)
{
    return p_plat_co->mmap(addr, size, prot, flags, fd, offset);
}

int plat_munmap(void* addr, std::size_t size)
{
    return p_plat_co->munmap(addr, size);
}

int plat_pipe(int fds[2])
{
    return p_plat_co->pipe(fds);
}

int plat_poll(pollfd* fds, nfds_t count, int timeout_ms)
{
    return p_plat_co->poll(fds, count, timeout_ms);
}

int plat_select(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, timeval* timeout)
{
    return p_plat_co->select(nfds, rd, wr, ex, timeout);
}

int plat_stat(const char* path, struct stat* p_out)
{
    return p_plat_co->stat(path, p_out);
}

int plat_access(const char* path, int mode)
{
    return p_plat_co->access(path, mode);
}

DIR* plat_opendir(const char* path)
{
    return p_plat_co->opendir(path);
}

dirent* plat_readdir(DIR* dir)
{
    return p_plat_co->readdir(dir);
}

int plat_closedir(DIR* dir)
{
    return p_plat_co->closedir(dir);
}

int plat_rename(const char* from, const char* to)
{
    return p_plat_co->rename(from, to);
}

int plat_unlink(const char* path)
{
    return p_plat_co->unlink(path);
}

int plat_symlink(const char* target, const char* path)
{
    return p_plat_co->symlink(target, path);
}

int plat_mkdir(const char* path, mode_t mode)
{
    return p_plat_co->mkdir(path, mode);
}

int plat_rmdir(const char* path)
{
    return p_plat_co->rmdir(path);
}

int plat_system(const char* line)
{
    return p_plat_co->system(line);
}

FILE* plat_popen(const char* line, const char* mode)
{
    return p_plat_co->popen(line, mode);
}

int plat_pclose(FILE* stream)
{
    return p_plat_co->pclose(stream);
}

int plat_mount(const char* device, const char* dir, const char* type, unsigned long flags, const void* data)
{
    return p_plat_co->mount(device, dir, type, flags, data);
}

int plat_umount(const char* dir)
{
    return p_plat_co->umount(dir);
}

int plat_statfs(const char* path, struct statfs* p_out)
{
    return p_plat_co->statfs(path, p_out);
}

void plat_sync()
{
    p_plat_co->sync();
}

void* plat_dlopen(const char* name, int flags)
{
    return p_plat_co->dlopen(name, flags);
}

void* plat_dlsym(void* library, const char* name)
{
    return p_plat_co->dlsym(library, name);
}

int plat_dlclose(void* library)
{
    return p_plat_co->dlclose(library);
}

int plat_uevent_open()
{
    return p_plat_co->uevent_open();
}

ssize_t plat_uevent_recv(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred)
{
    return p_plat_co->uevent_recv(fd, buf, size, p_sender, p_cred);
}

int plat_getaddrinfo(const char* host, const char* service, const addrinfo* p_hints, addrinfo** pp_found)
{
    return p_plat_co->getaddrinfo(host, service, p_hints, pp_found);
}

int plat_socket(int domain, int type, int protocol)
{
    return p_plat_co->socket(domain, type, protocol);
}

int plat_connect(int fd, const sockaddr* p_addr, socklen_t size)
{
    return p_plat_co->connect(fd, p_addr, size);
}

ssize_t plat_send(int fd, const void* buf, std::size_t size)
{
    return p_plat_co->send(fd, buf, size);
}

int plat_setsockopt(int fd, int level, int option, const void* p_value, socklen_t size)
{
    return p_plat_co->setsockopt(fd, level, option, p_value, size);
}

int plat_hci_open_dev(int device)
{
    return p_plat_co->hci_open_dev(device);
}

int plat_hci_send_cmd(int fd, std::uint16_t ogf, std::uint16_t ocf, std::uint8_t size, const void* p_param)
{
    return p_plat_co->hci_send_cmd(fd, ogf, ocf, size, p_param);
}

int plat_clock_gettime(clockid_t clock, timespec* p_out)
{
    return p_plat_co->clock_gettime(clock, p_out);
}

int plat_nanosleep(const timespec* p_time, timespec* p_left)
{
    return p_plat_co->nanosleep(p_time, p_left);
}

int plat_timer_create(clockid_t clock, sigevent* p_event, timer_t* p_timer)
{
    return p_plat_co->timer_create(clock, p_event, p_timer);
}

int plat_timer_settime(timer_t timer, int flags, const itimerspec* p_new, itimerspec* p_old)
{
    return p_plat_co->timer_settime(timer, flags, p_new, p_old);
}

int plat_timer_gettime(timer_t timer, itimerspec* p_out)
{
    return p_plat_co->timer_gettime(timer, p_out);
}

int plat_timer_delete(timer_t timer)
{
    return p_plat_co->timer_delete(timer);
}

int plat_cond_wait(std::condition_variable& cond, std::unique_lock<std::mutex>& lock, const timespec* p_until)
{
    return p_plat_co->cond_wait(&cond, &lock, p_until);
}

void plat_cond_wake(std::condition_variable& cond)
{
    p_plat_co->cond_wake(&cond);
}

timespec plat_time_in(std::int64_t us)
{
    constexpr std::int64_t us_per_s = 1'000'000;
    constexpr std::int64_t ns_per_s = 1'000'000'000;
    timespec t{};
    plat_clock_gettime(CLOCK_MONOTONIC, &t);
    us = std::max<std::int64_t>(us, 0);
    const std::int64_t ns = t.tv_nsec + us % us_per_s * 1000;
    t.tv_sec += static_cast<std::time_t>(us / us_per_s + ns / ns_per_s);
    t.tv_nsec = static_cast<long>(ns % ns_per_s);
    return t;
}

std::string plat_host_path(const char* path)
{
    return p_plat_co->host_path(path);
}
