// The board's commands as a station feels them: what i2cr costs beyond a bare line and ftmc beyond the
// modem's time, and how long the dump of an empty store takes. Needs hvt-virtual of the same build beside it.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"
#include "row.h"

namespace {

using namespace std::chrono;

constexpr int batches = 20;
constexpr int trips = 1000;

// Sends a line and waits for its reply, which ends in `end`: the time in nanoseconds, or -1.
double trip(int port, const char* line, const char* end, int timeout_ms)
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

// The least mean of a batch, for each of two lines in turns.
bool round_trips(int port, const char* const (&lines)[2], double (&best)[2])
{
    best[0] = best[1] = 1e18;
    for (int i = 0; i < batches; i++) {
        for (int k = 0; k < 2; k++) {
            double sum = 0;
            for (int n = 0; n < trips; n++) {
                const double ns = trip(port, lines[k], "OK\r\n", 5000);
                if (ns < 0)
                    return false;
                sum += ns;
            }
            best[k] = std::min(best[k], sum / trips);
        }
    }
    return true;
}

// An exchange of 4096 bytes each way, which the modem of the virtual phone takes 0.3 ms for: -1 or
// milliseconds.
double channel_time(int port)
{
    std::string line = "ftmc=0x4B,0x0B,0x0E,0x00"; // is echoed
    for (int i = 4; i < 4096; i++)
        line += "," + std::to_string(i % 251);
    line += "\r";
    double best = 1e18;
    for (int i = 0; i < 100; i++) {
        const double ns = trip(port, line.c_str(), "OK\r\n", 5000);
        if (ns < 0)
            return -1;
        best = std::min(best, ns);
    }
    return best / 1e6 - 0.3;
}

int measure(int port)
{
    double ns[2];
    if (!round_trips(port, {"case?\r", "i2cr=5,18,0,40\r"}, ns))
        return 1;
    int over = bench_figure("i2cr of 64 bytes beyond case?", (ns[1] - ns[0]) / 1000, 60, "us");
    const double channel_ms = channel_time(port);
    if (channel_ms < 0)
        return 1;
    over += bench_figure("ftmc of 4096 bytes beyond the modem's time", channel_ms, 3, "ms");
    if (trip(port, "tact=3\r", "OK\r\n", 5000) < 0 || trip(port, "tact=1\r", "OK\r\n", 5000) < 0)
        return 1;
    double dump = 1e18;
    for (int i = 0; i < 3; i++) {
        const double once = trip(port, "tact=12,1\r", "OK\r\n", 120'000);
        if (once < 0)
            return 1;
        dump = std::min(dump, once);
    }
    return over + bench_figure("tact=12,1 over an empty store", dump / 1e9, 2, "s");
}

} // namespace

int main()
{
    std::string program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "../phone/hvt-virtual";
    char dir[] = "/tmp/hvt-bench-XXXXXX";
    if (mkdtemp(dir) == nullptr)
        return 1;
    char* argv[] = {program.data(), dir, nullptr};
    pid_t pid;
    if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv, environ) != 0)
        return 1;
    int control = -1;
    while ((control = control_connect(dir)) < 0)
        std::this_thread::sleep_for(milliseconds(5));
    std::string got;
    control_ask(control, "idle", got);
    const int port = port_open_raw(std::string(dir) + "/ttyGS0");
    port_take(port, got);
    const int over = measure(port);
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    std::filesystem::remove_all(dir);
    return over == 0 ? 0 : 1;
}
