// What the battery costs: its commands beside a plain one, a tick of the charging monitor, an idle phone. On
// the virtual phone, whose own work counts too.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>

#include "bench_phone.h"
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

double batch_ns(const bench_phone& p, std::string_view line)
{
    const auto from = steady_clock::now();
    for (int i = 0; i < trips; i++)
        p.trip(line);
    return static_cast<double>(duration_cast<nanoseconds>(steady_clock::now() - from).count()) / trips;
}

// The lines in turns, of each the least of the means of some batches.
int commands()
{
    constexpr std::string_view lines[] = {"case?\r", "batc=1\r", "batc=3\r"};
    const bench_phone p;
    double least[] = {1e18, 1e18, 1e18};
    for (int b = 0; b < batches; b++)
        for (std::size_t i = 0; i < std::size(lines); i++)
            least[i] = std::min(least[i], batch_ns(p, lines[i]));
    return bench_figure("batc=1 beyond a round trip of case?", (least[1] - least[0]) / 1e3, 40, "us") +
           bench_figure("  batc=3", (least[2] - least[0]) / 1e3, 120, "us");
}

// A phone that charges, its clock moved on in spans of which one in each period has the monitor's tick. What
// that span costs beyond the usual one is the tick; the least of many periods is free of what the machine
// does beside.
int monitor()
{
    const bench_phone charging("usb off\ncharger none\n");
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
            const double from = bench_processor_ns(charging.pid);
            charging.ask("clock +" + std::to_string(span_ms));
            span = std::min(span, bench_processor_ns(charging.pid) - from);
        }
    std::sort(least.begin(), least.end());
    return bench_figure("a tick of the charging monitor, processor time",
                        (least.back() - least[least.size() / 2]) / 1e3, 1000, "us");
}

// Processor time in a second.
double idle_ns(pid_t pid)
{
    const double from = bench_processor_ns(pid);
    std::this_thread::sleep_for(seconds(idle_s));
    return (bench_processor_ns(pid) - from) / idle_s;
}

// What a wake-up costs is the machine's, and differs from one moment to the next: a bare program that wakes
// as often has its spans in turn with the phone's. Of each the least counts. On a quiet machine both cost so
// little that their ratio is noise, on a busy one the share is: the phone is idle when either says so.
int idle()
{
    const bench_phone p;
    std::this_thread::sleep_for(3s); // the monitor has found the host and ended
    const pid_t bare = bench_start(bench_beside("bare_poll"));
    double phone_ns = 1e18;
    double bare_ns = 1e18;
    for (int span = 0; span < idle_spans; span++) {
        phone_ns = std::min(phone_ns, idle_ns(p.pid));
        bare_ns = std::min(bare_ns, idle_ns(bare));
    }
    bench_stop(bare);
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
    return commands() + monitor() + idle() == 0 ? 0 : 1;
}
