// The loop never returns, so every case runs in a process of its own: it ends with status 0 when what it
// waits for has happened in the right order, and with 2 when not.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <thread>

#include "core/core.h"
#include "dcp/dcp.h"
#include "plat_linux/plat_linux.h"
#include "tmr/tmr.h"
#include "unit/plat_fake.h"

namespace {

std::string trail;
int passes; // selects so far

void end(bool good)
{
    if (!good)
        std::fprintf(stderr, "trail \"%s\" after %d passes\n", trail.c_str(), passes);
    std::_Exit(good ? 0 : 2);
}

// A read client on a pipe of its own. Its name goes to the trail with the number of the pass.
struct reader {
    core_rd_cb_client client;
    int fds[2];
    const char* name;
    void (*then)(reader*);

    void make(const char* name_, void (*then_)(reader*) = nullptr)
    {
        name = name_;
        then = then_;
        if (pipe(fds) != 0)
            end(false);
        client = {{}, fds[0], call, this, nullptr};
        core_add_rd_cb_client(&client);
    }
    void feed()
    {
        if (write(fds[1], "!", 1) != 1)
            end(false);
    }
    static void call(void* p1, void*)
    {
        auto* p_me = static_cast<reader*>(p1);
        char byte;
        if (read(p_me->fds[0], &byte, 1) != 1)
            end(false);
        trail += p_me->name + std::to_string(passes) + " ";
        if (p_me->then != nullptr)
            p_me->then(p_me);
    }
};

reader a, b, c;

void begin()
{
    plat_fake_reset();
    plat_fake_co.select = [](int nfds, fd_set* rd, fd_set* wr, fd_set* ex, timeval* tv) {
        passes++;
        return plat_linux_co.select(nfds, rd, wr, ex, tv);
    };
    dcp_init();
    tmr_init();
    core_init();
}

[[noreturn]] void run()
{
    core_start();
    std::_Exit(3);
}

// One that another takes out isn't served, and not by the old answer of select when it comes back at once.
void reader_removed_by_another()
{
    begin();
    a.make("a", [](reader*) {
        core_rm_rd_cb_client(&b.client);
        core_rm_rd_cb_client(&c.client);
        core_add_rd_cb_client(&c.client);
    });
    b.make("b");
    c.make("c", [](reader*) { end(trail == "a1 c2 "); });
    a.feed(), b.feed(), c.feed();
    run();
}

void note(void* p1, void*)
{
    trail += static_cast<const char*>(p1) + std::to_string(passes) + " ";
}

void call(const char* name, std::uint32_t delay_us = 0)
{
    core_dfc(note, const_cast<char*>(name), nullptr, delay_us);
}

// Calls run in their order and before the clients of a pass, those that another queues too; before the loop
// runs a delay is none. A client that goes and comes back stands behind all others, and ends the walk of its
// pass.
void calls_before_clients_each_in_order()
{
    begin();
    call("late", 5'000'000), call("next");
    a.make("a", [](reader*) {
        if (passes == 3)
            end(trail == "late0 next0 a1 b1 x2 y2 z2 a2 b3 a3 ");
        if (passes == 1) {
            call("x");
            core_dfc([](void*, void*) { call("y"), call("z"); }, nullptr, nullptr, 0);
        } else {
            core_rm_rd_cb_client(&a.client);
            core_add_rd_cb_client(&a.client);
        }
        a.feed();
    });
    b.make("b", [](reader*) { b.feed(); });
    a.feed(), b.feed();
    run();
}

// The pipe holds 65536 bytes; the calls past that are not lost.
void burst_fills_the_pipe()
{
    begin();
    core_dfc(
        [](void*, void*) {
            static int ran;
            static constexpr int calls = 200000;
            for (int i = 0; i < calls; i++)
                core_dfc([](void*, void*) { ran++; }, nullptr, nullptr, 0);
            core_dfc([](void*, void*) { a.then = [](reader*) { end(ran == calls); }, a.feed(); }, nullptr,
                     nullptr, 0);
        },
        nullptr, nullptr, 0);
    a.make("a");
    run();
}

void descriptor_closed_under_its_client()
{
    begin();
    a.make("a");
    b.make("b", [](reader*) { end(trail == "b" + std::to_string(passes) + " " && passes < 5); });
    core_dfc(
        [](void*, void*) {
            close(a.fds[0]);
            b.feed();
        },
        nullptr, nullptr, 0);
    run();
}

// Four threads queue calls and take a client of their own in and out; each thread's calls keep their order.
void many_threads()
{
    constexpr int threads = 4, each = 3000;
    plat_attach(&plat_linux_co);
    dcp_init();
    tmr_init();
    core_init();
    static std::array<int, threads> next;
    static int done;
    for (std::intptr_t t = 0; t < threads; t++)
        std::thread([t] {
            reader own;
            own.make("");
            for (std::intptr_t i = 0; i < each; i++) {
                core_dfc(
                    [](void* p1, void* p2) {
                        int& want = next[reinterpret_cast<std::size_t>(p1)];
                        if (want++ != static_cast<int>(reinterpret_cast<std::intptr_t>(p2)))
                            end(false);
                        if (want == each && ++done == threads)
                            end(true);
                    },
                    reinterpret_cast<void*>(t), reinterpret_cast<void*>(i), 0);
                core_rm_rd_cb_client(&own.client);
                core_add_rd_cb_client(&own.client);
            }
            core_rm_rd_cb_client(&own.client);
        }).detach();
    run();
}

} // namespace

TEST(Core, EachScenarioEndsWell)
{
    EXPECT_EXIT(calls_before_clients_each_in_order(), testing::ExitedWithCode(0), "^$");
    EXPECT_EXIT(burst_fills_the_pipe(), testing::ExitedWithCode(0), "^$");
    EXPECT_EXIT(reader_removed_by_another(), testing::ExitedWithCode(0), "^$");
    EXPECT_EXIT(descriptor_closed_under_its_client(), testing::ExitedWithCode(0), "^$");
    EXPECT_EXIT(many_threads(), testing::ExitedWithCode(0), "^$");
}
