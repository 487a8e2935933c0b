// The converter channels of the board: voltages and temperatures by channel number. A driver does the work
// (adcr_cmd_co_attach).
#pragma once

#include <cstdint>

// Formats of a reading.
constexpr std::uint32_t ADCR_RAW = 0;     // the converter's code
constexpr std::uint32_t ADCR_DIVIDED = 1; // the physical value divided by 1000: mV
constexpr std::uint32_t ADCR_SCALED = 2;  // degrees Celsius

// Results of adcr_read.
constexpr int ADCR_OK = 0;
constexpr int ADCR_FAILED = 1;
constexpr int ADCR_REFUSED = 2; // the value is one of the reasons below

constexpr int ADCR_OUT_OF_RANGE = 1;
constexpr int ADCR_NO_CHANNEL = 2;
constexpr int ADCR_NO_SCALED = 3;

// One channel. An empty `attr_raw` is no channel, a null one ends the table.
struct adcr_channel {
    const char* attr_raw;    // formats 0 and 1
    const char* attr_scaled; // format 2; empty: it has none
    const char* desc;
};

struct adcr_co {
    int (*read)(std::uint32_t channel, std::uint32_t format, int* p_val);
    const adcr_channel* (*channel_info)();
};

void adcr_init();
void adcr_cmd_co_attach(const adcr_co* p_co);

// One reading: a result, and the value or the reason in `*p_val`.
int adcr_read(std::uint32_t channel, std::uint32_t format, int* p_val);

// The table of channels, or null.
const adcr_channel* adcr_channel_info();
