#include "wlan/wlan.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

const wlan_co* p_wlan_co;

} // namespace

void wlan_init()
{
    p_wlan_co = nullptr;
}

void wlan_attach(const wlan_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_wlan_co = p_co;
}

int wlan_start(std::uint32_t mode)
{
    return callout(p_wlan_co, &wlan_co::start, WLAN_NOT_IMPLEMENTED, mode);
}

int wlan_stop()
{
    return callout(p_wlan_co, &wlan_co::stop, WLAN_NOT_IMPLEMENTED);
}

int wlan_fw_dl()
{
    return callout(p_wlan_co, &wlan_co::fw_dl, WLAN_NOT_IMPLEMENTED);
}

int wlan_chip_id(char* p_text)
{
    return callout(p_wlan_co, &wlan_co::chip_id, WLAN_NOT_IMPLEMENTED, p_text);
}

int wlan_nvs_id(char* p_text)
{
    return callout(p_wlan_co, &wlan_co::nvs_id, WLAN_NOT_IMPLEMENTED, p_text);
}

int wlan_tx_gain(std::int32_t power)
{
    return callout(p_wlan_co, &wlan_co::tx_gain, WLAN_NOT_IMPLEMENTED, power);
}

int wlan_rx_static_start(std::uint32_t channel, std::uint32_t bandwidth)
{
    return callout(p_wlan_co, &wlan_co::rx_static_start, WLAN_NOT_IMPLEMENTED, channel, bandwidth);
}

int wlan_rx_static_stop()
{
    return callout(p_wlan_co, &wlan_co::rx_static_stop, WLAN_NOT_IMPLEMENTED);
}

int wlan_rx_static_stat(wlan_rx_stats* p_stats)
{
    return callout(p_wlan_co, &wlan_co::rx_static_stat, WLAN_NOT_IMPLEMENTED, p_stats);
}

int wlan_rx_cw_rssi_start(std::uint32_t channel)
{
    return callout(p_wlan_co, &wlan_co::rx_cw_rssi_start, WLAN_NOT_IMPLEMENTED, channel);
}

int wlan_rx_cw_rssi_stop(std::int16_t* p_rssi)
{
    return callout(p_wlan_co, &wlan_co::rx_cw_rssi_stop, WLAN_NOT_IMPLEMENTED, p_rssi);
}

int wlan_tx_static(std::uint32_t channel, std::uint32_t rate, std::uint32_t mode, std::uint32_t power,
                   std::uint32_t bandwidth)
{
    return callout(p_wlan_co, &wlan_co::tx_static, WLAN_NOT_IMPLEMENTED, channel, rate, mode, power,
                   bandwidth);
}

int wlan_tx_burst(const wlan_burst* p_burst)
{
    return callout(p_wlan_co, &wlan_co::tx_burst, WLAN_NOT_IMPLEMENTED, p_burst);
}

int wlan_stop_tx()
{
    return callout(p_wlan_co, &wlan_co::stop_tx, WLAN_NOT_IMPLEMENTED);
}

int wlan_get_tx_default_parameters(wlan_burst* p_burst)
{
    return callout(p_wlan_co, &wlan_co::get_tx_default_parameters, WLAN_NOT_IMPLEMENTED, p_burst);
}

int wlan_test_coex(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    return callout(p_wlan_co, &wlan_co::test_coex, WLAN_NOT_IMPLEMENTED, p_bytes, count, p_out, p_count);
}

int wlan_selftest(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    return callout(p_wlan_co, &wlan_co::selftest, WLAN_NOT_IMPLEMENTED, p_bytes, count, p_out, p_count);
}

int wlan_scan(char* p_text)
{
    return callout(p_wlan_co, &wlan_co::scan, WLAN_NOT_IMPLEMENTED, p_text);
}

int wlan_calibration_gain(std::uint32_t item, std::uint32_t* p_words)
{
    return callout(p_wlan_co, &wlan_co::calibration_gain, WLAN_NOT_IMPLEMENTED, item, p_words);
}
