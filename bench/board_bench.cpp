// The board's commands as a station feels them: what i2cr costs beyond a bare line and ftmc beyond the
// modem's time, and how long the dump of an empty store takes.
#include <algorithm>
#include <string>

#include "bench_phone.h"
#include "row.h"

namespace {

constexpr int batches = 20;
constexpr int trips = 1000;

// The least mean of a batch, for each of two lines in turns.
bool round_trips(const bench_phone& phone, const char* const (&lines)[2], double (&best)[2])
{
    best[0] = best[1] = 1e18;
    for (int i = 0; i < batches; i++) {
        for (int k = 0; k < 2; k++) {
            double sum = 0;
            for (int n = 0; n < trips; n++) {
                const double ns = phone.trip(lines[k], "OK\r\n", 5000);
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
double channel_time(const bench_phone& phone)
{
    std::string line = "ftmc=0x4B,0x0B,0x0E,0x00"; // is echoed
    for (int i = 4; i < 4096; i++)
        line += "," + std::to_string(i % 251);
    line += "\r";
    double best = 1e18;
    for (int i = 0; i < 100; i++) {
        const double ns = phone.trip(line.c_str(), "OK\r\n", 5000);
        if (ns < 0)
            return -1;
        best = std::min(best, ns);
    }
    return best / 1e6 - 0.3;
}

int measure(const bench_phone& phone)
{
    double ns[2];
    if (!round_trips(phone, {"case?\r", "i2cr=5,18,0,40\r"}, ns))
        return 1;
    int over = bench_figure("i2cr of 64 bytes beyond case?", (ns[1] - ns[0]) / 1000, 60, "us");
    const double channel_ms = channel_time(phone);
    if (channel_ms < 0)
        return 1;
    over += bench_figure("ftmc of 4096 bytes beyond the modem's time", channel_ms, 3, "ms");
    if (phone.trip("tact=3\r", "OK\r\n", 5000) < 0 || phone.trip("tact=1\r", "OK\r\n", 5000) < 0)
        return 1;
    double dump = 1e18;
    for (int i = 0; i < 3; i++) {
        const double once = phone.trip("tact=12,1\r", "OK\r\n", 120'000);
        if (once < 0)
            return 1;
        dump = std::min(dump, once);
    }
    return over + bench_figure("tact=12,1 over an empty store", dump / 1e9, 2, "s");
}

} // namespace

int main()
{
    const bench_phone phone;
    return phone.port >= 0 && measure(phone) == 0 ? 0 : 1;
}
