// A line of trace that the mask keeps back, against an empty function of the same arguments; and a line of 60
// characters into the memory buffer, against what it can't do without: a clock reading, a lock that nobody
// else wants, and the printing of the whole line.
#include <array>
#include <benchmark/benchmark.h>
#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <mutex>

#include "bench_ratio.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"
#include "tmr/tmr.h"
#include "trc/trc.h"

// Weak, so that the compiler can't leave out its arguments.
__attribute__((weak, format(printf, 5, 6))) int empty(trc_node*, std::uint32_t, const char*, int, const char*,
                                                      ...);
int empty(trc_node*, std::uint32_t, const char*, int, const char*, ...)
{
    return 0;
}

namespace {

std::array<char, 1u << 20> memory;
trc_client client{"aclmr_bmi055", 0x02};
trc_node node;

void kept_back(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            trc_trace(&node, 0x04, "aclmr_bmi055.cpp", 120, "x %d, y %d, z %d", 12, -7, 991));
}

void empty_function(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            empty(&node, 0x04, "aclmr_bmi055.cpp", 120, "x %d, y %d, z %d", 12, -7, 991));
}

// "[    0.000123] aclmr_bmi055: register 02: 00000000000077 mg" has 59 characters before its line end.
void whole_line(benchmark::State& state)
{
    for (auto _ : state) {
        std::size_t used, left;
        trc_get_buf_sz(&used, &left);
        if (left < 100)
            trc_clear_buf();
        benchmark::DoNotOptimize(
            trc_trace(&node, 0x02, "aclmr_bmi055.cpp", 120, "register %02x: %014d mg", 2, 77));
    }
}

__attribute__((noinline, format(printf, 3, 4))) int print(char* p, std::size_t size, const char* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    const int n = std::vsnprintf(p, size, fmt, args);
    va_end(args);
    return n;
}

void least_line(benchmark::State& state)
{
    static std::mutex mutex;
    char line[1024];
    for (auto _ : state) {
        timespec now;
        clock_gettime(CLOCK_MONOTONIC, &now);
        const std::lock_guard lock(mutex);
        benchmark::DoNotOptimize(print(line, sizeof line, "[%5lu.%06lu] %s: register %02x: %014d mg\n",
                                       static_cast<unsigned long>(now.tv_sec % 60),
                                       static_cast<unsigned long>(now.tv_nsec / 1000), client.name, 2, 77));
    }
}

constexpr ratio_row rows[] = {
    {"a line kept back", "an empty function", 1.5},
    {"a line of 60 characters", "clock, lock and print", 1.3},
};

} // namespace

int main(int argc, char** argv)
{
    plat_attach(&plat_linux_co);
    tmr_init();
    trc_init(memory.data(), memory.size());
    trc_mode_set(TRC_MODE_BUFFER);
    trc_reg(&client, &node);
    benchmark::RegisterBenchmark("a line kept back", kept_back);
    benchmark::RegisterBenchmark("an empty function", empty_function);
    benchmark::RegisterBenchmark("a line of 60 characters", whole_line);
    benchmark::RegisterBenchmark("clock, lock and print", least_line);
    return bench_ratio_main(argc, argv, rows);
}
