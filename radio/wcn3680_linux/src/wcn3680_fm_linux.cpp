// The FM receiver: a kernel module, and a tool that tunes.
#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "fm/fm.h"
#include "wcn3680_inner.h"

namespace {

constexpr const char* LOAD_MODULE = "insmod /system/modules/radio-iris-transport.ko";
constexpr const char* TUNE = "fmftmtest -f";

constexpr std::uint32_t LOWEST_HZ = 76000000;
constexpr std::uint32_t HIGHEST_HZ = 108000000;
constexpr std::uint32_t HZ_PER_KHZ = 1000;

bool loadedFMDriver;

int wcn3680_fm_linux_start()
{
    if (!loadedFMDriver)
        loadedFMDriver = wcn3680_run(LOAD_MODULE) != 0;
    return loadedFMDriver ? FM_OK : FM_FAILED;
}

int wcn3680_fm_linux_freq_set(std::uint32_t hz)
{
    char fmCmd[32];
    std::snprintf(fmCmd, sizeof fmCmd, "%s %u", TUNE, std::clamp(hz, LOWEST_HZ, HIGHEST_HZ) / HZ_PER_KHZ);
    return wcn3680_run(fmCmd) != 0 ? FM_OK : FM_FAILED;
}

// What the tool that ran last has left, whichever that was.
std::uint32_t wcn3680_fm_linux_rssi_get()
{
    int number;
    return wcn3680_result_get(&number) ? static_cast<std::uint32_t>(number) : 0;
}

// clang-format off
constexpr fm_co wcn3680_fm_co = {
    .start    = wcn3680_fm_linux_start,
    .stop     = nullptr,
    .chip_id  = [] { return std::uint32_t{0}; },
    .dev_id   = [] { return std::uint32_t{0}; },
    .band_set = nullptr,
    .space_set = nullptr,
    .vol_set  = nullptr,
    .de_set   = nullptr,
    .freq_set = wcn3680_fm_linux_freq_set,
    .rssi_get = wcn3680_fm_linux_rssi_get,
    .reg_get  = [](std::uint8_t) { return std::uint32_t{0}; },
};
// clang-format on

} // namespace

void wcn3680_fm_linux_init()
{
    fm_co_attach(&wcn3680_fm_co);
}
