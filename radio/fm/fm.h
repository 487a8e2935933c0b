// The FM receiver: one station tuned in, its band and its volume, and what the chip says of itself. A driver
// does the work (fm_co_attach). Operations that the driver lacks do nothing and give 0.
#pragma once

#include <cstdint>

constexpr int FM_OK = 0;
constexpr int FM_FAILED = 1;
constexpr int FM_TIMEOUT = 2; // of fm_freq_set alone

// What fm_band_set takes.
constexpr int FM_BAND_JAPAN_WIDE = 1;
constexpr int FM_BAND_JAPAN = 2;
constexpr int FM_BAND_EU_US = 3;

struct fm_co {
    int (*start)();
    void (*stop)();
    std::uint32_t (*chip_id)();
    std::uint32_t (*dev_id)();
    void (*band_set)(int band);
    void (*space_set)(int space);
    void (*vol_set)(std::uint16_t volume);
    void (*de_set)(int de_emphasis);
    int (*freq_set)(std::uint32_t hz);
    std::uint32_t (*rssi_get)();
    std::uint32_t (*reg_get)(std::uint8_t reg);
};

void fm_init();
void fm_co_attach(const fm_co* p_co);

int fm_start(); // FM_OK or FM_FAILED
void fm_stop();
std::uint32_t fm_chip_id();
std::uint32_t fm_dev_id();
void fm_band_set(int band);
void fm_space_set(int space);
void fm_vol_set(std::uint16_t volume);
void fm_de_set(int de_emphasis);

// Tunes to the nearest frequency that the receiver has.
int fm_freq_set(std::uint32_t hz);

// The level of what is tuned in, in the receiver's own unit; 0 when it can't be told.
std::uint32_t fm_rssi_get();

std::uint32_t fm_reg_get(std::uint8_t reg);
