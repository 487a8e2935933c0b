// Transmission: static, and in bursts, whose first line after another test says more than those that follow.
#include <array>
#include <cstdio>
#include <iterator>

#include "wcn3680_inner.h"
#include "wcn3680_wlan.h"

namespace {

constexpr const char* TOOL = "wlanftmtest";
constexpr const char* STOP_STATIC = "wlanftmtest -z";
constexpr const char* STOP_BURST = "wlanftmtest -s";

constexpr std::size_t LINE_ROOM = 160;

constexpr std::int32_t POWER_DIVISOR = 10;

struct rate_range {
    std::uint32_t first;
    std::uint32_t last;
    std::uint32_t chip_first; // and counting up
};

// clang-format off
// The station's rates and the chip's.
constexpr rate_range wlan_rate_ranges[] = {
    {  0,   3,  0 },
    {  4,   4,  0 },
    {  5,  12,  7 },
    { 13,  20, 23 },
    { 21,  44, 31 },
    { 45,  53, 63 },
    { 54,  62, 73 },
    { 63, 102, 83 },
};

// The centre of a channel by bandwidth: channels from first to last, moved by shift.
struct bandwidth_row {
    std::uint32_t first;
    std::uint32_t last;
    int shift;
};

constexpr bandwidth_row bandwidths[] = {
    { 1, 252,  0 },   // 0
    { 3, 250, -2 },
    { 3, 250,  0 },
    { 3, 250,  2 },
    { 7, 246,  0 },   // 4
    { 7, 246, -2 },
    { 7, 246,  2 },
    { 7, 246, -6 },
    { 7, 246, -2 },
    { 7, 246,  2 },
    { 7, 246,  6 },   // 10
};
// clang-format on

constexpr std::uint32_t RATES = 103;

constexpr std::array<std::uint32_t, RATES> make_rates()
{
    std::array<std::uint32_t, RATES> tab{};
    std::uint32_t rows = 0;
    for (const rate_range& r : wlan_rate_ranges)
        for (std::uint32_t i = r.first; i <= r.last; i++, rows++)
            tab[i] = r.chip_first + (i - r.first);
    return rows == RATES ? tab : std::array<std::uint32_t, RATES>{};
}

constexpr std::array<std::uint32_t, RATES> wlan_cnv_tab = make_rates();
static_assert(wlan_cnv_tab[3] == 3 && wlan_cnv_tab[4] == 0 && wlan_cnv_tab[RATES - 1] == 122);

constexpr std::uint32_t preambleCnv[] = {3, 4, 0, 2, 1};
constexpr std::uint32_t PREAMBLE_AUTO = 99;

constexpr std::uint32_t LENGTH_AUTO = 65535;
constexpr std::uint32_t LENGTH_PER_RATE = 300;
constexpr std::uint32_t LENGTH_BASE = 100;
constexpr std::uint32_t LENGTH_MOST = 1000;

// What goes with a rate of the chip.
std::uint32_t automatic_preamble(std::uint32_t rate)
{
    if (rate <= wlan_cnv_tab[3])
        return 4;
    if (rate <= wlan_cnv_tab[6])
        return 3;
    return rate <= wlan_cnv_tab[14] ? 0 : 2;
}

std::uint32_t automatic_length(std::uint32_t rate)
{
    const std::uint32_t length = rate * LENGTH_PER_RATE;
    return length < LENGTH_MOST - LENGTH_BASE ? length + LENGTH_BASE : LENGTH_MOST;
}

// A burst in the tool's terms; false for a preamble or a channel that there isn't.
bool to_tool(wlan_burst& b)
{
    b.rate = wlan_cnv_tab[b.rate];
    if (b.preamble == PREAMBLE_AUTO)
        b.preamble = automatic_preamble(b.rate);
    else if (b.preamble < std::size(preambleCnv))
        b.preamble = preambleCnv[b.preamble];
    else
        return false;
    if (b.length == LENGTH_AUTO)
        b.length = automatic_length(b.rate);
    b.power /= POWER_DIVISOR;
    return wcn3680_wlan_get_channel(&b.channel, b.bandwidth);
}

bool send_burst(const wlan_burst& b)
{
    char wlanCmd[LINE_ROOM];
    const auto number = [](std::uint32_t value) { return static_cast<int>(value); };
    if (wcn3680_air.firstWlanTxBurst || b.channel != wcn3680_air.previousTxChSet)
        std::snprintf(wlanCmd, sizeof wlanCmd, "%s -A -c %d -r %d -p %d -i %d -l %d -w %d -g %d -o %d -G %u",
                      TOOL, number(b.channel), number(b.rate), number(b.preamble), number(b.interval),
                      number(b.length), number(b.bandwidth), b.power, number(b.dpd), b.mode);
    else
        std::snprintf(wlanCmd, sizeof wlanCmd, "%s -B -c %d -r %d -p %d -i %d -l %d -g %d -o %d", TOOL,
                      number(b.channel), number(b.rate), number(b.preamble), number(b.interval),
                      number(b.length), b.power, number(b.dpd));
    return wcn3680_run(wlanCmd) != 0;
}

} // namespace

bool wcn3680_wlan_get_channel(std::uint32_t* p_channel, std::uint32_t bandwidth)
{
    if (bandwidth >= std::size(bandwidths))
        return false;
    const bandwidth_row& row = bandwidths[bandwidth];
    if (*p_channel < row.first || *p_channel > row.last)
        return false;
    *p_channel += static_cast<std::uint32_t>(row.shift);
    return true;
}

int wcn3680_wlan_linux_tx_static(std::uint32_t channel, std::uint32_t, std::uint32_t, std::uint32_t,
                                 std::uint32_t bandwidth)
{
    if (!wcn3680_wlan_ready() || !wcn3680_wlan_get_channel(&channel, bandwidth))
        return WLAN_FAILED;
    char wlanCmd[LINE_ROOM];
    std::snprintf(wlanCmd, sizeof wlanCmd, "%s -c %d -w %d -y", TOOL, static_cast<int>(channel),
                  static_cast<int>(bandwidth));
    if (wcn3680_run(wlanCmd) == 0)
        return WLAN_FAILED;
    wcn3680_air.wlanTxStatic = true;
    return WLAN_OK;
}

int wcn3680_wlan_linux_tx_burst(const wlan_burst* p_burst)
{
    if (!wcn3680_wlan_ready())
        return WLAN_FAILED;
    if (p_burst->rate >= RATES)
        return WLAN_BAD_VALUE;
    wlan_burst b = *p_burst;
    if (!to_tool(b) || !send_burst(b))
        return WLAN_FAILED;
    wcn3680_air.firstWlanTxBurst = false;
    wcn3680_air.previousTxChSet = b.channel;
    return WLAN_OK;
}

int wcn3680_wlan_linux_stop_tx()
{
    if (!wcn3680_wlan_ready() || wcn3680_run(wcn3680_air.wlanTxStatic ? STOP_STATIC : STOP_BURST) == 0)
        return WLAN_FAILED;
    wcn3680_air.wlanTxStatic = false;
    return WLAN_OK;
}

int wcn3680_wlan_linux_tx_gain(std::int32_t power)
{
    if (!wcn3680_wlan_ready())
        return WLAN_FAILED;
    char wlanCmd[LINE_ROOM];
    std::snprintf(wlanCmd, sizeof wlanCmd, "%s -P %d", TOOL, power / POWER_DIVISOR);
    return wcn3680_run(wlanCmd) != 0 ? WLAN_OK : WLAN_FAILED;
}

int wcn3680_wlan_get_tx_default_parameters(wlan_burst* p_burst)
{
    *p_burst = {.channel = 1,
                .rate = 3,
                .preamble = PREAMBLE_AUTO,
                .length = LENGTH_AUTO,
                .interval = 200,
                .mode = 1,
                .power = 255,
                .bandwidth = 0,
                .dpd = 0};
    return WLAN_OK;
}
