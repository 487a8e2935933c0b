// The program as a station feels it: console round trips beside a bare echo program, the start beside a bare
// program, resident size. Needs the programs of the same build beside it.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "client/port_client.h"
#include "row.h"

namespace {

using namespace std::chrono;

constexpr int batches = 12;
constexpr int trips = 2000;
constexpr int starts = 30;
constexpr const char reply[] = "CASE:false,OK\r\n";

std::string here;

struct child {
    pid_t pid;
    int out; // its standard output
};

child start(const std::vector<std::string>& args)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        std::exit(1);
    const pid_t pid = fork();
    if (pid == 0) {
        std::vector<char*> argv;
        for (const std::string& arg : args)
            argv.push_back(const_cast<char*>(arg.c_str()));
        argv.push_back(nullptr);
        dup2(ends[1], 1);
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(ends[1]);
    return {pid, ends[0]};
}

void stop(const child& c)
{
    kill(c.pid, SIGKILL);
    int status;
    waitpid(c.pid, &status, 0);
    close(c.out);
}

double ns_since(steady_clock::time_point from)
{
    return static_cast<double>(duration_cast<nanoseconds>(steady_clock::now() - from).count());
}

bool trip(int port, const char* line, std::size_t wanted)
{
    if (write(port, line, std::strlen(line)) < 0)
        return false;
    std::size_t got = 0;
    while (got < wanted) {
        pollfd p{port, POLLIN, 0};
        char buf[4096];
        if (poll(&p, 1, 5000) <= 0)
            return false;
        const ssize_t n = read(port, buf, sizeof buf);
        if (n <= 0)
            return false;
        got += static_cast<std::size_t>(n);
    }
    return true;
}

struct batch {
    double mean;
    double p99;
};

batch run_batch(int port)
{
    std::vector<double> times;
    const auto from = steady_clock::now();
    for (int i = 0; i < trips; i++) {
        const auto at = steady_clock::now();
        if (!trip(port, "case?\r", sizeof reply - 1)) {
            std::fputs("no reply\n", stderr);
            std::exit(1);
        }
        times.push_back(ns_since(at));
    }
    const double mean = ns_since(from) / trips;
    std::nth_element(times.begin(), times.begin() + trips * 99 / 100, times.end());
    return {mean, times[trips * 99 / 100]};
}

std::string read_name(int fd)
{
    std::string name;
    char c;
    while (read(fd, &c, 1) == 1 && c != '\n')
        name += c;
    return name;
}

// Waits for the link of a port that has just been started, and opens it.
int wait_port(const std::string& path)
{
    for (;;) {
        const int fd = open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (fd >= 0)
            return fd;
        std::this_thread::sleep_for(20us);
    }
}

double start_time(const std::vector<std::string>& args, const std::string& dir)
{
    std::filesystem::remove(dir + "/ttyGS0");
    const auto from = steady_clock::now();
    const child c = start(args);
    const int port = wait_port(dir + "/ttyGS0");
    trip(port, "\r", 1);
    const double time = ns_since(from);
    close(port);
    stop(c);
    return time;
}

int round_trips(const std::string& dir)
{
    const child phone = start({here + "/../phone/hvt-virtual", dir});
    const child echo = start({here + "/bare_echo"});
    const int phone_port = wait_port(dir + "/ttyGS0");
    const int echo_port = port_open_raw(read_name(echo.out));
    std::this_thread::sleep_for(100ms);
    std::string ignored;
    port_take(phone_port, ignored);
    double mean[2] = {1e18, 1e18};
    double p99[2] = {1e18, 1e18};
    for (int i = 0; i < batches; i++) {
        const batch b[2] = {run_batch(phone_port), run_batch(echo_port)};
        for (int k = 0; k < 2; k++) {
            mean[k] = std::min(mean[k], b[k].mean);
            p99[k] = std::min(p99[k], b[k].p99);
        }
    }
    stop(echo);
    stop(phone);
    close(phone_port);
    close(echo_port);
    return bench_row("console round trip of case?, beside a bare echo", mean[0], mean[1], 1 / 0.9) +
           bench_row("  its 99th percentile", p99[0], p99[1], 1.5);
}

int start_up(const std::string& dir)
{
    const std::vector<std::string> phone = {here + "/../phone/hvt-virtual", dir};
    double known = 1e18;
    double first = 1e18;
    double bare = 1e18;
    for (int i = 0; i < starts; i++) {
        bare = std::min(bare, start_time({here + "/bare_start", dir}, dir));
        known = std::min(known, start_time(phone, dir));
        const std::string fresh = dir + "-fresh";
        std::filesystem::remove_all(fresh);
        first = std::min(first, start_time({phone[0], fresh}, fresh));
        std::filesystem::remove_all(fresh);
    }
    return bench_row("exec to first byte, DIR exists, beside a bare program", known, bare, 2) +
           bench_row("  first start of a DIR", first, bare, 5);
}

// A field of the kernel's count of a process's memory; of the two files only smaps_rollup is exact.
double memory_mib(pid_t pid, const char* file_name, const char* field)
{
    std::ifstream file("/proc/" + std::to_string(pid) + "/" + file_name);
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(field))
            return std::atof(line.c_str() + std::strlen(field)) / 1024;
    return -1;
}

int resident_size(const std::string& dir)
{
    const child phone = start({here + "/../phone/hvt-virtual", dir});
    const int port = wait_port(dir + "/ttyGS0");
    std::this_thread::sleep_for(100ms);
    std::string got;
    port_take(port, got);
    double early = 0;
    for (int i = 0; i < 1'000'000; i++) {
        if (!trip(port, "case?\r", sizeof reply - 1))
            return 1;
        if (i != 1000)
            continue;
        std::this_thread::sleep_for(2s); // what works by the clock has had its first turn too
        early = memory_mib(phone.pid, "smaps_rollup", "Rss:");
    }
    const double late = memory_mib(phone.pid, "smaps_rollup", "Rss:");
    const double peak = memory_mib(phone.pid, "status", "VmHWM:");
    stop(phone);
    close(port);
    return bench_figure("peak resident size", peak, 12, "MiB") +
           bench_figure("  its growth from 1000 to a million lines", late - early, 0.25, "MiB");
}

} // namespace

int main(int argc, char** argv)
{
    here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    char pattern[] = "/tmp/hvt-bench-XXXXXX";
    if (mkdtemp(pattern) == nullptr)
        return 1;
    const std::string dir = pattern;
    int over = start_up(dir) + round_trips(dir);
    if (argc < 2 || std::strcmp(argv[1], "quick") != 0)
        over += resident_size(dir);
    std::filesystem::remove_all(dir);
    return over == 0 ? 0 : 1;
}
