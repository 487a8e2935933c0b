// The one seam to the operating system. Modules reach files, nodes, shell lines, libraries, clocks and waits
// through these functions and through nothing else, so that the same modules run on the phone (plat_linux)
// and on the virtual phone (a table of its own). Every function has the shape, the results and the errno of
// the POSIX or Linux function whose name it carries. Threads, mutexes, zlib, Lua and libasound aren't here:
// they are called directly; but what a thread waits for with a limit goes through plat_wait_for, since the
// limit is the phone's time. plat_attach comes before everything else in main.
#pragma once

#include <condition_variable>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <netdb.h>
#include <poll.h>
#include <string>
#include <sys/mman.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/vfs.h>
#include <unistd.h>

// The callout table. Its owner keeps it alive for the life of the process.
struct plat_callouts {
    // files and nodes
    int (*open)(const char* path, int flags, mode_t mode);
    int (*close)(int fd);
    ssize_t (*read)(int fd, void* buf, std::size_t size);
    ssize_t (*write)(int fd, const void* buf, std::size_t size);
    off_t (*lseek)(int fd, off_t offset, int whence);
    int (*ftruncate)(int fd, off_t length);
    int (*fsync)(int fd);
    int (*ioctl)(int fd, unsigned long request, void* arg);
    int (*fcntl)(int fd, int cmd, long arg);
    void* (*mmap)(void* addr, std::size_t size, int prot, int flags, int fd, off_t offset);
    int (*munmap)(void* addr, std::size_t size);
    int (*pipe)(int fds[2]);
    int (*poll)(pollfd* fds, nfds_t count, int timeout_ms);
    int (*select)(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, timeval* timeout);
    int (*stat)(const char* path, struct stat* p_out);
    int (*access)(const char* path, int mode);
    DIR* (*opendir)(const char* path);
    dirent* (*readdir)(DIR* dir);
    int (*closedir)(DIR* dir);
    int (*rename)(const char* from, const char* to);
    int (*unlink)(const char* path);
    int (*symlink)(const char* target, const char* path);
    int (*mkdir)(const char* path, mode_t mode);
    int (*rmdir)(const char* path);
    // the system
    int (*system)(const char* line);
    FILE* (*popen)(const char* line, const char* mode);
    int (*pclose)(FILE* stream);
    int (*mount)(const char* device, const char* dir, const char* type, unsigned long flags,
                 const void* data);
    int (*umount)(const char* dir);
    int (*statfs)(const char* path, struct statfs* p_out);
    void (*sync)();
    void* (*dlopen)(const char* name, int flags);
    void* (*dlsym)(void* library, const char* name);
    int (*dlclose)(void* library);
    int (*uevent_open)();
    ssize_t (*uevent_recv)(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred);
    // the network
    int (*getaddrinfo)(const char* host, const char* service, const addrinfo* p_hints, addrinfo** pp_found);
    int (*socket)(int domain, int type, int protocol);
    int (*connect)(int fd, const sockaddr* p_addr, socklen_t size);
    ssize_t (*send)(int fd, const void* buf, std::size_t size);
    int (*setsockopt)(int fd, int level, int option, const void* p_value, socklen_t size);
    // Bluetooth
    int (*hci_open_dev)(int device);
    int (*hci_send_cmd)(int fd, std::uint16_t ogf, std::uint16_t ocf, std::uint8_t size, const void* p_param);
    // time
    int (*clock_gettime)(clockid_t clock, timespec* p_out);
    int (*nanosleep)(const timespec* p_time, timespec* p_left);
    int (*timer_create)(clockid_t clock, sigevent* p_event, timer_t* p_timer);
    int (*timer_settime)(timer_t timer, int flags, const itimerspec* p_new, itimerspec* p_old);
    int (*timer_gettime)(timer_t timer, itimerspec* p_out);
    int (*timer_delete)(timer_t timer);
    // threads that wait for one another
    int (*cond_wait)(std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock,
                     const timespec* p_until);
    void (*cond_wake)(std::condition_variable* p_cond);
    // where a library must open a file by itself
    std::string (*host_path)(const char* path);
};

// Puts a table in force; it must be whole.
void plat_attach(const plat_callouts* p_co);

int plat_open(const char* path, int flags, mode_t mode = 0);
int plat_close(int fd);
ssize_t plat_read(int fd, void* buf, std::size_t size);
ssize_t plat_write(int fd, const void* buf, std::size_t size);
off_t plat_lseek(int fd, off_t offset, int whence);
int plat_ftruncate(int fd, off_t length);
int plat_fsync(int fd);
int plat_ioctl(int fd, unsigned long request, void* arg);
int plat_fcntl(int fd, int cmd, long arg = 0);
void* plat_mmap(void* addr, std::size_t size, int prot, int flags, int fd, off_t offset);
int plat_munmap(void* addr, std::size_t size);
int plat_pipe(int fds[2]);
int plat_poll(pollfd* fds, nfds_t count, int timeout_ms);
int plat_select(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, timeval* timeout);
int plat_stat(const char* path, struct stat* p_out);
int plat_access(const char* path, int mode);
DIR* plat_opendir(const char* path);
dirent* plat_readdir(DIR* dir);
int plat_closedir(DIR* dir);
int plat_rename(const char* from, const char* to);
int plat_unlink(const char* path);
int plat_symlink(const char* target, const char* path);
int plat_mkdir(const char* path, mode_t mode);
int plat_rmdir(const char* path);

// A stdio stream over plat_open, plat_read, plat_write and plat_lseek; `mode` as for fopen. Closed with
// fclose.
FILE* plat_fopen(const char* path, const char* mode);

int plat_system(const char* line);
FILE* plat_popen(const char* line, const char* mode);
int plat_pclose(FILE* stream);
int plat_mount(const char* device, const char* dir, const char* type, unsigned long flags, const void* data);
int plat_umount(const char* dir);
int plat_statfs(const char* path, struct statfs* p_out);
void plat_sync();
void* plat_dlopen(const char* name, int flags);
void* plat_dlsym(void* library, const char* name);
int plat_dlclose(void* library);

// A descriptor that hears the kernel's uevents (netlink, all groups), close-on-exec; -1 and errno when that
// fails.
int plat_uevent_open();

// The sender of a uevent that came to this descriptor alone, from whomever.
constexpr std::uint32_t PLAT_UEVENT_UNICAST = UINT32_MAX;

// One uevent into `buf` of `size` bytes. `*p_sender` is the netlink port of the sender, 0 for a broadcast of
// the kernel; `*p_cred` its credentials, pid and uid -1 when it came without. Result and errno as of recvmsg.
ssize_t plat_uevent_recv(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred);

// What is found is freed with freeaddrinfo. A send to a peer that is gone fails with EPIPE and raises no
// signal. The descriptor is read and closed as any other.
int plat_getaddrinfo(const char* host, const char* service, const addrinfo* p_hints, addrinfo** pp_found);
int plat_socket(int domain, int type, int protocol);
int plat_connect(int fd, const sockaddr* p_addr, socklen_t size);
ssize_t plat_send(int fd, const void* buf, std::size_t size);
int plat_setsockopt(int fd, int level, int option, const void* p_value, socklen_t size);

// A raw HCI socket, tied to Bluetooth device `device`; it is read, polled and closed as any other descriptor.
// And a command through it: opcode group and command, `size` bytes of parameters. Both as the functions of
// that name in libbluetooth: -1 and errno when they fail.
int plat_hci_open_dev(int device);
int plat_hci_send_cmd(int fd, std::uint16_t ogf, std::uint16_t ocf, std::uint8_t size, const void* p_param);

int plat_clock_gettime(clockid_t clock, timespec* p_out);
int plat_nanosleep(const timespec* p_time, timespec* p_left);
int plat_timer_create(clockid_t clock, sigevent* p_event, timer_t* p_timer);
int plat_timer_settime(timer_t timer, int flags, const itimerspec* p_new, itimerspec* p_old);
int plat_timer_gettime(timer_t timer, itimerspec* p_out);
int plat_timer_delete(timer_t timer);

// As pthread_cond_timedwait: `*p_until` is a moment of CLOCK_MONOTONIC, NULL for no limit; 0, or ETIMEDOUT.
// It may return early: plat_wait_for and plat_wait look again. What waits here is woken by plat_cond_wake
// alone, never by the condition's own notify_one; the wake goes to all who wait.
int plat_cond_wait(std::condition_variable& cond, std::unique_lock<std::mutex>& lock,
                   const timespec* p_until = nullptr);
void plat_cond_wake(std::condition_variable& cond);

// The moment of CLOCK_MONOTONIC in `us` microseconds; negative ones count as 0.
timespec plat_time_in(std::int64_t us);

// Waits with the mutex of `lock` free until `is_so()`, for at most `us` microseconds of the phone's time. The
// result is that of `is_so()`, which is called with the mutex taken. Who makes it so does it with the mutex
// taken, and calls plat_cond_wake.
template <typename Test>
bool plat_wait_for(std::condition_variable& cond, std::unique_lock<std::mutex>& lock, std::int64_t us,
                   Test is_so)
{
    const timespec until = plat_time_in(us);
    while (!is_so())
        if (plat_cond_wait(cond, lock, &until) != 0)
            return is_so();
    return true;
}

// The same without a limit.
template <typename Test>
void plat_wait(std::condition_variable& cond, std::unique_lock<std::mutex>& lock, Test is_so)
{
    while (!is_so())
        plat_cond_wait(cond, lock);
}

// Where `path` of the phone lies for a library that opens files by itself (Lua's loader, gzopen): the path
// itself on the phone. An empty text when the path can't be resolved.
std::string plat_host_path(const char* path);
