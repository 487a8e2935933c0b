// The waits of the program's threads and of the phone's own.
#include <algorithm>
#include <atomic>
#include <iterator>
#include <sys/timerfd.h>
#include <unistd.h>

#include "core/clock_inner.h"
#include "core/kept_set.h"

namespace phone {

using namespace clock_inner;

namespace {

// The main loop's last wait for input.
struct {
    bool ran; // at least once
    bool waits;
    int nfds;
    fd_set rd;
} loop;

std::atomic<unsigned> descriptor_changes;

// Has a timer descriptor ring after `timeout` of the host's time; forever: not at all.
void set_timer(int timer_fd, nanoseconds timeout)
{
    itimerspec t{};
    if (timeout != forever)
        t.it_value = clock_timespec(std::max<nanoseconds>(timeout, 1));
    timerfd_settime(timer_fd, 0, &t, nullptr);
}

void kick_one_locked(const waiter& w)
{
    if (w.timer_fd >= 0) {
        set_timer(w.timer_fd, host_time_to_locked(w.deadline));
        return;
    }
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t n = ::write(w.kick_fd, &one, sizeof one);
}

// What select is asked for, and what it has found; the descriptors to read, to write, and exceptions.
struct select_sets {
    int nfds;
    fd_set wanted[3];
    fd_set found[3];
};

void take_kick()
{
    std::uint64_t kicks;
    [[maybe_unused]] const ssize_t n = ::read(own_mark().kick_fd, &kicks, sizeof kicks);
}

// Blocks with `wait_host(timeout)` until it gives a result other than 0, or the waiter's deadline comes.
// wait_host waits for the thread's kick_fd too, takes a kick, and gives 0 when only that, or its time-out,
// ended it. `p_loop`: what the main loop waits for, if it is that.
template <typename Wait>
int block(waiter& w, const select_sets* p_loop, Wait wait_host)
{
    clock_library_goes_on();
    std::unique_lock lock(clock_mutex);
    if (p_loop != nullptr)
        loop = {true, true, p_loop->nfds, p_loop->wanted[0]};
    begin_wait_locked(own_mark(), w);
    int result;
    do {
        const nanoseconds timeout = host_time_to_locked(w.deadline);
        lock.unlock();
        result = wait_host(timeout);
        lock.lock();
    } while (result == 0 && (w.deadline == forever || now_locked() < w.deadline));
    if (p_loop != nullptr)
        loop.waits = false;
    end_wait_locked(own_mark(), w);
    return result;
}

// Waits for a kick alone.
void wait_for_kick(nanoseconds timeout)
{
    pollfd fd{own_mark().kick_fd, POLLIN, 0};
    const timespec t = clock_timespec(timeout);
    if (::ppoll(&fd, 1, timeout == forever ? nullptr : &t, nullptr) > 0)
        take_kick();
}

bool any_ready(std::vector<pollfd> fds)
{
    return ::poll(fds.data(), fds.size(), 0) > 0;
}

bool any_ready(const select_sets& sets)
{
    fd_set found[3];
    std::copy(std::begin(sets.wanted), std::end(sets.wanted), std::begin(found));
    timeval none{};
    return ::select(sets.nfds, &found[0], &found[1], &found[2], &none) > 0;
}

// select with the thread's kick_fd beside the descriptors that are wanted.
int select_or_kick(select_sets& sets, nanoseconds timeout)
{
    const int kick_fd = own_mark().kick_fd;
    std::copy(std::begin(sets.wanted), std::end(sets.wanted), std::begin(sets.found));
    FD_SET(kick_fd, &sets.found[0]);
    const timespec t = clock_timespec(timeout);
    return ::pselect(std::max(sets.nfds, kick_fd + 1), &sets.found[0], &sets.found[1], &sets.found[2],
                     timeout == forever ? nullptr : &t, nullptr);
}

// The same for the loop, which waits for ever and for the same descriptors nearly each time.
int loop_select_or_kick(select_sets& sets)
{
    static kept_set kept;
    const int kick_fd = own_mark().kick_fd;
    fd_set wanted = sets.wanted[0];
    FD_SET(kick_fd, &wanted);
    if (!kept.keep(std::max(sets.nfds, kick_fd + 1), wanted, descriptor_changes))
        return select_or_kick(sets, forever);
    FD_ZERO(&sets.found[1]);
    FD_ZERO(&sets.found[2]);
    return kept.wait(sets.found[0]);
}

// A kick is none of the descriptors that were asked for.
int without_kick(select_sets& sets, int count)
{
    const int kick_fd = own_mark().kick_fd;
    if (count <= 0 || !FD_ISSET(kick_fd, &sets.found[0]))
        return count;
    take_kick();
    FD_CLR(kick_fd, &sets.found[0]);
    return count - 1;
}

// What an expiry brings that was due before the time was over comes before the time-out, however late a busy
// host is with it.
int poll_behind_expiries(pollfd* fds, nfds_t count, nanoseconds deadline)
{
    constexpr int most_looks = 200;
    for (int i = 0; i < most_looks; i++) {
        {
            const std::lock_guard lock(clock_mutex);
            if (!expiries_under_way_locked(deadline))
                break;
        }
        if (const int n = ::poll(fds, count, 1); n != 0)
            return n;
    }
    return ::poll(fds, count, 0);
}

} // namespace

std::vector<waiter*> clock_inner::waiters;

void clock_inner::kick_locked()
{
    for (const waiter* w : waiters)
        kick_one_locked(*w);
}

bool clock_inner::loop_idle_locked()
{
    if (!loop.waits)
        return false;
    fd_set rd = loop.rd;
    timeval none{};
    return ::select(loop.nfds, &rd, nullptr, nullptr, &none) == 0;
}

bool clock_inner::loop_has_input_locked()
{
    return loop.waits && !loop_idle_locked();
}

std::set<pid_t> clock_inner::ready_locked()
{
    std::set<pid_t> tids;
    for (const waiter* w : waiters)
        if (!w->counted && w->ready && w->ready())
            tids.insert(w->tid);
    return tids;
}

void clock_inner::begin_wait_locked(thread_mark& mark, waiter& w)
{
    mark.take_back_locked();
    mark.enter_locked(false); // perhaps a thread of the program that the clock meets for the first time
    w.kick_fd = mark.kick_fd;
    w.tid = mark.tid;
    w.counted = false;
    follow_change_locked(mark, w.deadline);
    waiters.push_back(&w);
    mark.blocked = true;
    at_work--;
    work_changed_locked();
}

void clock_inner::end_wait_locked(thread_mark& mark, waiter& w)
{
    follow_change_locked(mark, 0);
    if (!w.counted)
        at_work++;
    mark.blocked = false;
    std::erase(waiters, &w);
    work_changed_locked();
}

void clock_sleep_until(nanoseconds deadline)
{
    waiter w{deadline};
    block(w, nullptr, [](nanoseconds timeout) {
        wait_for_kick(timeout);
        return 0;
    });
}

bool clock_cond_wait(const void* p_cond, std::unique_lock<std::mutex>& lock, nanoseconds deadline)
{
    waiter w{deadline};
    w.p_cond = p_cond;
    // The clock knows of the wait before the mutex is free: no wake is lost.
    block(w, nullptr, [&](nanoseconds timeout) {
        if (lock.owns_lock())
            lock.unlock();
        wait_for_kick(timeout);
        return w.woken ? 1 : 0;
    });
    lock.lock();
    return w.woken;
}

void clock_cond_wake(const void* p_cond)
{
    const std::lock_guard lock(clock_mutex);
    for (waiter* w : waiters) {
        if (w->p_cond != p_cond || w->woken)
            continue;
        w->woken = true;
        if (!w->counted)
            at_work++;
        w->counted = true;
        kick_one_locked(*w);
    }
}

namespace {

void library_waits(std::vector<pollfd> fds, int timer_fd, nanoseconds deadline)
{
    clock_library_goes_on();
    thread_mark& mark = own_mark();
    const std::lock_guard lock(clock_mutex);
    mark.in_library = true;
    mark.library.deadline = deadline;
    mark.library.timer_fd = timer_fd;
    mark.library.ready = [all = std::move(fds)] { return any_ready(all); };
    begin_wait_locked(mark, mark.library);
    if (timer_fd >= 0)
        kick_one_locked(mark.library);
}

} // namespace

void clock_library_waits(const pollfd* fds, nfds_t count)
{
    library_waits({fds, fds + count}, -1, forever);
}

void clock_library_waits_until(int timer_fd, nanoseconds deadline)
{
    library_waits({{timer_fd, POLLIN, 0}}, timer_fd, deadline);
}

void clock_library_goes_on()
{
    thread_mark& mark = own_mark();
    if (!mark.in_library)
        return;
    const std::lock_guard lock(clock_mutex);
    mark.in_library = false;
    end_wait_locked(mark, mark.library);
}

int clock_poll(pollfd* fds, nfds_t count, nanoseconds timeout)
{
    if (timeout == 0)
        return ::poll(fds, count, 0);
    std::vector<pollfd> all(fds, fds + count);
    all.push_back({own_mark().kick_fd, POLLIN, 0});
    waiter w{timeout == forever ? forever : clock_now(CLOCK_MONOTONIC) + timeout};
    w.ready = [asked = std::vector<pollfd>(fds, fds + count)] { return any_ready(asked); };
    const int result = block(w, nullptr, [&](nanoseconds host) {
        const timespec t = clock_timespec(host);
        int n = ::ppoll(all.data(), all.size(), host == forever ? nullptr : &t, nullptr);
        if (n > 0 && all.back().revents != 0) {
            take_kick();
            n--;
        }
        for (nfds_t i = 0; i < count; i++)
            fds[i].revents = all[i].revents;
        return n;
    });
    return result == 0 ? poll_behind_expiries(fds, count, w.deadline) : result;
}

int clock_select(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, nanoseconds timeout)
{
    fd_set* const given[3] = {rd, wr, ex};
    select_sets sets{};
    sets.nfds = nfds;
    for (int i = 0; i < 3; i++)
        if (given[i] != nullptr)
            sets.wanted[i] = *given[i];
    const bool is_loop = timeout == forever && own_mark().is_main;
    const bool keep = is_loop && wr == nullptr && ex == nullptr;
    waiter w{timeout == forever ? forever : clock_now(CLOCK_MONOTONIC) + timeout};
    if (!is_loop)
        w.ready = [&sets] { return any_ready(sets); };
    const int result = block(w, is_loop ? &sets : nullptr, [&](nanoseconds host) {
        return without_kick(sets, keep ? loop_select_or_kick(sets) : select_or_kick(sets, host));
    });
    for (int i = 0; i < 3 && result >= 0; i++) {
        if (given[i] == nullptr)
            continue;
        if (result > 0)
            *given[i] = sets.found[i];
        else
            FD_ZERO(given[i]);
    }
    return result;
}

void clock_kick()
{
    const std::lock_guard lock(clock_mutex);
    descriptor_changes++;
    kick_locked();
}

void clock_descriptor_closed(int fd)
{
    const std::lock_guard lock(clock_mutex);
    if (fd >= 0 && fd < loop.nfds && FD_ISSET(fd, &loop.rd))
        descriptor_changes++;
}

bool clock_loop_runs()
{
    const std::lock_guard lock(clock_mutex);
    return loop.ran;
}

} // namespace phone
