#include "bench_phone.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"

using namespace std::chrono;

bench_phone::bench_phone()
{
    std::string program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "../phone/hvt-virtual";
    char folder[] = "/tmp/hvt-bench-XXXXXX";
    if (mkdtemp(folder) == nullptr)
        return;
    dir = folder;
    char* argv[] = {program.data(), folder, nullptr};
    if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv, environ) != 0)
        return;
    int control = -1;
    while ((control = control_connect(dir)) < 0)
        std::this_thread::sleep_for(milliseconds(5));
    std::string got;
    control_ask(control, "idle", got);
    port = port_open_raw(dir + "/ttyGS0");
    port_take(port, got);
}

bench_phone::~bench_phone()
{
    if (pid > 0) {
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
    }
    if (!dir.empty())
        std::filesystem::remove_all(dir);
}

double bench_phone::trip(const char* line, const char* end, int timeout_ms) const
{
    const auto from = steady_clock::now();
    std::string got;
    if (!port_send(port, line, got, timeout_ms))
        return -1;
    while (!got.ends_with(end)) {
        pollfd p{port, POLLIN, 0};
        if (poll(&p, 1, timeout_ms) <= 0 || !port_take(port, got))
            return -1;
    }
    return static_cast<double>(duration_cast<nanoseconds>(steady_clock::now() - from).count());
}
