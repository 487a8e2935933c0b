#include <algorithm>
#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "fsm/fsm.h"
#include "queue/queue.h"
#include "unit/plat_fake.h"

namespace {

std::string trail; // what the handlers saw, one word a call
fsm_state on, off;

enum { evt_go = 1, evt_refuse, evt_go_bare };

std::string code_name(int code)
{
    return code == FSM_MSG_ENTRY ? "entry" : code == FSM_MSG_EXIT ? "exit" : std::to_string(code);
}

int toggle(fsm* p_me, const fsm_event* p_evt, const fsm_state* p_other, const char* name)
{
    trail += std::string(name) + ":" + code_name(fsm_evt_get(p_evt)) + "@" + fsm_state_curr(p_me)->name + " ";
    switch (fsm_evt_get(p_evt)) {
    case evt_go:
        fsm_state_tran(p_me, p_other);
        return 0;
    case evt_refuse:
        fsm_state_tran(p_me, p_other);
        return 1;
    case evt_go_bare:
        fsm_state_init(p_me, p_other);
        return 0;
    default:
        return 0;
    }
}

struct machine {
    fsm me;
    machine()
    {
        trail.clear();
        fsm_ctor(&me, "toggle");
        fsm_state_ctor(&on, "on", [](fsm* p, const fsm_event* e) { return toggle(p, e, &off, "on"); });
        fsm_state_ctor(&off, "off", [](fsm* p, const fsm_event* e) { return toggle(p, e, &on, "off"); });
        fsm_start(&me, &on);
    }
    std::string send(int code)
    {
        trail.clear();
        const fsm_event evt{code};
        fsm_evt(&me, &evt);
        return trail;
    }
};

} // namespace

TEST(Fsm, EntryRunsBeforeTheStateChanges)
{
    machine m;
    EXPECT_EQ(trail, "on:entry@on ");
    EXPECT_EQ(m.send(9), "on:9@on ");
    EXPECT_EQ(m.send(evt_go), "on:1@on on:exit@on off:entry@on ");
    EXPECT_EQ(fsm_state_curr(&m.me), &off);
    EXPECT_EQ(m.send(evt_go_bare), "off:3@off on:entry@off ");
    EXPECT_EQ(fsm_state_curr(&m.me), &on);
}

TEST(Fsm, UnhandledEventLeavesTheTransitionPending)
{
    machine m;
    EXPECT_EQ(m.send(evt_refuse), "on:2@on on:exit@on ");
    EXPECT_EQ(fsm_state_curr(&m.me), &on);
    EXPECT_EQ(m.send(9), "on:9@on off:entry@on ");
    EXPECT_EQ(fsm_state_curr(&m.me), &off);
}

// Four producers and two consumers on three slots: nothing is lost or torn, and each producer's order holds.
TEST(Queue, ManyProducersLoseNothing)
{
    struct record {
        int producer, number, check;
        char filler[20];
    };
    constexpr int each = 2000, producers = 4, consumers = 2;
    plat_fake_reset();
    queue q{};
    ASSERT_EQ(queue_start(&q, 3, sizeof(record)), 1);
    std::vector<std::thread> threads;
    for (int p = 0; p < producers; p++)
        threads.emplace_back([&q, p] {
            for (int i = 0; i < each; i++) {
                const record rec{p, i, p * 31 + i, {}};
                queue_put(&q, &rec, sizeof rec);
            }
        });
    std::array<std::array<std::vector<int>, producers>, consumers> got;
    std::atomic<int> torn = 0;
    for (int c = 0; c < consumers; c++)
        threads.emplace_back([&, c] {
            for (int i = 0; i < each * producers / consumers; i++) {
                record rec;
                queue_get(&q, &rec, sizeof rec);
                torn += rec.check != rec.producer * 31 + rec.number;
                got[c][rec.producer].push_back(rec.number);
            }
        });
    for (std::thread& t : threads)
        t.join();
    EXPECT_EQ(torn, 0);
    for (int p = 0; p < producers; p++) {
        std::vector<bool> seen(each);
        for (auto& of : got) {
            EXPECT_TRUE(std::is_sorted(of[p].begin(), of[p].end()));
            for (const int number : of[p])
                seen[number] = true;
        }
        EXPECT_EQ(std::count(seen.begin(), seen.end(), true), each);
    }
}
