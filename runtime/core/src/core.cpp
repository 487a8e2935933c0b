#include "core/core.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <mutex>

#include "check/check.h"
#include "heap/heap.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr int SELECT_FAILURES_IN_A_ROW = 16;
constexpr std::uint32_t SELECT_FAILED_PAUSE_US = 10000;

// A deferred call: at a timer first if it has a delay, then in the list.
struct dfc_rec {
    union { // first: timer and list give its address
        tmr_link timer;
        slnk lnk;
    };
    core_fn fn;
    void* p1;
    void* p2;
};

std::atomic<bool> core_started;
int pfd[2];

std::mutex core_dfc_mutex; // guards the deferred list
slnk core_dfc_list_head;
slnk* core_dfc_list_tail = &core_dfc_list_head; // an append must not cost a walk

std::mutex core_rcc_mutex; // guards the read clients and their descriptors
slnk core_rcc_list_head;
fd_set core_readfds;
fd_set core_ready; // what the pass under way still has to serve
int core_nfds;

bool fits_set(int fd)
{
    return fd >= 0 && fd < FD_SETSIZE;
}

void watch_fd(int fd)
{
    if (!fits_set(fd))
        return;
    FD_SET(fd, &core_readfds);
    core_nfds = std::max(core_nfds, fd + 1);
}

void set_nonblocking(int fd)
{
    const int flags = plat_fcntl(fd, F_GETFL);
    HVT_CHECK(flags != -1);
    HVT_CHECK(plat_fcntl(fd, F_SETFL, flags | O_NONBLOCK) != -1);
}

dfc_rec* pop_deferred()
{
    std::lock_guard lock(core_dfc_mutex);
    slnk* p_obj = slnk_remove_next(&core_dfc_list_head);
    if (slnk_next(&core_dfc_list_head) == nullptr)
        core_dfc_list_tail = &core_dfc_list_head;
    return reinterpret_cast<dfc_rec*>(p_obj);
}

void run_deferred()
{
    while (dfc_rec* p_rec = pop_deferred()) {
        const heap_ptr<dfc_rec> owner(p_rec);
        p_rec->fn(p_rec->p1, p_rec->p2);
    }
}

void empty_pipe()
{
    char bytes[256];
    ssize_t n;
    do {
        n = plat_read(pfd[0], bytes, sizeof bytes);
    } while (n == sizeof bytes || (n < 0 && errno == EINTR)); // fewer: that was all
}

void append_deferred(dfc_rec* p_rec)
{
    {
        std::lock_guard lock(core_dfc_mutex);
        slnk_insert(core_dfc_list_tail, &p_rec->lnk);
        core_dfc_list_tail = &p_rec->lnk;
    }
    // A full pipe is as good: the bytes in it wake the loop.
    if (core_started && plat_write(pfd[1], "x", 1) < 0)
        return;
}

// On the timer thread.
void core_tmr_cb(tmr_link* p_link, std::uint32_t)
{
    append_deferred(reinterpret_cast<dfc_rec*>(p_link));
}

// A descriptor that was closed under its client makes every select fail; without it the others live on.
void drop_closed_fds()
{
    std::lock_guard lock(core_rcc_mutex);
    for (int fd = 0; fd < core_nfds; fd++)
        if (FD_ISSET(fd, &core_readfds) && plat_fcntl(fd, F_GETFD) == -1 && errno == EBADF)
            FD_CLR(fd, &core_readfds);
}

// Waits until something is readable: true with the answer in `*p_ready`, false when the wait failed.
bool wait_readable(fd_set* p_ready)
{
    std::unique_lock lock(core_rcc_mutex);
    *p_ready = core_readfds;
    const int nfds = core_nfds;
    lock.unlock();
    for (;;) {
        if (plat_select(nfds, p_ready, nullptr, nullptr, nullptr) >= 0)
            return true;
        if (errno == EBADF)
            drop_closed_fds();
        if (errno != EINTR)
            return false;
    }
}

slnk* next_client(const slnk* p_obj)
{
    std::lock_guard lock(core_rcc_mutex);
    return slnk_next(p_obj);
}

bool client_ready(const core_rd_cb_client* p_client)
{
    std::lock_guard lock(core_rcc_mutex);
    return fits_set(p_client->fd) && FD_ISSET(p_client->fd, &core_ready);
}

void serve_clients(const fd_set& ready)
{
    {
        std::lock_guard lock(core_rcc_mutex);
        core_ready = ready;
    }
    for (slnk* p_obj = next_client(&core_rcc_list_head); p_obj != nullptr; p_obj = next_client(p_obj)) {
        const auto* p_client = reinterpret_cast<core_rd_cb_client*>(p_obj);
        if (client_ready(p_client))
            p_client->fn(p_client->p1, p_client->p2);
    }
}

void start_watching()
{
    std::lock_guard lock(core_rcc_mutex);
    watch_fd(pfd[0]);
    for (slnk* p_obj = slnk_next(&core_rcc_list_head); p_obj != nullptr; p_obj = slnk_next(p_obj))
        watch_fd(reinterpret_cast<core_rd_cb_client*>(p_obj)->fd);
    core_started = true;
}

[[noreturn]] void run_loop()
{
    for (int failures = 0;;) {
        fd_set ready;
        if (!wait_readable(&ready)) {
            if (++failures >= SELECT_FAILURES_IN_A_ROW)
                tmr_usleep(SELECT_FAILED_PAUSE_US);
            continue;
        }
        failures = 0;
        if (FD_ISSET(pfd[0], &ready)) {
            empty_pipe();
            run_deferred();
        }
        serve_clients(ready);
    }
}

} // namespace

void core_init()
{
    slnk_init(&core_dfc_list_head);
    core_dfc_list_tail = &core_dfc_list_head;
    slnk_init(&core_rcc_list_head);
}

int core_start()
{
    FD_ZERO(&core_readfds);
    if (plat_pipe(pfd) != 0)
        return -1;
    HVT_CHECK(fits_set(pfd[0]));
    set_nonblocking(pfd[0]);
    set_nonblocking(pfd[1]);
    start_watching();
    run_deferred();
    run_loop();
}

void core_dfc(core_fn fn, void* p1, void* p2, std::uint32_t delay_us)
{
    auto* p_rec = static_cast<dfc_rec*>(std::malloc(sizeof(dfc_rec)));
    HVT_CHECK(p_rec != nullptr);
    p_rec->fn = fn;
    p_rec->p1 = p1;
    p_rec->p2 = p2;
    if (delay_us != 0 && core_started)
        tmr_cb_add(&p_rec->timer, core_tmr_cb, delay_us);
    else
        append_deferred(p_rec);
}

void core_add_rd_cb_client(core_rd_cb_client* p_client)
{
    std::lock_guard lock(core_rcc_mutex);
    slnk_add(&core_rcc_list_head, &p_client->lnk);
    if (core_started)
        watch_fd(p_client->fd);
}

void core_rm_rd_cb_client(core_rd_cb_client* p_client)
{
    std::lock_guard lock(core_rcc_mutex);
    slnk_remove(&core_rcc_list_head, &p_client->lnk);
    if (!core_started || !fits_set(p_client->fd))
        return;
    FD_CLR(p_client->fd, &core_readfds);
    FD_CLR(p_client->fd, &core_ready); // should it be added again at once, the next pass serves it
}
