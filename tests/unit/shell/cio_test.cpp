// The console's output when more than one thread has something to say.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

#include "cio_v2/cio.h"

namespace {

std::string written;

cio_dev_obj spy = {.open = [](cio_dev_obj*) { return 0; },
                   .wr =
                       [](cio_dev_obj*, const void* buf, std::size_t len) {
                           written.append(static_cast<const char*>(buf), len);
                           return static_cast<int>(len);
                       },
                   .rd = [](cio_dev_obj*, void*, std::size_t) { return 0; },
                   .close = [](cio_dev_obj*) {},
                   .p_owner = nullptr,
                   .rd_cb = nullptr};
cio_dev spy_dev = {{nullptr}, "spy", [](const void*) { return &spy; }};

TEST(ConsoleOutput, ALineOfAnotherThreadWaitsForAHoldAndFindsTheLineTermPutBack)
{
    static cio console;
    static char line[64];
    dcp_init();
    cio_dev_init();
    cio_dev_reg(&spy_dev);
    cio_init(&console, line, sizeof line, "console", "spy", nullptr, nullptr);
    cio_s3_set(',', '\r');
    cio_s4_set(0, '\n', 0);
    const int id = console.clnt.id;
    for (int turn = 0; turn < 50; turn++) {
        std::atomic<bool> speaks = false;
        std::thread other([&] {
            speaks = true;
            dcp_printf(id, "late", "%s", "one\n");
        });
        {
            const cio_hold hold;
            const std::size_t before = written.size();
            while (!speaks)
                std::this_thread::yield();
            cio_s3_set(0, '\r');
            dcp_printf(id, "list", "%s", "");
            for (int pause = 0; pause < 100; pause++)
                std::this_thread::yield();
            dcp_bin_tx(id, "1,2,", 4, nullptr, nullptr);
            cio_s3_set(',', '\r');
            EXPECT_EQ(written.substr(before), "list:1,2,");
        }
        other.join();
    }
    for (std::size_t at = 0; (at = written.find("late:", at)) != std::string::npos; at++)
        EXPECT_EQ(written.substr(at, 10), "late:one\n,");
    dcp_init();
}

} // namespace
