// The phone's time. It may run F times as fast as the host's, stand still, or be moved on in steps; the wall
// clock, the monotonic clock, sleeps, timers, time-outs and the phone's own devices all live by it. It also
// knows which threads are at work, so that a step goes on only when the work of the step before is done.
#pragma once

#include <csignal>
#include <cstdint>
#include <ctime>
#include <functional>
#include <mutex>
#include <poll.h>
#include <sys/select.h>

namespace phone {

using nanoseconds = std::int64_t;
constexpr nanoseconds forever = INT64_MAX;

// CLOCK_REALTIME, or for any other clock the monotonic one.
nanoseconds clock_now(clockid_t clock);
timespec clock_timespec(nanoseconds t);

// Blocks the calling thread until the monotonic clock reaches `deadline`.
void clock_sleep_until(nanoseconds deadline);

// poll and select, the time-out in the phone's time. They look at their descriptors anew after clock_kick.
int clock_poll(pollfd* fds, nfds_t count, nanoseconds timeout);
int clock_select(int nfds, fd_set* rd, fd_set* wr, fd_set* ex, nanoseconds timeout);

// Blocks, with the mutex of `lock` free, until somebody wakes `p_cond` (true) or the monotonic clock reaches
// `deadline` (false). Who is woken counts as at work from then on.
bool clock_cond_wait(const void* p_cond, std::unique_lock<std::mutex>& lock, nanoseconds deadline);
void clock_cond_wake(const void* p_cond);

// For a thread that waits inside a library, where the clock doesn't see it: from the first call to the second
// it is at rest while none of the descriptors is ready, and at work once one is. What a wait lasts is up to
// who makes a descriptor ready, by a timer of this clock. Any other wait of the thread ends it too.
void clock_library_waits(const pollfd* fds, nfds_t count);
void clock_library_goes_on();

// The same for a library that polls a timer descriptor (timerfd) for the moment when something is there: the
// clock has it ring when the monotonic clock reaches `deadline`, also when it was held, moved or changed its
// pace meanwhile.
void clock_library_waits_until(int timer_fd, nanoseconds deadline);

// Time that waits for threads, for a machine that must not run away from those that serve it: it goes on with
// the monotonic clock while each followed thread sleeps or waits, up to the deadline of that, and stands
// while one is at work. From its deadline on a sleeper is at work, however late the host wakes it.
struct clock_followed {
    nanoseconds now;     // the monotonic clock
    nanoseconds at_rest; // how long of it all followed threads have been at rest; only differences count
};
clock_followed clock_follow_time();

// A thread of the program is on its way that the clock doesn't know yet: a step waits for it until it has
// come.
void clock_expect_thread(bool on_its_way);

// The calling thread is followed from now on, as the one in place `place`; or nobody is there any more.
constexpr int clock_follow_places = 2;
void clock_follow(int place);
void clock_unfollow(int place);

// Wakes every blocked thread, so that it looks at its descriptors and at the time again.
void clock_kick();

// A descriptor of the program has been closed: its number may mean another one the next time.
void clock_descriptor_closed(int fd);

// One-shot or periodic timers that call `fire` on a thread of its own at each expiry. Times are relative;
// 0 disarms.
int clock_timer_create(std::function<void()> fire);
bool clock_timer_set(int timer, nanoseconds time, nanoseconds interval);
bool clock_timer_get(int timer, nanoseconds* p_left, nanoseconds* p_interval);
bool clock_timer_delete(int timer);

// A thread of the phone's own whose work counts as the phone's work: `body` runs with the thread known to the
// clock, and blocks only through the calls above.
void clock_thread(std::function<void()> body);

// Whether the calling thread runs an expiry.
bool clock_in_expiry();

// True once the program's main loop has waited for input for the first time.
bool clock_loop_runs();

// Starts the clock; the calling thread is the program's main thread.
void clock_attach();

// The pace, 1 and up; whether the clock stands.
void clock_set_speed(double factor);
double clock_speed();
void clock_hold(bool hold);

// Moves the clock on by `span`, one deadline after the other, and lets the work of each be done.
void clock_step(nanoseconds span);

// Waits until the loop has nothing to read and the program's other threads have come to rest, or have had the
// processor for 1.5 s: the loop's answer is whole all the same. False after 60 s.
bool clock_settle();

// The words `clock`, `speed` and `idle`.
void clock_words_attach();

} // namespace phone
