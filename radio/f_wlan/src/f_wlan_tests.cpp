// Sending and receiving.
#include <cstdint>
#include <cstdlib>
#include <iterator>

#include "f_wlan_inner.h"
#include "wlan/wlan.h"

namespace {

constexpr std::int32_t GAIN_DEFAULT = 15;

// What wstx asks for.
constexpr std::uint32_t MODE_STATIC = 1;

// rssi counts in eighths.
constexpr int EIGHTHS = 8;

int blank(int id, const char* name, int status)
{
    return dcp_answer(id, name, " ", status);
}

int start_static_rx(int id, int argc, const dcp_word* argv)
{
    if (argc < 2)
        return blank(id, "wsrx", DCP_SYNTAX);
    switch (wlan_rx_static_start(dcp_uint(argv[1]), 0)) {
    case WLAN_NOT_IMPLEMENTED:
        return blank(id, "wsrx", DCP_NOT_FOUND);
    case WLAN_FAILED:
        return blank(id, "wsrx", DCP_ERROR);
    default:
        return blank(id, "wsrx", DCP_OK);
    }
}

int read_static_rx(int id, int argc, const dcp_word* argv)
{
    const int stopped = wlan_rx_static_stop();
    if (stopped == WLAN_NOT_IMPLEMENTED || stopped == WLAN_FAILED)
        return blank(id, "wsrx", f_wlan_status(stopped));
    wlan_rx_stats stats{};
    stats.expected = argc >= 2 ? dcp_uint(argv[1]) : 0;
    if (argc >= 2 && stats.expected == 0)
        return blank(id, "wsrx", DCP_SYNTAX);
    const int result = wlan_rx_static_stat(&stats);
    if (result == WLAN_NOT_IMPLEMENTED)
        return blank(id, "wsrx", DCP_NOT_FOUND);
    dcp_printf(id, "wsrx", "%d,%d,%d", static_cast<int>(stats.received), static_cast<int>(stats.spare[0]),
               stats.percent);
    return result == WLAN_OK ? DCP_OK : DCP_ERROR;
}

int start_level(int id, int argc, const dcp_word* argv)
{
    dcp_printf(id, "wlrx", " ");
    return argc >= 2 ? f_wlan_status(wlan_rx_cw_rssi_start(dcp_uint(argv[1]))) : DCP_SYNTAX;
}

int read_level(int id)
{
    std::int16_t rssi = 0;
    switch (wlan_rx_cw_rssi_stop(&rssi)) {
    case WLAN_OK:
        dcp_printf(id, "wlrx", "%d.%02d", rssi / EIGHTHS,
                   std::abs(rssi * 100 / EIGHTHS - rssi / EIGHTHS * 100));
        return DCP_OK;
    case WLAN_NOT_IMPLEMENTED:
        return DCP_NOT_FOUND;
    default:
        return blank(id, "wlrx", DCP_ERROR);
    }
}

// Puts the values of a line over the first fields; a line with too many leaves all as they are.
void overlay(wlan_burst& b, int argc, const dcp_word* argv)
{
    std::uint32_t power = static_cast<std::uint32_t>(b.power);
    std::uint32_t* const fields[] = {&b.channel, &b.rate, &b.preamble,  &b.length, &b.interval,
                                     &b.mode,    &power,  &b.bandwidth, &b.dpd};
    if (argc > static_cast<int>(std::size(fields)))
        return;
    for (int i = 0; i < argc; i++)
        *fields[i] = dcp_uint(argv[i]);
    b.power = static_cast<std::int32_t>(power);
}

} // namespace

int do_wlan_wtxg(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wtxg", "WLAN Tx Power setting", DCP_OK);
    if (!wlan_started)
        return dcp_answer(id, "wtxg", "The chip is not powered up yet!", DCP_SYNTAX);
    if (!in_tx) {
        dcp_printf(id, "wtxg", "Not in Tx!");
        return blank(id, "wtxg", DCP_SYNTAX);
    }
    const int result = wlan_tx_gain(argc > 0 ? dcp_int(argv[0]) : GAIN_DEFAULT);
    return blank(id, "wtxg", f_wlan_status(result));
}

int do_wlan_wsrx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wsrx", "WLAN Static RX", DCP_OK);
    if (!wlan_started)
        return DCP_OK;
    if (!f_wlan_stop_tx())
        return blank(id, "wsrx", DCP_ERROR);
    switch (argc > 0 ? dcp_uint(argv[0]) : 0) {
    case 0:
        return read_static_rx(id, argc, argv);
    case 1:
        return start_static_rx(id, argc, argv);
    default:
        return blank(id, "wsrx", DCP_SYNTAX);
    }
}

int do_wlan_wlrx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wlrx", "WLAN RX CW RSSI", DCP_OK);
    if (!wlan_started)
        return DCP_ERROR;
    if (!f_wlan_stop_tx())
        return blank(id, "wlrx", DCP_ERROR);
    return argc > 0 && dcp_uint(argv[0]) != 0 ? start_level(id, argc, argv) : read_level(id);
}

int do_wlan_wstx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wstx", "WLAN static TX", DCP_OK);
    const auto value = [argc, argv](int i) { return i < argc ? dcp_uint(argv[i]) : 0; };
    if (!wlan_started || value(2) != MODE_STATIC || !f_wlan_stop_tx())
        return blank(id, "wstx", DCP_ERROR);
    wlan_tx_static(value(0), value(1), value(2), value(3), value(4));
    in_tx = true;
    return blank(id, "wstx", DCP_OK);
}

int do_wlan_wbtx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "wbtx", "WLAN bursted TX", DCP_OK);
    if (!wlan_started)
        return blank(id, "wbtx", DCP_SYNTAX);
    if (!f_wlan_stop_tx())
        return blank(id, "wbtx", DCP_ERROR);
    wlan_burst burst{};
    wlan_get_tx_default_parameters(&burst);
    overlay(burst, argc, argv);
    const int result = wlan_tx_burst(&burst);
    in_tx = result == WLAN_OK;
    if (result == WLAN_BAD_VALUE)
        return blank(id, "wbtx", DCP_SYNTAX);
    return blank(id, "wbtx", in_tx ? DCP_OK : DCP_ERROR);
}

int do_wlan_widl(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "widl", "WLAN Idle mode (stopping TX)", DCP_OK);
    return blank(id, "widl", wlan_started && f_wlan_stop_tx() ? DCP_OK : DCP_ERROR);
}
