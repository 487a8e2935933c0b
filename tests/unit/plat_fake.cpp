#include "unit/plat_fake.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <list>
#include <mutex>
#include <utility>
#include <vector>

#include "plat_linux/plat_linux.h"

plat_callouts plat_fake_co;

namespace {

constexpr std::uint64_t start_ns = 1375128036ull * 1000000000; // some afternoon

struct fake_timer {
    sigevent event;
    std::uint64_t deadline_ns = 0; // 0: not armed
};

struct fake_state {
    std::uint64_t now_ns = start_ns;
    std::list<fake_timer> timers;
    std::vector<sigevent> on_the_way;
    bool hold = false;
};

std::recursive_mutex fake_mutex;
fake_state fake;

using locked = std::lock_guard<std::recursive_mutex>;

std::uint64_t ns_of(const timespec& t)
{
    return static_cast<std::uint64_t>(t.tv_sec) * 1000000000 + static_cast<std::uint64_t>(t.tv_nsec);
}

timespec timespec_of(std::uint64_t ns)
{
    return {static_cast<time_t>(ns / 1000000000), static_cast<long>(ns % 1000000000)};
}

// The armed timer that is due first, no later than `until`; NULL if there is none.
fake_timer* first_due(std::uint64_t until)
{
    fake_timer* p_first = nullptr;
    for (fake_timer& t : fake.timers)
        if (t.deadline_ns != 0 && t.deadline_ns <= until &&
            (p_first == nullptr || t.deadline_ns < p_first->deadline_ns))
            p_first = &t;
    return p_first;
}

void advance_ns(std::uint64_t ns)
{
    std::unique_lock lock(fake_mutex);
    const std::uint64_t until = fake.now_ns + ns;
    while (fake_timer* p_timer = first_due(until)) {
        fake.now_ns = std::max(fake.now_ns, p_timer->deadline_ns);
        p_timer->deadline_ns = 0;
        const sigevent event = p_timer->event;
        if (fake.hold) {
            fake.on_the_way.push_back(event);
            continue;
        }
        lock.unlock();
        event.sigev_notify_function(event.sigev_value);
        lock.lock();
    }
    fake.now_ns = until;
}

int fake_clock_gettime(clockid_t, timespec* p_out)
{
    locked lock(fake_mutex);
    *p_out = timespec_of(fake.now_ns);
    return 0;
}

int fake_nanosleep(const timespec* p_time, timespec*)
{
    advance_ns(ns_of(*p_time));
    return 0;
}

// A wait that nobody ends takes its time of the fake clock, and as much of the host's.
int fake_cond_wait(std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock,
                   const timespec* p_until)
{
    if (p_until == nullptr)
        return plat_linux_co.cond_wait(p_cond, p_lock, nullptr);
    timespec now;
    fake_clock_gettime(CLOCK_MONOTONIC, &now);
    const std::uint64_t left = ns_of(*p_until) - std::min(ns_of(*p_until), ns_of(now));
    if (p_cond->wait_for(*p_lock, std::chrono::nanoseconds(left)) == std::cv_status::no_timeout)
        return 0;
    advance_ns(left);
    return ETIMEDOUT;
}

int fake_timer_create(clockid_t, sigevent* p_event, timer_t* p_timer)
{
    locked lock(fake_mutex);
    fake.timers.push_back({*p_event});
    *p_timer = &fake.timers.back();
    return 0;
}

int fake_timer_settime(timer_t timer, int, const itimerspec* p_new, itimerspec*)
{
    locked lock(fake_mutex);
    const std::uint64_t ns = ns_of(p_new->it_value);
    static_cast<fake_timer*>(timer)->deadline_ns = ns == 0 ? 0 : fake.now_ns + ns;
    return 0;
}

int fake_timer_gettime(timer_t timer, itimerspec* p_out)
{
    locked lock(fake_mutex);
    const std::uint64_t deadline = static_cast<fake_timer*>(timer)->deadline_ns;
    *p_out = {};
    if (deadline != 0)
        p_out->it_value = timespec_of(deadline - fake.now_ns);
    return 0;
}

} // namespace

void plat_fake_reset()
{
    locked lock(fake_mutex);
    fake = {};
    plat_fake_co = plat_linux_co;
    plat_fake_co.clock_gettime = fake_clock_gettime;
    plat_fake_co.nanosleep = fake_nanosleep;
    plat_fake_co.cond_wait = fake_cond_wait;
    plat_fake_co.timer_create = fake_timer_create;
    plat_fake_co.timer_settime = fake_timer_settime;
    plat_fake_co.timer_gettime = fake_timer_gettime;
    plat_fake_co.timer_delete = [](timer_t) { return 0; };
    plat_fake_co.system = [](const char*) { return 0; };
    plat_attach(&plat_fake_co);
}

void plat_fake_advance_us(std::uint64_t us)
{
    advance_ns(us * 1000);
}

std::uint64_t plat_fake_now_us()
{
    locked lock(fake_mutex);
    return fake.now_ns / 1000;
}

void plat_fake_hold_expiries(bool hold)
{
    locked lock(fake_mutex);
    fake.hold = hold;
}

void plat_fake_deliver()
{
    std::unique_lock lock(fake_mutex);
    const auto events = std::exchange(fake.on_the_way, {});
    lock.unlock();
    for (const sigevent& event : events)
        event.sigev_notify_function(event.sigev_value);
}
