// A virtual phone for the benchmarks that talk to one as a station does. Needs hvt-virtual of the same build
// beside it.
#pragma once

#include <string>
#include <sys/types.h>

struct bench_phone {
    std::string dir;
    pid_t pid = -1;
    int port = -1; // -1 when it couldn't be started

    bench_phone();
    ~bench_phone(); // takes the phone and its folder away
    bench_phone(const bench_phone&) = delete;
    bench_phone& operator=(const bench_phone&) = delete;

    // Sends a line and waits for its reply, which ends in `end`: the time in nanoseconds, or -1.
    double trip(const char* line, const char* end, int timeout_ms) const;
};
