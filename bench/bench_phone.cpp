#include "bench_phone.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"

using namespace std::chrono_literals;

double bench_processor_ns(pid_t pid)
{
    clockid_t clock;
    timespec t;
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &t) != 0)
        std::exit(1);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

pid_t bench_start(const std::string& program, const char* argument)
{
    const pid_t pid = fork();
    if (pid != 0)
        return pid;
    execl(program.c_str(), program.c_str(), argument, nullptr);
    _exit(127);
}

void bench_stop(pid_t pid)
{
    kill(pid, SIGKILL);
    int status;
    waitpid(pid, &status, 0);
}

std::string bench_beside(const char* name)
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

bench_phone::bench_phone(std::string_view conf)
{
    char pattern[] = "/tmp/hvt-bench-XXXXXX";
    dir = mkdtemp(pattern);
    std::ofstream(dir + "/phone.conf") << conf;
    pid = bench_start(bench_beside("../phone/hvt-virtual"), dir.c_str());
    while ((port = open((dir + "/ttyGS0").c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) < 0)
        std::this_thread::sleep_for(1ms);
    while (access((dir + "/control").c_str(), F_OK) != 0)
        std::this_thread::sleep_for(1ms);
    std::this_thread::sleep_for(200ms);
    std::string greeting;
    port_take(port, greeting);
}

bench_phone::~bench_phone()
{
    bench_stop(pid);
    close(port);
    std::filesystem::remove_all(dir);
}

void bench_phone::ask(const std::string& words) const
{
    std::string answer;
    const int fd = control_connect(dir);
    const bool done = fd >= 0 && control_ask(fd, words, answer);
    close(fd);
    if (!done) {
        std::fprintf(stderr, "%s: %s\n", words.c_str(), answer.c_str());
        std::exit(1);
    }
}

double bench_phone::trip(std::string_view line, std::string_view end, int timeout_ms) const
{
    const auto from = std::chrono::steady_clock::now();
    std::string got;
    bool there = port_send(port, line, got, timeout_ms);
    while (there && !got.ends_with(end)) {
        pollfd p{port, POLLIN, 0};
        there = poll(&p, 1, timeout_ms) > 0 && port_take(port, got);
    }
    if (!there) {
        std::fprintf(stderr, "no answer to %.*s\n", static_cast<int>(line.size()), line.data());
        std::exit(1);
    }
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - from).count();
}
