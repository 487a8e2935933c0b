// The callback timers: a delta list of microseconds, of which the POSIX timer runs for the first node.
//
// Whenever tmr_mutex is free and the list isn't empty, the POSIX timer either runs for the first node or has
// expired for it with the expiry on its way. So an expiry that finds the timer running again is a late one,
// overtaken by tmr_cb_rm, and has nothing to do.
#include "tmr_cb.h"
#include "tmr/tmr.h"

#include <csignal>
#include <ctime>
#include <mutex>
#include <vector>

#include "check/check.h"
#include "plat/plat.h"

namespace {

constexpr int SIG_ID = 0x544D52;
constexpr std::uint32_t US_PER_S = 1000000;
constexpr std::uint32_t NS_PER_US = 1000;

std::mutex tmr_mutex; // guards all that follows
rlnk tmr_cb_head;
timer_t tid;
bool tid_valid;
sigevent se;
std::uint32_t tm;
bool set_failed; // the last period didn't reach the POSIX timer

void kmsg_create_failed()
{
    plat_system("echo \"QAT: tmr_cb.c: timer_create failed\" > /dev/kmsg");
}

void kmsg_settime_failed()
{
    plat_system("echo \"QAT: tmr_cb.c: timer_settime failed\" > /dev/kmsg");
}

void kmsg_unknown_signal()
{
    plat_system("echo \"QAT: tmr_cb.c: Unknown signal received\" > /dev/kmsg");
}

tmr_link* link_of(rlnk* p_lnk)
{
    return reinterpret_cast<tmr_link*>(p_lnk);
}

// Arms the POSIX timer for one shot, 0 disarms it. False on failure, which the caller reports once the lock
// is released.
bool tmr_cb_set(std::uint32_t time_us)
{
    itimerspec its{};
    its.it_value.tv_sec = time_us / US_PER_S;
    its.it_value.tv_nsec = static_cast<long>(time_us % US_PER_S) * NS_PER_US;
    tm = time_us;
    set_failed = !tid_valid || plat_timer_settime(tid, 0, &its, nullptr) != 0;
    return !set_failed;
}

// Brings the first node's rank up to date. After a failed arming the POSIX timer knows nothing of it.
void refresh_first()
{
    if (!set_failed)
        rlnk_derank(&tmr_cb_head, tmr_cb_left());
}

struct due_timer {
    tmr_link* p_link;
    tmr_cb_fn cb;
};

// Takes all nodes that are due out of the list, in list order, and arms for the next. False if arming failed.
bool take_due(std::vector<due_timer>& due)
{
    rlnk* p_first = rlnk_derank(&tmr_cb_head, 0);
    while (p_first != &tmr_cb_head && p_first->rank == 0) {
        due.push_back({link_of(p_first), link_of(p_first)->cb});
        p_first = rlnk_remove(&tmr_cb_head, p_first);
    }
    return p_first == &tmr_cb_head || tmr_cb_set(p_first->rank);
}

void tmr_cb(std::uint32_t period)
{
    std::vector<due_timer> due;
    bool armed = true;
    {
        std::lock_guard lock(tmr_mutex);
        if (tmr_cb_left() == 0)
            armed = take_due(due);
    }
    if (!armed)
        kmsg_settime_failed();
    // Of timers that are due at the same moment the one added last comes first.
    for (auto it = due.rbegin(); it != due.rend(); ++it)
        it->cb(it->p_link, period);
}

void tmr_internal_timeout_evt(sigval value)
{
    if (value.sival_int != SIG_ID) {
        kmsg_unknown_signal();
        return;
    }
    std::unique_lock lock(tmr_mutex);
    const std::uint32_t period = tm;
    lock.unlock();
    tmr_cb(period);
}

bool tmr_sub_create()
{
    se = {};
    se.sigev_notify = SIGEV_THREAD;
    se.sigev_notify_function = tmr_internal_timeout_evt;
    se.sigev_value.sival_int = SIG_ID;
    return plat_timer_create(CLOCK_REALTIME, &se, &tid) == 0;
}

} // namespace

void tmr_cb_init()
{
    std::unique_lock lock(tmr_mutex);
    rlnk_init(&tmr_cb_head, 0);
    tid_valid = tmr_sub_create();
    set_failed = false;
    const bool created = tid_valid;
    lock.unlock();
    if (!created)
        kmsg_create_failed();
}

void tmr_cb_add(tmr_link* p_link, tmr_cb_fn cb, std::uint32_t time_us)
{
    HVT_CHECK(p_link != nullptr);
    HVT_CHECK(cb != nullptr);
    HVT_CHECK(time_us != 0);
    std::unique_lock lock(tmr_mutex);
    rlnk_init(&p_link->lnk, time_us);
    p_link->cb = cb;
    refresh_first();
    rlnk_insert(&tmr_cb_head, &p_link->lnk);
    // An earlier arming that failed is made up for here, or no timer would ever fire again.
    rlnk* p_first = rlnk_next(&tmr_cb_head);
    bool armed = true;
    if (p_first == &p_link->lnk || set_failed)
        armed = tmr_cb_set(p_first->rank != 0 ? p_first->rank : 1);
    lock.unlock();
    if (!armed)
        kmsg_settime_failed();
}

void tmr_cb_rm(tmr_link* p_link)
{
    HVT_CHECK(p_link != nullptr);
    std::unique_lock lock(tmr_mutex);
    refresh_first();
    const bool first = rlnk_next(&tmr_cb_head) == &p_link->lnk;
    rlnk_remove(&tmr_cb_head, &p_link->lnk);
    const bool armed = !first || tmr_cb_set(rlnk_next(&tmr_cb_head)->rank);
    lock.unlock();
    if (!armed)
        kmsg_settime_failed();
}

std::uint32_t tmr_cb_left()
{
    itimerspec its{};
    if (!tid_valid || plat_timer_gettime(tid, &its) != 0)
        return 0;
    return static_cast<std::uint32_t>(its.it_value.tv_sec) * US_PER_S +
           (static_cast<std::uint32_t>(its.it_value.tv_nsec) + NS_PER_US - 1) / NS_PER_US;
}
