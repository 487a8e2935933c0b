// The WLAN radio under test: powered up in test or station mode, it sends, receives, measures and scans. A
// driver does the work (wlan_attach). Operations give WLAN_OK, or why not; those that differ say so. An
// operation that the driver lacks gives WLAN_NOT_IMPLEMENTED. Starting is slow and goes on beside the caller:
// the first operation afterwards waits for its end.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int WLAN_OK = 0;
constexpr int WLAN_FAILED = 1;
constexpr int WLAN_NOT_IMPLEMENTED = 4;
constexpr int WLAN_BAD_VALUE = 5;

// What wlan_start takes.
constexpr std::uint32_t WLAN_MODE_TEST = 0;
constexpr std::uint32_t WLAN_MODE_STATION = 1;

// Room for the texts of wlan_chip_id, wlan_nvs_id and wlan_scan, NUL included.
constexpr std::size_t WLAN_TEXT_ROOM = 128;

// A calibration item.
constexpr std::size_t WLAN_ITEM_WORDS = 7;

// Of `expected` packets `received` came: `percent` is what was lost, or 100 when more came than were
// expected.
struct wlan_rx_stats {
    std::uint32_t expected; // 0: not known
    std::uint32_t received;
    std::uint32_t spare[2]; // 0
    std::uint16_t percent;
    std::uint16_t spare_percent; // 0
};

struct wlan_burst {
    std::uint32_t channel;
    std::uint32_t rate;     // 0 to 102
    std::uint32_t preamble; // 0 to 4, 99 for the one that goes with the rate
    std::uint32_t length;   // bytes, 65535 for one that goes with the rate
    std::uint32_t interval; // us
    std::uint32_t mode;
    std::int32_t power;
    std::uint32_t bandwidth; // 0 to 10
    std::uint32_t dpd;
};

struct wlan_co {
    int (*start)(std::uint32_t mode);
    int (*stop)();
    int (*fw_dl)();
    int (*chip_id)(char* p_text);
    int (*nvs_id)(char* p_text);
    int (*tx_gain)(std::int32_t power);
    int (*rx_static_start)(std::uint32_t channel, std::uint32_t bandwidth);
    int (*rx_static_stop)();
    int (*rx_static_stat)(wlan_rx_stats* p_stats);
    int (*rx_cw_rssi_start)(std::uint32_t channel);
    int (*rx_cw_rssi_stop)(std::int16_t* p_rssi);
    int (*tx_static)(std::uint32_t channel, std::uint32_t rate, std::uint32_t mode, std::uint32_t power,
                     std::uint32_t bandwidth);
    int (*tx_burst)(const wlan_burst* p_burst);
    int (*stop_tx)();
    int (*get_tx_default_parameters)(wlan_burst* p_burst);
    int (*test_coex)(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out,
                     std::size_t* p_count);
    int (*selftest)(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out,
                    std::size_t* p_count);
    int (*scan)(char* p_text);
    int (*calibration_gain)(std::uint32_t item, std::uint32_t* p_words);
};

void wlan_init();
void wlan_attach(const wlan_co* p_co);

int wlan_start(std::uint32_t mode);
int wlan_stop();  // 1 for success
int wlan_fw_dl(); // 1 for success

int wlan_chip_id(char* p_text);
int wlan_nvs_id(char* p_text);

// Sets the power of a transmission that runs, in tenths of what the radio counts in.
int wlan_tx_gain(std::int32_t power);

int wlan_rx_static_start(std::uint32_t channel, std::uint32_t bandwidth);
int wlan_rx_static_stop();

// The caller fills in `expected`, the driver all else, also when it fails.
int wlan_rx_static_stat(wlan_rx_stats* p_stats);

// The level of a carrier, in eighths of a dBm.
int wlan_rx_cw_rssi_start(std::uint32_t channel);
int wlan_rx_cw_rssi_stop(std::int16_t* p_rssi);

int wlan_tx_static(std::uint32_t channel, std::uint32_t rate, std::uint32_t mode, std::uint32_t power,
                   std::uint32_t bandwidth);
int wlan_tx_burst(const wlan_burst* p_burst); // WLAN_BAD_VALUE: no such rate
int wlan_stop_tx();
int wlan_get_tx_default_parameters(wlan_burst* p_burst);

// `p_out` has room for 10 and 20 bytes; a count above that says that there were more.
int wlan_test_coex(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count);
int wlan_selftest(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count);

// The address of the first network that is found; an empty text for none.
int wlan_scan(char* p_text);

// The words of a calibration item, all 0 for one that the phone doesn't hold. Needs no start.
int wlan_calibration_gain(std::uint32_t item, std::uint32_t* p_words);
