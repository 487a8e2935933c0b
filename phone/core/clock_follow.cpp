// Time that waits for threads.
#include <algorithm>
#include <array>

#include "core/clock_inner.h"

namespace phone {

using namespace clock_inner;

namespace {

std::array<thread_mark*, clock_follow_places> followed; // a thread may have several places
nanoseconds at_rest;
nanoseconds looked_at; // up to here at_rest has been counted

void count_locked()
{
    const nanoseconds now = now_locked();
    nanoseconds until = now;
    for (const thread_mark* p : followed)
        if (p != nullptr)
            until = std::min(until, p->rests_until);
    at_rest += std::max<nanoseconds>(until - looked_at, 0);
    looked_at = now;
}

void leave_locked(int place)
{
    thread_mark* const p = followed[static_cast<std::size_t>(place)];
    if (p == nullptr)
        return;
    count_locked();
    followed[static_cast<std::size_t>(place)] = nullptr;
    p->followed = std::count(followed.begin(), followed.end(), p) > 0;
}

} // namespace

void clock_inner::follow_change_locked(thread_mark& mark, nanoseconds until)
{
    if (!mark.followed)
        return;
    count_locked();
    mark.rests_until = until;
}

void clock_inner::follow_end_locked(thread_mark& mark)
{
    for (int place = 0; place < clock_follow_places; place++)
        if (followed[static_cast<std::size_t>(place)] == &mark)
            leave_locked(place);
}

clock_followed clock_follow_time()
{
    const std::lock_guard lock(clock_mutex);
    count_locked();
    return {looked_at, at_rest};
}

void clock_follow(int place)
{
    thread_mark& mark = own_mark();
    const std::lock_guard lock(clock_mutex);
    if (followed[static_cast<std::size_t>(place)] == &mark)
        return;
    leave_locked(place);
    mark.enter_locked(false);
    count_locked();
    mark.followed = true;
    mark.rests_until = 0;
    followed[static_cast<std::size_t>(place)] = &mark;
}

void clock_expect_thread(bool on_its_way)
{
    const std::lock_guard lock(clock_mutex);
    at_work += on_its_way ? 1 : -1;
    work_changed_locked();
}

void clock_unfollow(int place)
{
    const std::lock_guard lock(clock_mutex);
    leave_locked(place);
}

} // namespace phone
