// How every benchmark of this folder reports: one row for each limit, measured against a yardstick of the
// same run, from the least of the repetitions.
#pragma once

#include <cstdio>

// Prints a row and gives 1 when the ratio is over its limit, 0 otherwise. Times in nanoseconds.
inline int bench_row(const char* name, double measured, double yardstick, double limit)
{
    const double ratio = measured / yardstick;
    std::printf("%-52s %12.1f ns %12.1f ns   ratio %6.2f   limit %5.2f%s\n", name, measured, yardstick, ratio,
                limit, ratio > limit ? "   OVER" : "");
    std::fflush(stdout);
    return ratio > limit ? 1 : 0;
}

// The same for a plain figure.
inline int bench_figure(const char* name, double measured, double limit, const char* unit)
{
    std::printf("%-52s %12.2f %s   limit %.2f%s\n", name, measured, unit, limit,
                measured > limit ? "   OVER" : "");
    std::fflush(stdout);
    return measured > limit ? 1 : 0;
}
