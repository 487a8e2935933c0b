// Runs station transcripts, each case against a fresh virtual phone, or all of them against a real port.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>

#include "client/port_client.h"
#include "runner/phone_fixture.h"
#include "runner/report.h"
#include "runner/steps.h"
#include "runner/transcript.h"

namespace {

constexpr const char* usage =
    "usage: play [-n TIMES] [--limit MS] [--case N] [--junit FILE] [--json FILE] FILE.t...\n"
    "  -n TIMES      runs all cases so often, 1 to 1000000\n"
    "  --limit MS    how long an expectation waits, 1 to 3600000; 30000 unless told otherwise\n"
    "  --case N      the Nth case of each file alone\n"
    "  --junit FILE  the result as JUnit XML, too\n"
    "  --json FILE   the result as JSON lines, too, each when its case has ended; - for standard output\n"
    "  --fresh LINE  a shell line that makes a real phone fresh, run before each case\n";

struct options {
    std::vector<std::string> files;
    std::string real_port;
    std::string junit;
    std::string json;
    std::string fresh;
    int only = 0;
    int times = 1;
    int limit_ms = default_limit_ms;
};

struct transcript_file {
    std::string path;
    std::vector<test_case> cases;
};

bool read_number(const char* text, int most, int& value)
{
    char* end;
    const long number = std::strtol(text, &end, 10);
    value = static_cast<int>(number);
    return *text != '\0' && *end == '\0' && number >= 1 && number <= most;
}

bool read_option(const std::string& name, const char* value, options& o)
{
    if (name == "--phone")
        hvt_virtual = value;
    else if (name == "--port")
        o.real_port = value;
    else if (name == "--junit")
        o.junit = value;
    else if (name == "--json")
        o.json = value;
    else if (name == "--fresh")
        o.fresh = value;
    else if (name == "--case")
        return read_number(value, 1'000'000, o.only);
    else if (name == "-n")
        return read_number(value, 1'000'000, o.times);
    else if (name == "--limit")
        return read_number(value, 3'600'000, o.limit_ms);
    else
        return false;
    return true;
}

bool read_options(int argc, char** argv, options& o)
{
    for (int i = 1; i < argc; i++) {
        if (argv[i][0] != '-')
            o.files.emplace_back(argv[i]);
        else if (i + 1 >= argc || !read_option(argv[i], argv[i + 1], o))
            return false;
        else
            i++;
    }
    return !o.files.empty() && (hvt_virtual.empty() != o.real_port.empty());
}

// Writes what there is of the JSON lines and of the text as it comes.
struct reporter {
    const options& o;
    std::FILE* json = nullptr;
    std::vector<report_row> rows = {};
    int passed = 0;
    int failed = 0;
    int skipped = 0;

    void add(const report_row& row)
    {
        (row.what == verdict::passed ? passed : row.what == verdict::failed ? failed : skipped)++;
        if (json != stdout)
            std::fputs(report_text(row, o.times).c_str(), stdout);
        std::fflush(stdout);
        if (json != nullptr) {
            std::fputs(report_json(row).c_str(), json);
            std::fflush(json);
        }
        if (!o.junit.empty())
            rows.push_back(row);
    }
};

void run_file(const transcript_file& file, int real, int run, reporter& r)
{
    for (std::size_t i = 0; i < file.cases.size(); i++) {
        const test_case& c = file.cases[i];
        if (r.o.only != 0 && r.o.only != static_cast<int>(i) + 1)
            continue;
        if (real >= 0 && needs_phone(c)) {
            r.add({file.path, c.title, run, c.line, verdict::skipped, "needs the virtual phone", 0});
            continue;
        }
        if (real >= 0 && !r.o.fresh.empty() && std::system(r.o.fresh.c_str()) != 0) {
            r.add({file.path, c.title, run, c.line, verdict::failed, "the phone can't be made fresh", 0});
            continue;
        }
        const case_result result = run_case(c, real, r.o.limit_ms);
        const verdict what = result.wrong.empty() ? verdict::passed : verdict::failed;
        r.add({file.path, c.title, run, what == verdict::passed ? c.line : result.line, what, result.wrong,
               result.seconds});
    }
}

bool write_junit(const reporter& r)
{
    std::ofstream file(r.o.junit, std::ios::trunc);
    file << report_junit(r.rows);
    file.close();
    if (!file)
        std::perror(r.o.junit.c_str());
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char** argv)
{
    options o;
    if (!read_options(argc, argv, o)) {
        std::fputs(usage, stderr);
        return 2;
    }
    std::vector<transcript_file> files;
    for (const std::string& path : o.files) {
        files.push_back({path, {}});
        if (const std::string wrong = read_transcript(path, files.back().cases); !wrong.empty()) {
            std::fprintf(stderr, "%s\n", wrong.c_str());
            return 2;
        }
    }
    const int real = o.real_port.empty() ? -1 : port_open_raw(o.real_port);
    if (!o.real_port.empty() && real < 0) {
        std::perror(o.real_port.c_str());
        return 2;
    }
    reporter r{o};
    if (!o.json.empty() && (r.json = o.json == "-" ? stdout : std::fopen(o.json.c_str(), "w")) == nullptr) {
        std::perror(o.json.c_str());
        return 2;
    }
    for (int run = 1; run <= o.times; run++)
        for (const transcript_file& file : files)
            run_file(file, real, run, r);
    if (r.json != stdout)
        std::printf("%d passed, %d failed, %d skipped\n", r.passed, r.failed, r.skipped);
    if (!o.junit.empty() && !write_junit(r))
        return 2;
    return r.failed == 0 && r.passed + r.skipped > 0 ? 0 : 1;
}
