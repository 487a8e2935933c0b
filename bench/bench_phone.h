// A phone for a benchmark: a process in a folder of its own, asked on its two ports; and what processes cost.
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

// Processor time of a process until now.
double bench_processor_ns(pid_t pid);

// A program of the folder of the benchmarks.
std::string bench_beside(const char* name);

// Starts a program, with at most one argument; ends it.
pid_t bench_start(const std::string& program, const char* argument = nullptr);
void bench_stop(pid_t pid);

// On, made after the lines of a phone.conf, until the end of its life.
struct bench_phone {
    std::string dir;
    pid_t pid;
    int port;

    explicit bench_phone(std::string_view conf = "");
    bench_phone(const bench_phone&) = delete;
    bench_phone& operator=(const bench_phone&) = delete;
    ~bench_phone();

    // Sends a line, its CR included, and waits for the answer, which ends in `end`: the time in nanoseconds.
    // One that doesn't come ends the benchmark.
    double trip(std::string_view line, std::string_view end = "\n", int timeout_ms = 10'000) const;

    // One request to the control port; a refused one ends the benchmark.
    void ask(const std::string& words) const;
};
