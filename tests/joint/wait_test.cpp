// Waits between threads on the phone's clock: it may stand, be moved on in steps, or run fast.
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <ctime>
#include <functional>
#include <mutex>
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "core/clock.h"
#include "joint/joint.h"
#include "plat/plat.h"
#include "queue/queue.h"

namespace {

using phone::nanoseconds;

constexpr std::int64_t ms = 1000; // in microseconds

std::int64_t now_ms()
{
    return phone::clock_now(CLOCK_MONOTONIC) / 1'000'000;
}

// A flag that threads set and wait for.
struct flag {
    std::mutex mutex;
    std::condition_variable changed;
    bool up = false;

    void set(bool value)
    {
        const std::lock_guard lock(mutex);
        up = value;
        plat_cond_wake(changed);
    }
    bool wait(std::int64_t us)
    {
        std::unique_lock lock(mutex);
        return plat_wait_for(changed, lock, us, [this] { return up; });
    }
};

// A thread whose work the clock knows from its beginning.
struct worker {
    std::atomic<std::int64_t> ended = -1; // the moment when its work was done, in ms

    explicit worker(const std::function<void()>& work)
    {
        phone::clock_thread([this, work] {
            work();
            ended = now_ms();
        });
    }
    ~worker()
    {
        for (int turn = 0; turn < 1000 && ended < 0; turn++)
            Joint::ask("clock +100");
        EXPECT_GE(ended, 0) << "it never ends";
    }
};

using Waits = Joint;

TEST_F(Waits, ALimitEndsAtItsMomentAndAWakeBefore)
{
    flag f;
    std::vector<bool> seen;
    worker t([&] {
        seen.push_back(f.wait(500 * ms));
        seen.push_back(f.wait(300 * ms));
    });
    const std::int64_t start = now_ms();
    ask("clock +499");
    EXPECT_TRUE(seen.empty());
    const int waker = phone::clock_timer_create([&] { f.set(true); });
    phone::clock_timer_set(waker, 201'000'000, 0);
    ask("clock +1000");
    EXPECT_EQ(seen, (std::vector<bool>{false, true}));
    EXPECT_EQ(t.ended - start, 700);
}

TEST_F(Waits, ThreadsThatWakeEachOtherKeepStepWithTheClock)
{
    // Each turn costs 10 ms, whoever has it: no step may go on while the ball is in the air.
    flag ping;
    flag pong;
    std::atomic<int> turns = 0;
    const auto player = [&turns](flag& own, flag& other) {
        const timespec think{0, 10'000'000};
        for (int i = 0; i < 50 && own.wait(1000 * ms); i++) {
            own.set(false);
            plat_nanosleep(&think, nullptr);
            turns++;
            other.set(true);
        }
    };
    worker one([&] { player(ping, pong); });
    worker two([&] { player(pong, ping); });
    const std::int64_t start = now_ms();
    ping.set(true);
    ask("clock +5000");
    EXPECT_EQ(std::tuple(turns.load(), two.ended - start), std::tuple(100, 1000));
}

TEST_F(Waits, AFastClockShortensThem)
{
    flag f;
    ask("clock run");
    ask("speed 1000");
    const auto host = std::chrono::steady_clock::now();
    const std::int64_t start = now_ms();
    EXPECT_FALSE(f.wait(50'000 * ms));
    EXPECT_GE(now_ms() - start, 50'000);
    EXPECT_LT(std::chrono::steady_clock::now() - host, std::chrono::seconds(20));
    ask("speed 1");
    ask("clock hold");
}

TEST_F(Waits, WhatAThreadDoesWithARecordBelongsToTheStep)
{
    queue q{};
    ASSERT_EQ(queue_start(&q, 4, sizeof(int)), 1);
    std::vector<int> seen;
    worker t([&] {
        for (int n = 1; n != 0;) {
            queue_get(&q, &n, sizeof n);
            seen.push_back(n);
            const timespec work{0, 5'000'000};
            plat_nanosleep(&work, nullptr);
        }
    });
    for (const int n : {1, 2, 0})
        queue_put(&q, &n, sizeof n);
    const std::int64_t start = now_ms();
    ask("clock +12");
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 0}));
    ask("clock +12");
    EXPECT_EQ(t.ended - start, 15);
}

// Work for 50 ms of the host's time, as on a busy desk.
void work_hard()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    const auto ns = [&now] { return now.tv_sec * 1'000'000'000LL + now.tv_nsec; };
    for (const long long end = ns() + 50'000'000; ns() < end;)
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
}

TEST_F(Waits, AHeldClockStandsWhenWhatWasDueIsDone)
{
    std::atomic<bool> woken = false, done = false;
    worker t([&] {
        const timespec pause{0, 1'000'000};
        plat_nanosleep(&pause, nullptr);
        woken = true;
        work_hard();
        done = true;
    });
    ask("clock run");
    while (!woken)
        std::this_thread::yield();
    ask("clock hold");
    EXPECT_TRUE(done);
}

// A driver's own thread, of which the clock hears at its first wait.
std::thread unknown_thread(std::atomic<std::int64_t>& ended)
{
    return std::thread([&ended] {
        work_hard();
        const timespec pause{0, 10'000'000};
        plat_nanosleep(&pause, nullptr);
        ended = now_ms();
    });
}

TEST_F(Waits, AStepWaitsForAThreadThatHasJustBegun)
{
    std::atomic<std::int64_t> alone = -1;
    std::atomic<std::int64_t> joined = -1;
    const std::int64_t start = now_ms();
    std::thread first = unknown_thread(alone);
    ask("clock +1000");
    EXPECT_EQ(alone - start, 10);
    worker starter([&] { unknown_thread(joined).join(); }); // and sits in the join
    ask("clock +1000");
    EXPECT_EQ(joined - start, 1010);
    first.join();
}

// As a library does that knows the host's poll alone: it looks up every 200 ms of the host's time.
void wait_in_library(int fd)
{
    pollfd p{fd, POLLIN, 0};
    int ready = 0;
    while (ready == 0) {
        phone::clock_library_waits(&p, 1);
        ready = ::poll(&p, 1, 200);
        phone::clock_library_goes_on();
    }
    std::uint64_t count;
    [[maybe_unused]] const ssize_t n = ::read(fd, &count, sizeof count);
}

TEST_F(Waits, AThreadInsideALibraryIsMovedByStepsOfTheClock)
{
    const int fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    std::vector<std::int64_t> blocks;
    std::atomic<bool> joined = false;
    worker reader([&] {
        for (int i = 0; i < 10; i++) {
            wait_in_library(fd);
            blocks.push_back(now_ms());
        }
    });
    const int card = phone::clock_timer_create([fd] {
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t n = ::write(fd, &one, sizeof one);
    });
    const std::int64_t start = now_ms();
    phone::clock_timer_set(card, 80'000'000, 80'000'000);
    // A thread that sits in a join is as good as one at rest.
    worker main_thread([&] {
        std::thread([&] {
            while (reader.ended < 0) {
                const timespec t{0, 400'000'000};
                plat_nanosleep(&t, nullptr);
            }
        }).join();
        joined = true;
    });
    ask("clock +799");
    EXPECT_EQ(blocks.size(), 9u);
    EXPECT_FALSE(joined);
    ask("clock +1000");
    ASSERT_EQ(blocks.size(), 10u);
    for (std::size_t i = 0; i < blocks.size(); i++)
        EXPECT_EQ(blocks[i] - start, 80 * (static_cast<std::int64_t>(i) + 1)) << i;
    EXPECT_TRUE(joined);
    phone::clock_timer_delete(card);
    close(fd);
}

} // namespace
