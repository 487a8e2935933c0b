// What the battery costs: its commands beside a plain one, a tick of the charging monitor, an idle phone. On
// the virtual phone, whose own work counts too.
#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "client/control_client.h"
#include "client/port_client.h"
#include "row.h"

namespace {

using namespace std::chrono;

constexpr int batches = 12;
constexpr int trips = 2000;
constexpr int idle_s = 4;
constexpr int idle_spans = 5;
constexpr double most_idle_share = 0.5; // percent of one core
constexpr double most_idle_ratio = 1.2;
constexpr int tick_ms = 2000; // of the monitor
constexpr int span_ms = 40;
constexpr int periods = 30;

std::string here; // the folder of the benchmarks

double processor_ns(pid_t pid)
{
    clockid_t clock;
    timespec t;
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &t) != 0)
        std::exit(1);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

pid_t start(const std::string& program, const char* argument)
{
    const pid_t pid = fork();
    if (pid != 0)
        return pid;
    execl(program.c_str(), program.c_str(), argument, nullptr);
    _exit(127);
}

void stop(pid_t pid)
{
    kill(pid, SIGKILL);
    int status;
    waitpid(pid, &status, 0);
}

// A phone in a folder of its own, made after the lines of a phone.conf.
struct phone {
    std::string dir;
    pid_t pid;
    int port;

    explicit phone(std::string_view conf)
    {
        char pattern[] = "/tmp/hvt-bench-XXXXXX";
        dir = mkdtemp(pattern);
        std::ofstream(dir + "/phone.conf") << conf;
        pid = start(here + "/../phone/hvt-virtual", dir.c_str());
        while ((port = open((dir + "/ttyGS0").c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) < 0)
            std::this_thread::sleep_for(1ms);
        while (access((dir + "/control").c_str(), F_OK) != 0)
            std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(200ms);
        std::string greeting;
        port_take(port, greeting);
    }
    phone(const phone&) = delete;
    phone& operator=(const phone&) = delete;
    ~phone()
    {
        stop(pid);
        close(port);
        std::filesystem::remove_all(dir);
    }

    void ask(const std::string& words) const
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
};

void trip(int port, std::string_view line)
{
    if (write(port, line.data(), line.size()) < 0)
        std::exit(1);
    for (char last = 0; last != '\n';) {
        pollfd p{port, POLLIN, 0};
        char buf[256];
        if (poll(&p, 1, 5000) <= 0)
            std::exit(1);
        const ssize_t n = read(port, buf, sizeof buf);
        if (n <= 0)
            std::exit(1);
        last = buf[n - 1];
    }
}

double batch_ns(int port, std::string_view line)
{
    const auto from = steady_clock::now();
    for (int i = 0; i < trips; i++)
        trip(port, line);
    return static_cast<double>(duration_cast<nanoseconds>(steady_clock::now() - from).count()) / trips;
}

// The lines in turns, of each the least of the means of some batches.
int commands()
{
    constexpr std::string_view lines[] = {"case?\r", "batc=1\r", "batc=3\r"};
    const phone p("");
    double least[] = {1e18, 1e18, 1e18};
    for (int b = 0; b < batches; b++)
        for (std::size_t i = 0; i < std::size(lines); i++)
            least[i] = std::min(least[i], batch_ns(p.port, lines[i]));
    return bench_figure("batc=1 beyond a round trip of case?", (least[1] - least[0]) / 1e3, 40, "us") +
           bench_figure("  batc=3", (least[2] - least[0]) / 1e3, 120, "us");
}

// A phone that charges, its clock moved on in spans of which one in each period has the monitor's tick. What
// that span costs beyond the usual one is the tick; the least of many periods is free of what the machine
// does beside.
int monitor()
{
    const phone charging("usb off\ncharger none\n");
    charging.ask("clock hold");
    charging.ask("clock +2000");
    charging.ask("battery 3773 -200");
    charging.ask("charger wall");
    charging.ask("clock +2000");
    charging.ask("battery 3900 1"); // goes on for hours
    std::array<double, tick_ms / span_ms> least;
    least.fill(1e18);
    for (int period = 0; period < periods; period++)
        for (double& span : least) {
            const double from = processor_ns(charging.pid);
            charging.ask("clock +" + std::to_string(span_ms));
            span = std::min(span, processor_ns(charging.pid) - from);
        }
    std::sort(least.begin(), least.end());
    return bench_figure("a tick of the charging monitor, processor time",
                        (least.back() - least[least.size() / 2]) / 1e3, 1000, "us");
}

// Processor time in a second.
double idle_ns(pid_t pid)
{
    const double from = processor_ns(pid);
    std::this_thread::sleep_for(seconds(idle_s));
    return (processor_ns(pid) - from) / idle_s;
}

// What a wake-up costs is the machine's, and differs from one moment to the next: a bare program that wakes
// as often has its spans in turn with the phone's. Of each the least counts. On a quiet machine both cost so
// little that their ratio is noise, on a busy one the share is: the phone is idle when either says so.
int idle()
{
    const phone p("");
    std::this_thread::sleep_for(3s); // the monitor has found the host and ended
    const pid_t bare = start(here + "/bare_poll", nullptr);
    double phone_ns = 1e18;
    double bare_ns = 1e18;
    for (int span = 0; span < idle_spans; span++) {
        phone_ns = std::min(phone_ns, idle_ns(p.pid));
        bare_ns = std::min(bare_ns, idle_ns(bare));
    }
    stop(bare);
    const double share = phone_ns / 1e9 * 100;
    const double ratio = phone_ns / bare_ns;
    const bool over = share > most_idle_share && ratio > most_idle_ratio;
    std::printf("%-52s %12.2f %%    ratio %6.2f   limit %.2f %% or %.2f times a bare program%s\n",
                "an idle phone, of one core", share, ratio, most_idle_share, most_idle_ratio,
                over ? "   OVER" : "");
    return over ? 1 : 0;
}

} // namespace

int main()
{
    here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    return commands() + monitor() + idle() == 0 ? 0 : 1;
}
