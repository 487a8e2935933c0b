// Reception: packets of a static receive test, and the level of a carrier.
#include <cstdio>

#include "wcn3680_inner.h"
#include "wcn3680_wlan.h"

namespace {

constexpr const char* TOOL = "wlanftmtest";
constexpr const char* STOP_BURST = "wlanftmtest -q";
constexpr const char* CLEAR_COUNTER = "wlanftmtest -m";
constexpr const char* READ_COUNTER = "wlanftmtest -b";
constexpr const char* READ_LEVEL = "wlanftmtest -x";

constexpr std::size_t LINE_ROOM = 64;

// The tool's levels are dBm plus this.
constexpr std::int64_t LEVEL_OFFSET = 256;
constexpr std::int64_t LEVEL_NONE = -101;
constexpr std::int64_t LEVEL_FIRST = -100; // below it nothing was measured yet
constexpr int LEVEL_TRIES = 10;
constexpr std::int64_t EIGHTHS = 8;

int result_of(bool done)
{
    return done ? WLAN_OK : WLAN_FAILED;
}

bool set_channel(std::uint32_t channel, std::uint32_t bandwidth, bool is_static)
{
    char wlanCmd[LINE_ROOM];
    if (!is_static)
        std::snprintf(wlanCmd, sizeof wlanCmd, "%s -c %d -a", TOOL, static_cast<int>(channel));
    else if (wcn3680_wlan_get_channel(&channel, bandwidth))
        std::snprintf(wlanCmd, sizeof wlanCmd, "%s -c %d -w %d -a", TOOL, static_cast<int>(channel),
                      static_cast<int>(bandwidth));
    else
        return false;
    return wcn3680_run(wlanCmd) != 0;
}

int wcn3680_wlan_linux_rx_helper(std::uint32_t channel, std::uint32_t bandwidth, bool is_static)
{
    if (!wcn3680_wlan_ready())
        return WLAN_FAILED;
    if (!wcn3680_air.firstWlanTxBurst) {
        wcn3680_air.firstWlanTxBurst = true;
        if (wcn3680_run(STOP_BURST) == 0)
            return WLAN_FAILED;
    }
    if (is_static && channel == wcn3680_air.previousRxChSet)
        return result_of(wcn3680_run(CLEAR_COUNTER) != 0);
    wcn3680_air.previousRxChSet = channel;
    return result_of(set_channel(channel, bandwidth, is_static));
}

bool read_number(const char* line, std::int64_t* p_number)
{
    int number;
    if (wcn3680_run(line) == 0 || !wcn3680_result_get(&number))
        return false;
    *p_number = number;
    return true;
}

} // namespace

int wcn3680_wlan_linux_rx_static_start(std::uint32_t channel, std::uint32_t bandwidth)
{
    return wcn3680_wlan_linux_rx_helper(channel, bandwidth, true);
}

int wcn3680_wlan_linux_rx_static_stop()
{
    return result_of(wcn3680_wlan_ready());
}

int wcn3680_wlan_linux_rx_static_stat(wlan_rx_stats* p_stats)
{
    const std::uint64_t expected = p_stats->expected;
    *p_stats = {p_stats->expected, 0, {}, 0, 0};
    std::int64_t number;
    if (!wcn3680_wlan_ready() || !read_number(READ_COUNTER, &number))
        return WLAN_FAILED;
    p_stats->received = number > 0 ? static_cast<std::uint32_t>(number) : 0;
    if (expected == 0)
        return WLAN_OK;
    if (p_stats->received > expected) {
        p_stats->percent = 100;
        return WLAN_FAILED;
    }
    p_stats->percent = static_cast<std::uint16_t>((expected - p_stats->received) * 100 / expected);
    return WLAN_OK;
}

int wcn3680_wlan_linux_rx_cw_rssi_start(std::uint32_t channel)
{
    return wcn3680_wlan_linux_rx_helper(channel, 0, false);
}

int wcn3680_wlan_linux_rx_cw_rssi_stop(std::int16_t* p_rssi)
{
    if (!wcn3680_wlan_ready())
        return WLAN_FAILED;
    std::int64_t level = LEVEL_NONE;
    for (int tries = 0; level < LEVEL_FIRST && tries < LEVEL_TRIES; tries++) {
        if (!read_number(READ_LEVEL, &level))
            return WLAN_FAILED;
        level -= LEVEL_OFFSET;
    }
    *p_rssi = static_cast<std::int16_t>(level * EIGHTHS);
    return WLAN_OK;
}
