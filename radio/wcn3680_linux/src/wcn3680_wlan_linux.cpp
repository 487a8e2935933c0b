// The WLAN driver: starting and stopping, identity, scanning, calibration items. Reception stands in
// wcn3680_wlan_rx.cpp, transmission in wcn3680_wlan_tx.cpp.
#include <charconv>
#include <cstdint>
#include <cstring>
#include <pthread.h>
#include <string>
#include <string_view>

#include "pbuf/pbuf.h"
#include "ta/ta.h"
#include "wcn3680_inner.h"
#include "wcn3680_scan.h"
#include "wcn3680_wlan.h"

namespace {

constexpr const char* REMOUNT = "mount -o rw,remount /system";
constexpr const char* LOAD_STATION = "/system/bin/insmod /system/modules/pronto_wlan.ko con_mode=0";
constexpr const char* LOAD_TEST = "/system/bin/insmod /system/modules/pronto_wlan.ko con_mode=5";
constexpr const char* STATION_UP = "ifconfig wlan0 up";
constexpr const char* TEST_UP = "wlanftmtest -e";
constexpr const char* TEST_DOWN = "wlanftmtest -d";
constexpr const char* VERSION = "wlanftmtest -v";
constexpr const char* SCAN = "iw wlan0 scan";

constexpr int ITEM_BYTES = WLAN_ITEM_WORDS * 4;

enum class state { ready, stopped, starting };

state wlan_state = state::stopped;
std::uint32_t start_mode; // the thread's, from its creation on
bool loadedWlanDriver;    // likewise: the module stays loaded, with the mode of its first load
pthread_t wlan_thread;

// The slow part of a start, beside the main loop. 1 when all of it went well.
void* wcn3680_wlan_execute_thread(void*)
{
    const bool station = start_mode == WLAN_MODE_STATION;
    if (wcn3680_run(REMOUNT) == 0)
        return nullptr;
    if (!loadedWlanDriver && wcn3680_run(station ? LOAD_STATION : LOAD_TEST) == 0)
        return nullptr;
    loadedWlanDriver = true;
    const int up = wcn3680_run(station ? STATION_UP : TEST_UP);
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(up));
}

int begin_start(std::uint32_t mode)
{
    start_mode = mode;
    if (pthread_create(&wlan_thread, nullptr, wcn3680_wlan_execute_thread, nullptr) != 0)
        return WLAN_FAILED;
    wlan_state = state::starting;
    return WLAN_OK;
}

// A start that failed leaves the radio stopped: the next one begins anew.
int finish_start()
{
    void* result = nullptr;
    const bool up = pthread_join(wlan_thread, &result) == 0 && reinterpret_cast<std::intptr_t>(result) == 1;
    wlan_state = up ? state::ready : state::stopped;
    return up ? WLAN_OK : WLAN_FAILED;
}

int wcn3680_wlan_linux_start(std::uint32_t mode)
{
    switch (wlan_state) {
    case state::stopped:
        return begin_start(mode);
    case state::starting:
        return finish_start();
    default:
        return WLAN_OK;
    }
}

int wcn3680_wlan_linux_stop()
{
    if (!wcn3680_wlan_ready() || wcn3680_run(TEST_DOWN) == 0)
        return 0;
    wlan_state = state::stopped;
    wcn3680_air = {};
    return 1;
}

// The tools bring the firmware up with the radio.
int wcn3680_wlan_linux_fw_dl()
{
    return wcn3680_wlan_ready() ? 1 : 0;
}

int wcn3680_wlan_linux_chip_id(char* p_text)
{
    int number;
    if (!wcn3680_wlan_ready() || wcn3680_run(VERSION) == 0 || !wcn3680_result_get(&number))
        return WLAN_FAILED;
    *std::to_chars(p_text, p_text + WLAN_TEXT_ROOM - 1, number).ptr = '\0';
    return WLAN_OK;
}

int wcn3680_wlan_linux_scan(char* p_text)
{
    std::string output;
    if (!wcn3680_wlan_ready() || !wcn3680_output_get(SCAN, output))
        return WLAN_FAILED;
    return wcn3680_scan_second_word(output, p_text, WLAN_TEXT_ROOM) ? WLAN_OK : WLAN_FAILED;
}

int wcn3680_wlan_linux_calibration_gain(std::uint32_t item, std::uint32_t* p_words)
{
    const std::uint32_t unit = item | TA_AUX;
    std::memset(p_words, 0, WLAN_ITEM_WORDS * sizeof *p_words);
    const int size = ta_if_get_size(unit);
    if (size == 0)
        return WLAN_OK;
    std::uint8_t bytes[ITEM_BYTES];
    if (size != ITEM_BYTES || ta_if_read(unit, bytes, sizeof bytes) != ITEM_BYTES)
        return WLAN_FAILED;
    for (std::size_t i = 0; i < WLAN_ITEM_WORDS; i++)
        pbuf_unpack(bytes + 4 * i, "w", &p_words[i]);
    return WLAN_OK;
}

// clang-format off
constexpr wlan_co wcn3680_wlan_co = {
    .start                     = wcn3680_wlan_linux_start,
    .stop                      = wcn3680_wlan_linux_stop,
    .fw_dl                     = wcn3680_wlan_linux_fw_dl,
    .chip_id                   = wcn3680_wlan_linux_chip_id,
    .nvs_id                    = nullptr,
    .tx_gain                   = wcn3680_wlan_linux_tx_gain,
    .rx_static_start           = wcn3680_wlan_linux_rx_static_start,
    .rx_static_stop            = wcn3680_wlan_linux_rx_static_stop,
    .rx_static_stat            = wcn3680_wlan_linux_rx_static_stat,
    .rx_cw_rssi_start          = wcn3680_wlan_linux_rx_cw_rssi_start,
    .rx_cw_rssi_stop           = wcn3680_wlan_linux_rx_cw_rssi_stop,
    .tx_static                 = wcn3680_wlan_linux_tx_static,
    .tx_burst                  = wcn3680_wlan_linux_tx_burst,
    .stop_tx                   = wcn3680_wlan_linux_stop_tx,
    .get_tx_default_parameters = wcn3680_wlan_get_tx_default_parameters,
    .test_coex                 = nullptr,
    .selftest                  = nullptr,
    .scan                      = wcn3680_wlan_linux_scan,
    .calibration_gain          = wcn3680_wlan_linux_calibration_gain,
};
// clang-format on

} // namespace

wcn3680_wlan_air wcn3680_air;

bool wcn3680_wlan_ready()
{
    if (wlan_state == state::starting)
        finish_start();
    return wlan_state == state::ready;
}

void wcn3680_wlan_linux_init()
{
    wlan_attach(&wcn3680_wlan_co);
}
