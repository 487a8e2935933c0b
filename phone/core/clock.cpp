#include "core/clock.h"

#include <algorithm>

#include "core/clock_inner.h"

namespace phone {

using namespace clock_inner;

namespace {

nanoseconds host_base;  // the host's clock at the last change of pace
nanoseconds phone_base; // the phone's clock at that moment
nanoseconds wall_offset;
double pace = 1;
bool held;

nanoseconds host_now(clockid_t clock)
{
    timespec t;
    ::clock_gettime(clock, &t);
    return t.tv_sec * ns_per_s + t.tv_nsec;
}

void rebase_locked()
{
    phone_base = now_locked();
    host_base = host_now(CLOCK_MONOTONIC);
}

void time_changed_locked()
{
    kick_locked();
    reset_host_timer_locked();
}

// The next deadline of a timer, or of a waiter that isn't at work yet.
nanoseconds next_deadline_locked()
{
    nanoseconds next = next_timer_locked();
    for (const waiter* w : waiters)
        if (!w->counted)
            next = std::min(next, w->deadline);
    return next;
}

// Waiters whose time has come count as work, before they have noticed.
void count_due_waiters_locked()
{
    for (waiter* w : waiters) {
        if (w->deadline > phone_base || w->counted)
            continue;
        w->counted = true;
        at_work++;
    }
}

} // namespace

std::mutex clock_inner::clock_mutex;

timespec clock_timespec(nanoseconds t)
{
    return {static_cast<std::time_t>(t / ns_per_s), static_cast<long>(t % ns_per_s)};
}

nanoseconds clock_inner::now_locked()
{
    if (held)
        return phone_base;
    return phone_base +
           static_cast<nanoseconds>(static_cast<double>(host_now(CLOCK_MONOTONIC) - host_base) * pace);
}

nanoseconds clock_inner::host_time_to_locked(nanoseconds deadline)
{
    if (deadline == forever)
        return forever;
    const nanoseconds left = deadline - now_locked();
    if (left <= 0)
        return 0;
    if (held)
        return forever;
    const double host = static_cast<double>(left) / pace;
    return host > 1e18 ? forever : static_cast<nanoseconds>(host) + 1;
}

nanoseconds clock_now(clockid_t clock)
{
    const std::lock_guard lock(clock_mutex);
    return now_locked() + (clock == CLOCK_REALTIME ? wall_offset : 0);
}

void clock_step(nanoseconds span)
{
    std::unique_lock lock(clock_mutex);
    rebase_locked();
    const bool was_held = held;
    held = true;
    const nanoseconds target = phone_base + span;
    for (;;) {
        come_to_rest(lock);
        const nanoseconds next = next_deadline_locked();
        if (next > target)
            break;
        phone_base = std::max(phone_base, next);
        count_due_waiters_locked();
        count_due_timers_locked();
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
    {
        const std::lock_guard lock(clock_mutex);
        own_mark().is_main = true;
        own_mark().enter_locked(false);
    }
    start_workers();
}

} // namespace phone
