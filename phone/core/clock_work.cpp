// Which threads are at work, so that a step of the clock goes on only when the work of the step before is
// done.
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

#include "core/clock_inner.h"
#include "core/thread_look.h"

namespace phone {

using namespace clock_inner;

namespace {

std::condition_variable work_changed;
int watchers;           // threads that wait for work_changed
std::uint64_t activity; // grows with every block and wake, so that a stuck worker can be told from a busy one
std::vector<thread_mark*> known_threads;

constexpr long long most_run_ns = 200'000'000; // what a step waits for a thread that works without a wait

std::cv_status wait_for_change(std::unique_lock<std::mutex>& lock, std::chrono::microseconds limit)
{
    watchers++;
    const std::cv_status status = work_changed.wait_for(lock, limit);
    watchers--;
    return status;
}

// The threads at work beside the calling one.
std::set<pid_t> working_locked()
{
    std::set<pid_t> tids;
    for (const thread_mark* p : known_threads)
        if (!p->blocked && !p->given_up && p != &own_mark())
            tids.insert(p->tid);
    return tids;
}

void go_on_without_locked(const std::set<pid_t>& tids)
{
    for (thread_mark* p : known_threads)
        if (tids.contains(p->tid) && !p->blocked && !p->given_up)
            p->overrun_locked();
}

// The threads that the clock doesn't know, or that wait for something that it can't see: those of the program
// that do work beside the loop.
std::set<pid_t> others_locked()
{
    std::set<pid_t> tids = thread_ids();
    tids.erase(gettid());
    tids.erase(getpid());
    for (const pid_t tid : workers_locked())
        tids.erase(tid);
    for (const thread_mark* p : known_threads)
        if (p->blocked)
            tids.erase(p->tid);
    return tids;
}

std::set<pid_t> met_threads; // those that there were when all that the clock doesn't know had come to rest

// Whether no thread has come since then that the clock doesn't know and that has still to come to its first
// wait. `look` is the caller's, over all its turns.
bool newcomers_rest_locked(threads_look& look)
{
    std::set<pid_t> now = thread_ids();
    if (!std::ranges::includes(met_threads, now) && !look.asleep(others_locked()) &&
        look.run_ns <= most_run_ns)
        return false;
    met_threads = std::move(now);
    return true;
}

} // namespace

int clock_inner::at_work;

thread_mark::thread_mark() : kick_fd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), tid(gettid()) {}

thread_mark::~thread_mark()
{
    if (known) {
        const std::lock_guard lock(clock_mutex);
        if (in_library)
            end_wait_locked(*this, library);
        follow_end_locked(*this);
        leave_locked();
    }
    close(kick_fd);
}

void thread_mark::enter_locked(bool counted)
{
    if (known)
        return;
    known = true;
    known_threads.push_back(this);
    at_work += counted ? 0 : 1;
}

void thread_mark::overrun_locked()
{
    constexpr int most = 5;
    given_up = ++overruns == most;
    at_work -= given_up ? 1 : 0;
}

void thread_mark::take_back_locked()
{
    at_work += given_up ? 1 : 0;
    given_up = false;
    overruns = 0;
}

void thread_mark::leave_locked()
{
    take_back_locked();
    known = false;
    std::erase(known_threads, this);
    at_work--;
    work_changed_locked();
}

thread_mark& clock_inner::own_mark()
{
    thread_local thread_mark mark;
    return mark;
}

bool clock_inner::expiry_at_work_locked()
{
    return std::ranges::any_of(known_threads,
                               [](const thread_mark* p) { return p->is_worker && !p->blocked; });
}

void clock_inner::work_changed_locked()
{
    activity++;
    if (watchers > 0)
        work_changed.notify_all();
}

void clock_inner::come_to_rest(std::unique_lock<std::mutex>& lock)
{
    const auto bound = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    threads_look look, newcomers;
    std::uint64_t seen = activity;
    const int own = own_mark().known && !own_mark().given_up ? 1 : 0;
    for (;;) {
        const bool works = at_work > own || !ready_locked().empty();
        if (!works && !loop_has_input_locked() && newcomers_rest_locked(newcomers))
            return;
        const auto woken = wait_for_change(lock, std::chrono::microseconds(works ? 500 : 50));
        const bool too_long = std::chrono::steady_clock::now() > bound;
        if (!too_long && (woken != std::cv_status::timeout || !works))
            continue;
        if (activity != seen)
            look.first.clear();
        seen = activity;
        // Who sleeps on although his input is there waits for something else.
        std::set<pid_t> tids = ready_locked();
        const int expected = at_work - own + static_cast<int>(tids.size());
        tids.merge(working_locked());
        const bool asleep = look.asleep(tids) && static_cast<int>(tids.size()) == expected;
        if (asleep && !loop_has_input_locked() && newcomers_rest_locked(newcomers))
            return;
        if (look.run_ns > most_run_ns || too_long) {
            go_on_without_locked(tids);
            return;
        }
    }
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
            own_mark().enter_locked(true);
        }
        body();
    }).detach();
}

bool clock_settle()
{
    constexpr long long answer_run_ns = 1'500'000'000;
    const auto bound = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    threads_look look;
    std::unique_lock lock(clock_mutex);
    for (;;) {
        if (loop_idle_locked() && ready_locked().empty()) {
            if (look.asleep(others_locked()) || look.run_ns > answer_run_ns)
                return true;
        }
        if (std::chrono::steady_clock::now() > bound)
            return false;
        wait_for_change(lock, std::chrono::microseconds(300));
    }
}

} // namespace phone
