#include "core/clock.h"

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <list>
#include <memory>
#include <mutex>
#include <set>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "core/thread_look.h"

namespace phone {

namespace {

constexpr nanoseconds ns_per_s = 1'000'000'000;

// A thread that is blocked: until when, and the eventfd that wakes it before.
struct waiter {
    nanoseconds deadline;
    int kick_fd;
    bool counted; // a step has already counted it as at work again
};

struct timer {
    int id;
    nanoseconds deadline; // forever when disarmed
    nanoseconds interval;
    std::shared_ptr<std::function<void()>> fire;
};

std::mutex clock_mutex; // guards all below
std::condition_variable work_changed;
nanoseconds host_base;  // the host's clock at the last change of pace
nanoseconds phone_base; // the phone's clock at that moment
nanoseconds wall_offset;
double pace = 1;
bool held;
std::vector<waiter*> waiters;
std::list<timer> timers;
int next_timer = 1;
int at_work;            // threads that aren't blocked
std::uint64_t activity; // grows with every block and wake, so that a stuck worker can be told from a busy one

// The main loop's last wait for input.
bool loop_ran;
bool loop_waits;
int loop_nfds;
fd_set loop_rd;
std::thread::id main_thread;

nanoseconds host_now(clockid_t clock)
{
    timespec t;
    ::clock_gettime(clock, &t);
    return t.tv_sec * ns_per_s + t.tv_nsec;
}

nanoseconds now_locked()
{
    if (held)
        return phone_base;
    return phone_base +
           static_cast<nanoseconds>(static_cast<double>(host_now(CLOCK_MONOTONIC) - host_base) * pace);
}

void rebase_locked()
{
    phone_base = now_locked();
    host_base = host_now(CLOCK_MONOTONIC);
}

void kick_locked()
{
    for (const waiter* w : waiters) {
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t n = ::write(w->kick_fd, &one, sizeof one);
    }
}

// How long the host waits for `deadline`; forever while the clock stands.
nanoseconds host_time_to_locked(nanoseconds deadline)
{
    if (deadline == forever || held)
        return forever;
    const nanoseconds left = deadline - now_locked();
    if (left <= 0)
        return 0;
    const double host = static_cast<double>(left) / pace;
    return host > 1e18 ? forever : static_cast<nanoseconds>(host) + 1;
}

struct thread_mark;
std::vector<const thread_mark*> known_threads; // guarded by clock_mutex

// Each thread's own wake-up descriptor, and its place in the count of those at work.
struct thread_mark {
    int kick_fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    pid_t tid = gettid();
    bool known = false;   // its work is counted
    bool blocked = false; // in one of the waits of this file
    ~thread_mark()
    {
        if (known)
            leave();
        close(kick_fd);
    }
    void enter_locked(bool counted)
    {
        if (known)
            return;
        known = true;
        known_threads.push_back(this);
        at_work += counted ? 0 : 1;
    }
    void leave()
    {
        const std::lock_guard lock(clock_mutex);
        leave_locked();
    }
    void leave_locked()
    {
        known = false;
        std::erase(known_threads, this);
        at_work--;
        activity++;
        work_changed.notify_all();
    }
};

thread_local thread_mark mark;

void take_kick()
{
    std::uint64_t kicks;
    [[maybe_unused]] const ssize_t n = ::read(mark.kick_fd, &kicks, sizeof kicks);
}

// Blocks with `wait_host(timeout)` until it gives a result other than 0, or the deadline comes. wait_host
// waits for the thread's kick_fd too, takes a kick, and gives 0 when only that, or its time-out, ended it.
template <typename Wait>
int block(nanoseconds deadline, Wait wait_host)
{
    waiter w{deadline, mark.kick_fd, false};
    std::unique_lock lock(clock_mutex);
    mark.enter_locked(false); // perhaps a thread of the program that the clock meets for the first time
    waiters.push_back(&w);
    mark.blocked = true;
    at_work--;
    activity++;
    work_changed.notify_all();
    int result;
    do {
        const nanoseconds timeout = host_time_to_locked(deadline);
        lock.unlock();
        result = wait_host(timeout);
        lock.lock();
    } while (result == 0 && now_locked() < deadline);
    if (!w.counted)
        at_work++;
    mark.blocked = false;
    activity++;
    std::erase(waiters, &w);
    return result;
}

timespec to_timespec(nanoseconds t)
{
    return {t / ns_per_s, t % ns_per_s};
}

nanoseconds next_timer_locked()
{
    nanoseconds next = forever;
    for (const timer& t : timers)
        next = std::min(next, t.deadline);
    return next;
}

// Expiries run on worker threads. All workers that have nothing to do wait for one timer of the host's, which
// wakes one of them; there is always one more than expiries run at the same time.
std::deque<std::shared_ptr<std::function<void()>>> expiries;
std::size_t idle_workers;
int host_timer = -1;
int host_timer_wait = -1; // the epoll descriptor that has the timer
constexpr nanoseconds not_set = -1;
nanoseconds host_timer_set = not_set; // the deadline that the timer is set to

std::set<pid_t> clock_threads; // those that run expiries, whose work is known; guarded by clock_mutex

void set_host_timer_locked()
{
    const nanoseconds next = expiries.empty() ? next_timer_locked() : 0;
    if (next == host_timer_set)
        return;
    host_timer_set = next;
    const nanoseconds timeout = next == 0 ? 0 : host_time_to_locked(next);
    if (timeout == forever)
        return; // a wake-up of before finds nothing to do
    itimerspec t{};
    t.it_value = to_timespec(std::max<nanoseconds>(timeout, 1));
    timerfd_settime(host_timer, 0, &t, nullptr);
}

// Queues what is due, which counts as work from now on.
void queue_due_locked()
{
    const nanoseconds now = now_locked();
    for (;;) {
        const auto due = std::min_element(timers.begin(), timers.end(), [](const timer& a, const timer& b) {
            return a.deadline < b.deadline;
        });
        if (due == timers.end() || due->deadline > now)
            return;
        due->deadline = due->interval > 0 ? due->deadline + due->interval : forever;
        at_work++;
        activity++;
        expiries.push_back(due->fire);
    }
}

void worker_loop();

void add_worker_locked()
{
    idle_workers++;
    std::thread(worker_loop).detach();
}

void worker_loop()
{
    std::unique_lock lock(clock_mutex);
    clock_threads.insert(gettid());
    idle_workers--;
    for (;;) {
        queue_due_locked();
        std::shared_ptr<std::function<void()>> fire;
        if (!expiries.empty()) {
            fire = expiries.front();
            expiries.pop_front();
            if (idle_workers == 0)
                add_worker_locked();
            mark.enter_locked(true); // its work was counted when it was queued
        } else {
            idle_workers++;
        }
        set_host_timer_locked();
        lock.unlock();
        if (fire) {
            (*fire)();
            lock.lock();
            mark.leave_locked();
        } else {
            epoll_event event;
            epoll_wait(host_timer_wait, &event, 1, -1);
            lock.lock();
            host_timer_set = not_set;
            idle_workers--;
        }
    }
}

void start_workers()
{
    host_timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
    host_timer_wait = epoll_create1(EPOLL_CLOEXEC);
    epoll_event event{};
    event.events = EPOLLIN | EPOLLET;
    epoll_ctl(host_timer_wait, EPOLL_CTL_ADD, host_timer, &event);
    const std::lock_guard lock(clock_mutex);
    add_worker_locked();
}

void time_changed_locked()
{
    kick_locked();
    host_timer_set = not_set;
    set_host_timer_locked();
}

// The loop waits, and what it waits for isn't there.
bool loop_idle_locked()
{
    if (!loop_waits)
        return false;
    fd_set rd = loop_rd;
    timeval none{};
    return ::select(loop_nfds, &rd, nullptr, nullptr, &none) == 0;
}

bool loop_has_input_locked()
{
    return loop_waits && !loop_idle_locked();
}

std::set<pid_t> working_locked()
{
    std::set<pid_t> tids;
    for (const thread_mark* p : known_threads)
        if (!p->blocked)
            tids.insert(p->tid);
    return tids;
}

// Waits until no thread is at work and the loop has nothing to read. Threads that wait for something the
// clock can't see don't count, nor one that has worked for 200 ms without a wait; but it may have to wait for
// a busy processor as long as it likes, up to a minute.
void settle(std::unique_lock<std::mutex>& lock)
{
    constexpr long long most_run_ns = 200'000'000;
    const auto bound = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    threads_look look;
    std::uint64_t seen = activity;
    while (at_work > 0 || loop_has_input_locked()) {
        const auto woken = work_changed.wait_for(lock, std::chrono::microseconds(at_work > 0 ? 500 : 50));
        if (woken != std::cv_status::timeout || at_work <= 0)
            continue;
        if (activity != seen)
            look.first.clear();
        seen = activity;
        const std::set<pid_t> tids = working_locked();
        const bool asleep = look.asleep(tids) && static_cast<int>(tids.size()) == at_work;
        if (asleep && !loop_has_input_locked())
            return;
        if (look.run_ns > most_run_ns || std::chrono::steady_clock::now() > bound)
            return;
    }
}

// The threads that the clock doesn't know, or that wait for something that it can't see: those of the program
// that do work beside the loop.
std::set<pid_t> others_locked()
{
    std::set<pid_t> tids = thread_ids();
    tids.erase(gettid());
    tids.erase(getpid());
    for (const pid_t tid : clock_threads)
        tids.erase(tid);
    for (const thread_mark* p : known_threads)
        if (p->blocked)
            tids.erase(p->tid);
    return tids;
}

} // namespace

nanoseconds clock_now(clockid_t clock)
{
    const std::lock_guard lock(clock_mutex);
    return now_locked() + (clock == CLOCK_REALTIME ? wall_offset : 0);
}

void clock_sleep_until(nanoseconds deadline)
{
    block(deadline, [](nanoseconds timeout) {
        pollfd fd{mark.kick_fd, POLLIN, 0};
        const timespec t = to_timespec(timeout);
        if (::ppoll(&fd, 1, timeout == forever ? nullptr : &t, nullptr) > 0)
            take_kick();
        return 0;
    });
}

int clock_poll(pollfd* fds, nfds_t count, nanoseconds timeout)
{
    if (timeout == 0)
        return ::poll(fds, count, 0);
    std::vector<pollfd> all(fds, fds + count);
    all.push_back({mark.kick_fd, POLLIN, 0});
    const nanoseconds deadline = timeout == forever ? forever : clock_now(CLOCK_MONOTONIC) + timeout;
    return block(deadline, [&](nanoseconds host) {
        const timespec t = to_timespec(host);
        int n = ::ppoll(all.data(), all.size(), host == forever ? nullptr : &t, nullptr);
        if (n > 0 && all.back().revents != 0) {
            take_kick();
            n--;
        }
        for (nfds_t i = 0; i < count; i++)
            fds[i].revents = all[i].revents;
        return n;
    });
}

int clock_select(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, nanoseconds timeout)
{
    const auto given = [](const fd_set* p) {
        fd_set none;
        FD_ZERO(&none);
        return p != nullptr ? *p : none;
    };
    const fd_set sets[3] = {given(rd), given(wr), given(ex)};
    fd_set found[3];
    const bool is_loop = timeout == forever && std::this_thread::get_id() == main_thread;
    if (is_loop) {
        const std::lock_guard lock(clock_mutex);
        loop_ran = true;
        loop_waits = true;
        loop_nfds = nfds;
        loop_rd = sets[0];
    }
    const nanoseconds deadline = timeout == forever ? forever : clock_now(CLOCK_MONOTONIC) + timeout;
    const int result = block(deadline, [&](nanoseconds host) {
        std::copy(std::begin(sets), std::end(sets), std::begin(found));
        FD_SET(mark.kick_fd, &found[0]);
        const timespec t = to_timespec(host);
        const int n = ::pselect(std::max(nfds, mark.kick_fd + 1), &found[0], &found[1], &found[2],
                                host == forever ? nullptr : &t, nullptr);
        if (n <= 0 || !FD_ISSET(mark.kick_fd, &found[0]))
            return n;
        take_kick();
        FD_CLR(mark.kick_fd, &found[0]);
        return n - 1;
    });
    if (is_loop) {
        const std::lock_guard lock(clock_mutex);
        loop_waits = false;
    }
    fd_set* const results[3] = {rd, wr, ex};
    for (int i = 0; i < 3 && result >= 0; i++) {
        if (results[i] == nullptr)
            continue;
        if (result > 0)
            *results[i] = found[i];
        else
            FD_ZERO(results[i]);
    }
    return result;
}

void clock_kick()
{
    const std::lock_guard lock(clock_mutex);
    kick_locked();
}

int clock_timer_create(std::function<void()> fire)
{
    const std::lock_guard lock(clock_mutex);
    timers.push_back({next_timer, forever, 0, std::make_shared<std::function<void()>>(std::move(fire))});
    return next_timer++;
}

namespace {

timer* find_timer_locked(int id)
{
    for (timer& t : timers)
        if (t.id == id)
            return &t;
    return nullptr;
}

} // namespace

bool clock_timer_set(int id, nanoseconds time, nanoseconds interval)
{
    const std::lock_guard lock(clock_mutex);
    timer* p = find_timer_locked(id);
    if (p == nullptr)
        return false;
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
    return timers.remove_if([id](const timer& t) { return t.id == id; }) > 0;
}

void clock_thread(std::function<void()> body)
{
    {
        const std::lock_guard lock(clock_mutex);
        at_work++;
    }
    std::thread([body = std::move(body)] {
        {
            const std::lock_guard lock(clock_mutex);
            mark.enter_locked(true);
        }
        body();
    }).detach();
}

bool clock_loop_runs()
{
    const std::lock_guard lock(clock_mutex);
    return loop_ran;
}

void clock_step(nanoseconds span)
{
    std::unique_lock lock(clock_mutex);
    rebase_locked();
    const bool was_held = held;
    held = true;
    const nanoseconds target = phone_base + span;
    for (;;) {
        settle(lock);
        nanoseconds next = next_timer_locked();
        for (const waiter* w : waiters)
            if (!w->counted)
                next = std::min(next, w->deadline);
        if (next > target)
            break;
        phone_base = std::max(phone_base, next);
        for (waiter* w : waiters) {
            if (w->deadline > phone_base || w->counted)
                continue;
            w->counted = true;
            at_work++;
        }
        queue_due_locked();
        time_changed_locked();
    }
    phone_base = std::max(phone_base, target);
    rebase_locked();
    held = was_held;
    time_changed_locked();
}

void clock_hold(bool hold)
{
    const std::lock_guard lock(clock_mutex);
    rebase_locked();
    held = hold;
    time_changed_locked();
}

double clock_speed()
{
    const std::lock_guard lock(clock_mutex);
    return pace;
}

bool clock_settle()
{
    constexpr long long most_run_ns = 1'500'000'000;
    const auto bound = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    threads_look look;
    std::unique_lock lock(clock_mutex);
    for (;;) {
        if (loop_idle_locked()) {
            if (look.asleep(others_locked()) || look.run_ns > most_run_ns)
                return true;
        }
        if (std::chrono::steady_clock::now() > bound)
            return false;
        work_changed.wait_for(lock, std::chrono::microseconds(300));
    }
}

void clock_set_speed(double factor)
{
    const std::lock_guard lock(clock_mutex);
    rebase_locked();
    pace = factor;
    time_changed_locked();
}

void clock_attach()
{
    host_base = phone_base = host_now(CLOCK_MONOTONIC);
    wall_offset = host_now(CLOCK_REALTIME) - phone_base;
    main_thread = std::this_thread::get_id();
    {
        const std::lock_guard lock(clock_mutex);
        mark.enter_locked(false);
    }
    start_workers();
}

} // namespace phone
