// What the files of the clock share: clock.cpp has the time itself, clock_work.cpp the threads at work,
// clock_waits.cpp the waits, clock_timers.cpp the timers. Functions whose name ends in _locked want
// clock_mutex.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <set>
#include <sys/types.h>
#include <vector>

#include "core/clock.h"

namespace phone::clock_inner {

constexpr nanoseconds ns_per_s = 1'000'000'000;

extern std::mutex clock_mutex; // guards all that the files of the clock have

nanoseconds now_locked();

// How long the host waits for `deadline`; forever while the clock stands before it.
nanoseconds host_time_to_locked(nanoseconds deadline);

// A thread that is blocked: until when, the eventfd that wakes it before, and what it waits for.
struct waiter {
    nanoseconds deadline;
    std::function<bool()> ready = {}; // whether its input is there; may be empty
    const void* p_cond = nullptr;     // the condition that it waits for
    std::atomic<bool> woken = false;  // by that
    int kick_fd = -1;
    int timer_fd = -1; // rings at the deadline, instead of a kick
    pid_t tid = 0;
    bool counted = false; // it has been counted as at work again, before it has noticed
};
extern std::vector<waiter*> waiters;

// Each thread's own wake-up descriptor, and its place in the count of those at work.
struct thread_mark {
    int kick_fd;
    pid_t tid;
    bool is_main = false;
    bool is_worker = false;  // runs expiries
    bool known = false;      // its work is counted
    bool blocked = false;    // in one of the waits
    int overruns = 0;        // how often a step has gone on without it since its last wait
    bool given_up = false;   // so often that its work doesn't count until its next wait
    waiter library{forever}; // while it waits inside a library
    bool in_library = false;
    bool followed = false;
    nanoseconds rests_until = 0; // of a followed thread; 0 while it is at work

    thread_mark();
    ~thread_mark();

    // Counts the thread's work, if that isn't done yet; `counted`: the number has it already.
    void enter_locked(bool counted);
    void leave_locked();

    // A step has gone on without it; and it has reached a wait.
    void overrun_locked();
    void take_back_locked();
};
thread_mark& own_mark();

// A followed thread is about to rest until `until` or to work (0); or it ends.
void follow_change_locked(thread_mark& mark, nanoseconds until);
void follow_end_locked(thread_mark& mark);

// A thread begins or ends a wait.
void begin_wait_locked(thread_mark& mark, waiter& w);
void end_wait_locked(thread_mark& mark, waiter& w);

extern int at_work; // threads that aren't blocked, and expiries that are counted and wait for a thread

// A thread has begun or ended a wait or a piece of work.
void work_changed_locked();

// Waits until no other thread is at work, the loop has nothing to read, and each new thread that the clock
// doesn't know yet has come to its first wait. Threads that wait for something the clock can't see don't
// count, nor one that has worked for 200 ms without a wait, and after five times that it isn't waited for at
// all; but it may have to wait for a busy processor as long as it likes, up to a minute.
void come_to_rest(std::unique_lock<std::mutex>& lock);

// Makes every blocked thread look again.
void kick_locked();

// The threads beside the loop that wait for what is there already: they are about to work.
std::set<pid_t> ready_locked();

// The loop waits, and what it waits for is there, or isn't there.
bool loop_has_input_locked();
bool loop_idle_locked();

void start_workers();
nanoseconds next_timer_locked();

// Whether an expiry that is due until `deadline` waits for a thread, or any is at work.
bool expiries_under_way_locked(nanoseconds deadline);
bool expiry_at_work_locked();

// Counts the expiries that are due as work, before a thread has taken them.
void count_due_timers_locked();

// Has the host ring at the next deadline; the second one anew, when the pace of time has changed.
void set_host_timer_locked();
void reset_host_timer_locked();

// The threads that run expiries, whose work is known.
const std::set<pid_t>& workers_locked();

} // namespace phone::clock_inner
