// What the benchmarks share: each measures pairs, the thing itself and what it is held against, in turns and
// in the same run, and prints the ratio of the two beside its limit. The least of the repetitions counts,
// since these machines are noisy.
#pragma once

#include <span>

struct ratio_row {
    const char* subject; // names of two registered benchmarks
    const char* base;
    double limit; // times of base that subject may take
};

// Runs all registered benchmarks and prints the rows. 0, or 1 when a ratio is over its limit.
int bench_ratio_main(int argc, char** argv, std::span<const ratio_row> rows);
