#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <random>
#include <thread>
#include <vector>

#include "tmr/tmr.h"
#include "unit/plat_fake.h"

namespace {

std::vector<const tmr_link*> fired;

void note(tmr_link* p_link, std::uint32_t)
{
    fired.push_back(p_link);
}

using links = std::vector<const tmr_link*>;

class Tmr : public testing::Test {
protected:
    void SetUp() override
    {
        plat_fake_reset();
        fired.clear();
        tmr_init();
    }
    tmr_link a{}, b{}, c{};
};

} // namespace

TEST_F(Tmr, EqualExpiriesFireLastAddedFirst)
{
    tmr_cb_add(&a, note, 500);
    plat_fake_advance_us(100);
    tmr_cb_add(&b, note, 400);
    tmr_cb_add(&c, note, 400);
    plat_fake_advance_us(399);
    EXPECT_EQ(fired, links{});
    EXPECT_EQ(tmr_cb_left(), 1u);
    plat_fake_advance_us(1);
    EXPECT_EQ(fired, (links{&c, &b, &a}));
    EXPECT_EQ(tmr_cb_left(), 0u);
    tmr_cb_add(&a, note, 500);
    tmr_cb_rm(&a);
    EXPECT_EQ(tmr_cb_left(), 0u) << "without a timer nothing runs";
}

// The expiry of a timer that is removed meanwhile must not be taken for its successor's.
TEST_F(Tmr, ExpiryOnItsWayEndsQuietly)
{
    plat_fake_hold_expiries(true);
    tmr_cb_add(&a, note, 100);
    tmr_cb_add(&b, note, 150);
    plat_fake_advance_us(100);
    tmr_cb_rm(&a);
    plat_fake_deliver();
    EXPECT_EQ(fired, links{});
    plat_fake_advance_us(49);
    plat_fake_deliver();
    EXPECT_EQ(fired, links{});
    plat_fake_advance_us(1);
    plat_fake_deliver();
    EXPECT_EQ(fired, links{&b});

    tmr_cb_add(&a, note, 10);
    plat_fake_advance_us(10);
    tmr_cb_rm(&a);
    plat_fake_deliver(); // finds no timer at all
    EXPECT_EQ(fired, links{&b});

    tmr_cb_add(&a, note, 10);
    plat_fake_advance_us(10);
    tmr_cb_add(&b, note, 5); // while a's expiry is on its way
    plat_fake_deliver();
    EXPECT_EQ(fired, (links{&b, &a}));
    plat_fake_advance_us(5);
    plat_fake_deliver();
    EXPECT_EQ(fired, (links{&b, &a, &b}));
}

// Crowded ones and ones as far off as a timer can be.
TEST_F(Tmr, AgreesWithPlainTimes)
{
    struct timer {
        tmr_link link;
        std::uint64_t due, fired_at;
    };
    static std::vector<timer> timers;
    timers.assign(300, {});
    std::mt19937 random(7);
    for (timer& t : timers) {
        const std::uint32_t time = random() % 2 != 0 ? 1 + random() % 5000 : random();
        t.due = tmr_get64() + time;
        tmr_cb_add(
            &t.link, [](tmr_link* p, std::uint32_t) { reinterpret_cast<timer*>(p)->fired_at += tmr_get64(); },
            time);
        plat_fake_advance_us(random() % 50);
        timer& victim = timers[random() % timers.size()];
        if (random() % 5 == 0 && victim.due > tmr_get64()) {
            tmr_cb_rm(&victim.link);
            victim.due = 0;
        }
    }
    plat_fake_advance_us(UINT32_MAX);
    for (const timer& t : timers)
        EXPECT_EQ(t.fired_at, t.due);
}

// Four threads against the thread that fires: what isn't removed fires once, what is removed at most once.
TEST_F(Tmr, ManyThreads)
{
    struct timer {
        tmr_link link;
        std::atomic<int> count;
        bool removed;
    };
    static std::array<timer, 4000> timers;
    std::atomic<bool> stop = false;
    std::thread time([&stop] {
        while (!stop)
            plat_fake_advance_us(50);
    });
    std::vector<std::thread> threads;
    for (unsigned t = 0; t < 4; t++)
        threads.emplace_back([t] {
            std::mt19937 random(t);
            for (std::size_t i = t; i < timers.size(); i += 4) {
                tmr_cb_add(
                    &timers[i].link, [](tmr_link* p, std::uint32_t) { reinterpret_cast<timer*>(p)->count++; },
                    1 + random() % 2000);
                timers[i].removed = random() % 3 == 0;
                if (timers[i].removed)
                    tmr_cb_rm(&timers[i].link);
            }
        });
    for (std::thread& t : threads)
        t.join();
    stop = true;
    time.join();
    plat_fake_advance_us(2000);
    for (const timer& t : timers)
        EXPECT_TRUE(t.count == 1 || (t.removed && t.count == 0));
}
