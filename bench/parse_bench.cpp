// From a line to its handler, in a table of 170 commands, against the least that could do it: one copy of the
// line, its length, one indirect call.
#include <array>
#include <benchmark/benchmark.h>
#include <cstring>
#include <string>

#include "bench_ratio.h"
#include "dcp/dcp.h"

namespace {

constexpr int table_rows = 170;

std::array<std::string, table_rows> names;
std::array<dcp_cmd, table_rows + 1> table;
dcp_cmd_link table_link;

int do_count(int, int, int argc, const dcp_word* argv)
{
    benchmark::DoNotOptimize(argv);
    return argc;
}

int (*volatile measure)(const char* line, std::size_t len) = [](const char* line, std::size_t len) {
    benchmark::DoNotOptimize(line);
    return static_cast<int>(len);
};

// Four letters a name, as most commands have.
void make_table()
{
    for (std::size_t i = 0; i < table_rows; i++) {
        names[i] = {static_cast<char>('a' + i % 26), static_cast<char>('a' + i / 26), 'c', 't'};
        table[i] = {names[i].c_str(), "", "%v,%v", "", do_count, DCP_GRP_PRODUCTION};
    }
    dcp_init();
    dcp_case_set(0);
    dcp_cmd_add(table.data(), &table_link);
}

void parse(benchmark::State& state, const std::string& line)
{
    char buf[256];
    for (auto _ : state) {
        std::memcpy(buf, line.c_str(), line.size() + 1);
        benchmark::DoNotOptimize(dcp_parse(0, buf));
    }
}

void least(benchmark::State& state, const std::string& line)
{
    char buf[256];
    for (auto _ : state) {
        std::memcpy(buf, line.c_str(), line.size() + 1);
        benchmark::DoNotOptimize(buf);
        benchmark::DoNotOptimize(measure(buf, std::strlen(buf)));
    }
}

constexpr ratio_row rows[] = {
    {"one value, first row", "least of one value", 3},  {"one value, middle row", "least of one value", 3},
    {"one value, last row", "least of one value", 3},   {"thirteen values", "least of thirteen values", 6},
    {"an unknown name", "least of an unknown name", 2},
};

} // namespace

int main(int argc, char** argv)
{
    make_table();
    const std::string thirteen = names[3] + "=1,22,0x1f,4,5,600,7,8,9,10,11,1200,13";
    benchmark::RegisterBenchmark("one value, first row", parse, names[0] + "=1");
    benchmark::RegisterBenchmark("one value, middle row", parse, names[table_rows / 2] + "=1");
    benchmark::RegisterBenchmark("one value, last row", parse, names[table_rows - 1] + "=1");
    benchmark::RegisterBenchmark("least of one value", least, names[0] + "=1");
    benchmark::RegisterBenchmark("thirteen values", parse, thirteen);
    benchmark::RegisterBenchmark("least of thirteen values", least, thirteen);
    benchmark::RegisterBenchmark("an unknown name", parse, std::string("nosuch=1"));
    benchmark::RegisterBenchmark("least of an unknown name", least, std::string("nosuch=1"));
    return bench_ratio_main(argc, argv, rows);
}
