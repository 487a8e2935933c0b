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
void round_trips(const bench_phone& phone, const char* const (&lines)[2], double (&best)[2])
{
    best[0] = best[1] = 1e18;
    for (int i = 0; i < batches; i++) {
        for (int k = 0; k < 2; k++) {
            double sum = 0;
            for (int n = 0; n < trips; n++)
                sum += phone.trip(lines[k]);
            best[k] = std::min(best[k], sum / trips);
        }
    }
}

// An exchange of 4096 bytes each way, beyond the 0.3 ms that the modem of the virtual phone takes for it, in
// ms.
double channel_time(const bench_phone& phone)
{
    std::string line = "ftmc=0x4B,0x0B,0x0E,0x00"; // is echoed
    for (int i = 4; i < 4096; i++)
        line += "," + std::to_string(i % 251);
    line += "\r";
    double best = 1e18;
    for (int i = 0; i < 100; i++)
        best = std::min(best, phone.trip(line));
    return best / 1e6 - 0.3;
}

int measure(const bench_phone& phone)
{
    double ns[2];
    round_trips(phone, {"case?\r", "i2cr=5,18,0,40\r"}, ns);
    int over = bench_figure("i2cr of 64 bytes beyond case?", (ns[1] - ns[0]) / 1000, 60, "us");
    over += bench_figure("ftmc of 4096 bytes beyond the modem's time", channel_time(phone), 3, "ms");
    phone.trip("tact=3\r", "OK\r\n");
    phone.trip("tact=1\r", "OK\r\n");
    double dump = 1e18;
    for (int i = 0; i < 3; i++)
        dump = std::min(dump, phone.trip("tact=12,1\r", "OK\r\n", 120'000));
    return over + bench_figure("tact=12,1 over an empty store", dump / 1e9, 2, "s");
}

} // namespace

int main()
{
    return measure(bench_phone()) == 0 ? 0 : 1;
}
