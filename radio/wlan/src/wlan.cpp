#include "wlan/wlan.h"

#include "check/check.h"

namespace {

const wlan_co* p_wlan_co;

template <typename... Params, typename... Args>
int call(int (*wlan_co::*slot)(Params...), Args... args)
{
    HVT_CHECK(p_wlan_co != nullptr);
    return p_wlan_co->*slot != nullptr ? (p_wlan_co->*slot)(args...) : WLAN_NOT_IMPLEMENTED;
}

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
    return call(&wlan_co::start, mode);
}

int wlan_stop()
{
    return call(&wlan_co::stop);
}

int wlan_fw_dl()
{
    return call(&wlan_co::fw_dl);
}

int wlan_chip_id(char* p_text)
{
    return call(&wlan_co::chip_id, p_text);
}

int wlan_nvs_id(char* p_text)
{
    return call(&wlan_co::nvs_id, p_text);
}

int wlan_tx_gain(std::int32_t power)
{
    return call(&wlan_co::tx_gain, power);
}

int wlan_rx_static_start(std::uint32_t channel, std::uint32_t bandwidth)
{
    return call(&wlan_co::rx_static_start, channel, bandwidth);
}

int wlan_rx_static_stop()
{
    return call(&wlan_co::rx_static_stop);
}

int wlan_rx_static_stat(wlan_rx_stats* p_stats)
{
    return call(&wlan_co::rx_static_stat, p_stats);
}

int wlan_rx_cw_rssi_start(std::uint32_t channel)
{
    return call(&wlan_co::rx_cw_rssi_start, channel);
}

int wlan_rx_cw_rssi_stop(std::int16_t* p_rssi)
{
    return call(&wlan_co::rx_cw_rssi_stop, p_rssi);
}

int wlan_tx_static(std::uint32_t channel, std::uint32_t rate, std::uint32_t mode, std::uint32_t power,
                   std::uint32_t bandwidth)
{
    return call(&wlan_co::tx_static, channel, rate, mode, power, bandwidth);
}

int wlan_tx_burst(const wlan_burst* p_burst)
{
    return call(&wlan_co::tx_burst, p_burst);
}

int wlan_stop_tx()
{
    return call(&wlan_co::stop_tx);
}

int wlan_get_tx_default_parameters(wlan_burst* p_burst)
{
    return call(&wlan_co::get_tx_default_parameters, p_burst);
}

int wlan_test_coex(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    return call(&wlan_co::test_coex, p_bytes, count, p_out, p_count);
}

int wlan_selftest(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    return call(&wlan_co::selftest, p_bytes, count, p_out, p_count);
}

int wlan_scan(char* p_text)
{
    return call(&wlan_co::scan, p_text);
}

int wlan_calibration_gain(std::uint32_t item, std::uint32_t* p_words)
{
    return call(&wlan_co::calibration_gain, item, p_words);
}
