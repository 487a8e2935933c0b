#include "bench_ratio.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

#include "row.h"

namespace {

// Keeps the least real time of each benchmark, in nanoseconds, and prints nothing.
class least_reporter : public benchmark::BenchmarkReporter {
public:
    std::map<std::string, double> least;

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred)
                continue;
            const double ns =
                run.GetAdjustedRealTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
            const auto [at, is_new] = least.emplace(run.run_name.function_name, ns);
            if (!is_new)
                at->second = std::min(at->second, ns);
        }
    }
};

} // namespace

int bench_ratio_main(int argc, char** argv, std::span<const ratio_row> rows)
{
    std::vector<char*> args(argv, argv + argc);
    std::string turns = "--benchmark_enable_random_interleaving=true";
    std::string repetitions = "--benchmark_repetitions=25";
    std::string min_time = "--benchmark_min_time=0.02";
    for (std::string* p : {&turns, &repetitions, &min_time})
        args.insert(args.begin() + 1, p->data());
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    least_reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    int over = 0;
    for (const ratio_row& row : rows) {
        const auto subject = reporter.least.find(row.subject);
        const auto base = reporter.least.find(row.base);
        if (subject == reporter.least.end() || base == reporter.least.end())
            continue;
        over += bench_row(row.subject, subject->second, base->second, row.limit);
    }
    return over > 0 ? 1 : 0;
}
