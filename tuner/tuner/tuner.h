// The board's wrapper of the tuner library (tunerx): start and stop with this phone's files, the settings
// that every bring-up makes, and readings as plain numbers. It is what a driver calls; registers and tables
// are the library's. One caller at a time.
#pragma once

#include "tunerx/tunerx.h"

// 0 starts the library with the default files (0, or 257); 1 ends the antenna search and closes the nodes
// (0); any other action is 258.
int tuner_ctl_power(int action);

// Brings the booted chip up, its outputs and events as this board has them. `mode` 1 and 2 pick the stream
// output. 0; 257 when the bring-up gave anything but 0, a warning included, although the chip may run then;
// 258 when a step behind it failed.
int tuner_initialize(int mode);

struct tuner_request {
    std::uint32_t ch;
    int band;
};

// As tunerx_tuning; 258 without a request.
int tuner_tuning(const tuner_request* p_request);

// As tunerx_search_ch.
int tuner_search_ch(tunerx_tdc* p_head);

// The state word.
std::uint32_t tuner_get_status();
void tuner_put_status(std::uint32_t state);

// 0 when "/dev/mmtuner" can be opened, else 259.
int tuner_check_dev_openable();

// clang-format off
constexpr int TUNER_MONI_TMCC = 1; // out: two 32-bit words
constexpr int TUNER_MONI_CN   = 3; // out: float, dB
constexpr int TUNER_MONI_BER  = 6; // out: float, ratio
constexpr int TUNER_MONI_PER  = 7; // out: float, ratio
constexpr int TUNER_MONI_RSSI = 8; // out: float, dBm
constexpr int TUNER_MONI_SYNC = 9; // out: 32-bit word, 1 for no sync, 0 for sync
// clang-format on
constexpr int TUNER_CIRCUIT_NARROW = 2; // the circuit whose C/N and error rates are those of the narrow path

// One reading into `p_out`. 0, or 258 whatever the failure.
int tuner_get_moni_info(int kind, int circuit, void* p_out);

// Error ratios, with the measurement set up first: `mode` 1 bits, any other packets. -1.0 on failure.
float tuner_get_bper(int mode, int circuit, int layer);

// dBm; -1.0 on failure, too.
float tuner_get_rssi();

// 1 for sync, 0 for none, -1 on failure.
int tuner_get_sync(int circuit);
