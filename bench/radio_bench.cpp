// What a station waits for at a Bluetooth controller that is up: a command with its wait of 100 ms, and the
// reading of statistics, which has none.
#include <algorithm>

#include "bench_phone.h"
#include "row.h"

namespace {

constexpr double ns_per_ms = 1e6;
constexpr double wait_ns = 100 * ns_per_ms;

// The least time of some trips.
double least(const bench_phone& phone, const char* line, int trips)
{
    double best = 1e18;
    for (int i = 0; i < trips; i++)
        best = std::min(best, phone.trip(line, "OK\r\n"));
    return best;
}

} // namespace

int main()
{
    const bench_phone phone;
    phone.trip("bthr\r", "OK\r\n");
    const double bare = least(phone, "case?\r", 1000);
    const double command = least(phone, "bhwr=1,9,4,0\r", 10);
    const double statistics = least(phone, "bsrx=0,0\r", 50);
    int over = bench_row("bhwr=1,9,4,0 beside its wait", command, wait_ns, 1.03);
    over += bench_figure("bsrx=0,0 beyond case?", (statistics - bare) / ns_per_ms, 5, "ms");
    return over == 0 ? 0 : 1;
}
