#include "runner/phone_fixture.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"
#include "runner/file_text.h"

std::string hvt_virtual;

namespace {

using namespace std::chrono_literals;

constexpr const char* greeting = "TP,OK\r\n";

int wait_for(pid_t pid)
{
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

bool phone_runs(const std::string& dir)
{
    const int fd = open((dir + "/hvt.pid").c_str(), O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool locked = flock(fd, LOCK_EX | LOCK_NB) != 0;
    close(fd);
    return locked;
}

int pid_of(const std::string& dir)
{
    return std::atoi(file_text(dir + "/hvt.pid").c_str());
}

// Waits for the end of the test, at the pipe whose other end it has, and clears away what it has left.
[[noreturn]] void guard_phone(const std::string& dir, int pipe_end)
{
    setsid();
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (int fd = 0; fd < 3; fd++)
        dup2(null, fd);
    char none;
    while (read(pipe_end, &none, 1) < 0 && errno == EINTR) {
    }
    if (const int pid = pid_of(dir); pid > 0 && phone_runs(dir))
        kill(pid, SIGKILL);
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
    _exit(0);
}

} // namespace

phone_fixture::phone_fixture()
{
    const char* tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp != nullptr ? tmp : "/tmp") + "/hvt-phone-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
        std::perror("mkdtemp");
        std::exit(1);
    }
    dir = pattern;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0 || (guard = fork()) < 0) {
        std::perror("the phone's guard");
        std::exit(1);
    }
    if (guard == 0) {
        close(ends[1]);
        guard_phone(dir, ends[0]);
    }
    close(ends[0]);
    guard_end = ends[1];
}

phone_fixture::~phone_fixture()
{
    down();
    close(guard_end);
    wait_for(guard);
}

std::string phone_fixture::up()
{
    std::string background = "--background";
    char* argv[] = {hvt_virtual.data(), background.data(), dir.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int errors = memfd_create("start-errors", MFD_CLOEXEC);
    posix_spawn_file_actions_adddup2(&actions, errors, 2);
    pid_t pid;
    const int error = posix_spawn(&pid, hvt_virtual.c_str(), &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        close(errors);
        return hvt_virtual + " can't be started";
    }
    const int status = wait_for(pid);
    const std::string complaint = file_text("/proc/self/fd/" + std::to_string(errors));
    close(errors);
    if (status != 0)
        return "the phone doesn't start: " + complaint;
    if (port < 0)
        port = port_open_raw(dir + "/ttyGS0");
    if (port < 0)
        return "the station's port can't be opened";
    return reconnect() ? take_greeting() : "the control port can't be reached";
}

std::string phone_fixture::take_greeting() const
{
    std::string answer;
    if (!control_ask(control, "idle", answer))
        return "the program doesn't come to rest: " + answer;
    std::string got;
    port_take(port, got);
    return got.empty() || got == greeting ? "" : "the phone begins with something else: " + got;
}

bool phone_fixture::reconnect()
{
    if (control >= 0)
        close(control);
    for (int turn = 0; turn < 1000; turn++) {
        control = control_connect(dir);
        if (control >= 0)
            return true;
        std::this_thread::sleep_for(5ms);
    }
    return false;
}

bool phone_fixture::runs() const
{
    return phone_runs(dir);
}

// What the program says on its standard output by design is no complaint: the bytes of a serial line.
static std::string complaints_of(const std::string& output)
{
    std::istringstream lines(output);
    std::string complaints;
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with("buf["))
            complaints += line + '\n';
    return complaints;
}

std::string phone_fixture::down()
{
    if (control >= 0)
        close(control);
    control = -1;
    // With the process its end of the port goes, and the station's end is dead.
    if (port >= 0)
        close(port);
    port = -1;
    const int pid = pid_of(dir);
    if (pid > 0 && runs())
        kill(pid, SIGTERM);
    for (int turn = 0; turn < 2000 && runs(); turn++) {
        if (turn == 1500)
            kill(pid, SIGKILL);
        std::this_thread::sleep_for(5ms);
    }
    return complaints_of(file_text(dir + "/log/output"));
}

bool phone_fixture::ask(std::string_view line, std::string& answer)
{
    return control_ask(control, line, answer);
}

void phone_fixture::receive(std::string& got, std::size_t size) const
{
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (got.size() < size && std::chrono::steady_clock::now() < end) {
        pollfd p{port, POLLIN, 0};
        if (poll(&p, 1, 100) > 0 && !port_take(port, got))
            return;
    }
}
