// Timers, and the threads that run their expiries. All workers that have nothing to do wait for the timers of
// the host, which wake one of them; there is always one more than expiries run at the same time.
#include <algorithm>
#include <iterator>
#include <list>
#include <memory>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <thread>
#include <unistd.h>

#include "core/clock_inner.h"

namespace phone {

using namespace clock_inner;

namespace {

using expiry = std::shared_ptr<std::function<void()>>; // it may run on when its timer is gone

struct timer {
    int id;
    nanoseconds deadline; // forever when disarmed
    nanoseconds interval;
    expiry fire;
    bool counted = false; // is due, and a step has counted that as work
};

std::list<timer> timers;
int next_timer = 1;

std::size_t idle_workers;
std::set<pid_t> workers;

// A timer of the host's may ring before anything is due: the worker that it wakes sets it anew. So one that
// is set to a moment soon enough is left alone, and with two a far deadline stays set while near ones come
// and go.
struct host_timer {
    int fd;
    nanoseconds deadline; // forever when it isn't set
} host_timers[2];
int host_wait; // the epoll descriptor that has them

timer* find_timer_locked(int id)
{
    for (timer& t : timers)
        if (t.id == id)
            return &t;
    return nullptr;
}

void worker_loop();

void add_worker_locked()
{
    idle_workers++;
    std::thread(worker_loop).detach();
}

std::list<timer>::iterator first_timer_locked()
{
    return std::min_element(timers.begin(), timers.end(),
                            [](const timer& a, const timer& b) { return a.deadline < b.deadline; });
}

void uncount_locked(timer& t)
{
    at_work -= t.counted ? 1 : 0;
    t.counted = false;
}

// The next expiry that is due, or NULL. It counts as the calling worker's work, and another worker is there
// to wait while it runs.
expiry take_due_locked()
{
    const auto due = first_timer_locked();
    if (due == timers.end() || due->deadline > now_locked())
        return nullptr;
    due->deadline = due->interval > 0 ? due->deadline + due->interval : forever;
    own_mark().enter_locked(due->counted);
    due->counted = false;
    if (idle_workers == 0)
        add_worker_locked();
    return due->fire;
}

void wait_for_host_timer(std::unique_lock<std::mutex>& lock)
{
    idle_workers++;
    lock.unlock();
    epoll_event event;
    const int n = epoll_wait(host_wait, &event, 1, -1);
    lock.lock();
    if (n > 0)
        host_timers[event.data.u32].deadline = forever;
    idle_workers--;
}

void worker_loop()
{
    std::unique_lock lock(clock_mutex);
    workers.insert(gettid());
    own_mark().is_worker = true;
    idle_workers--;
    for (;;) {
        const expiry fire = take_due_locked();
        set_host_timer_locked();
        if (fire == nullptr) {
            wait_for_host_timer(lock);
            continue;
        }
        lock.unlock();
        (*fire)();
        lock.lock();
        own_mark().leave_locked();
    }
}

} // namespace

const std::set<pid_t>& clock_inner::workers_locked()
{
    return workers;
}

nanoseconds clock_inner::next_timer_locked()
{
    const auto first = first_timer_locked();
    return first != timers.end() ? first->deadline : forever;
}

bool clock_inner::expiries_under_way_locked(nanoseconds deadline)
{
    return next_timer_locked() <= deadline || expiry_at_work_locked();
}

void clock_inner::set_host_timer_locked()
{
    const nanoseconds next = next_timer_locked();
    const auto [p_sooner, p_later] =
        std::minmax_element(std::begin(host_timers), std::end(host_timers),
                            [](const host_timer& a, const host_timer& b) { return a.deadline < b.deadline; });
    if (p_sooner->deadline <= next)
        return;
    const nanoseconds timeout = host_time_to_locked(next);
    if (timeout == forever)
        return;
    p_later->deadline = next;
    itimerspec t{};
    t.it_value = clock_timespec(std::max<nanoseconds>(timeout, 1));
    timerfd_settime(p_later->fd, 0, &t, nullptr);
}

void clock_inner::reset_host_timer_locked()
{
    for (host_timer& t : host_timers)
        t.deadline = forever;
    set_host_timer_locked();
}

void clock_inner::count_due_timers_locked()
{
    const nanoseconds now = now_locked();
    for (timer& t : timers) {
        if (t.deadline > now || t.counted)
            continue;
        t.counted = true;
        at_work++;
    }
}

void clock_inner::start_workers()
{
    host_wait = epoll_create1(EPOLL_CLOEXEC);
    for (std::uint32_t i = 0; i < std::size(host_timers); i++) {
        host_timers[i] = {timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK), forever};
        epoll_event event{};
        event.events = EPOLLIN | EPOLLET;
        event.data.u32 = i;
        epoll_ctl(host_wait, EPOLL_CTL_ADD, host_timers[i].fd, &event);
    }
    const std::lock_guard lock(clock_mutex);
    add_worker_locked();
}

bool clock_in_expiry()
{
    return own_mark().is_worker;
}

int clock_timer_create(std::function<void()> fire)
{
    const std::lock_guard lock(clock_mutex);
    timers.push_back({next_timer, forever, 0, std::make_shared<std::function<void()>>(std::move(fire))});
    return next_timer++;
}

bool clock_timer_set(int id, nanoseconds time, nanoseconds interval)
{
    const std::lock_guard lock(clock_mutex);
    timer* p = find_timer_locked(id);
    if (p == nullptr)
        return false;
    uncount_locked(*p);
    p->deadline = time > 0 ? now_locked() + time : forever;
    p->interval = interval;
    set_host_timer_locked();
    return true;
}

bool clock_timer_get(int id, nanoseconds* p_left, nanoseconds* p_interval)
{
    const std::lock_guard lock(clock_mutex);
    const timer* p = find_timer_locked(id);
    if (p == nullptr)
        return false;
    // An armed timer never reads as disarmed, even when its moment is here.
    *p_left = p->deadline == forever ? 0 : std::max<nanoseconds>(p->deadline - now_locked(), 1);
    *p_interval = p->interval;
    return true;
}

bool clock_timer_delete(int id)
{
    const std::lock_guard lock(clock_mutex);
    timer* p = find_timer_locked(id);
    if (p == nullptr)
        return false;
    uncount_locked(*p);
    timers.remove_if([p](const timer& t) { return &t == p; });
    return true;
}

} // namespace phone
