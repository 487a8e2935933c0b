// What the files of the WLAN driver share.
#pragma once

#include <cstdint>

#include "wlan/wlan.h"

// Waits for the end of a start that is under way. Whether the radio is up then.
bool wcn3680_wlan_ready();

// Whether `channel` and `bandwidth` go together; the channel then becomes the one that the tool centres on.
bool wcn3680_wlan_get_channel(std::uint32_t* p_channel, std::uint32_t bandwidth);

// No channel was set yet; no channel is this.
constexpr std::int64_t WCN3680_NO_CHANNEL = -1;

// Transmission and reception share the transmitter's state: a receive test ends a burst.
struct wcn3680_wlan_air {
    bool firstWlanTxBurst = true;
    bool wlanTxStatic = false;
    std::int64_t previousRxChSet = WCN3680_NO_CHANNEL; // as it was asked for
    std::int64_t previousTxChSet = WCN3680_NO_CHANNEL; // as it went out
};
extern wcn3680_wlan_air wcn3680_air;

int wcn3680_wlan_linux_rx_static_start(std::uint32_t channel, std::uint32_t bandwidth);
int wcn3680_wlan_linux_rx_static_stop();
int wcn3680_wlan_linux_rx_static_stat(wlan_rx_stats* p_stats);
int wcn3680_wlan_linux_rx_cw_rssi_start(std::uint32_t channel);
int wcn3680_wlan_linux_rx_cw_rssi_stop(std::int16_t* p_rssi);
int wcn3680_wlan_linux_tx_static(std::uint32_t channel, std::uint32_t rate, std::uint32_t mode,
                                 std::uint32_t power, std::uint32_t bandwidth);
int wcn3680_wlan_linux_tx_burst(const wlan_burst* p_burst);
int wcn3680_wlan_linux_stop_tx();
int wcn3680_wlan_linux_tx_gain(std::int32_t power);
int wcn3680_wlan_get_tx_default_parameters(wlan_burst* p_burst);
