// Monitors of the tuned chip: error rates, transmission control data (TMCC), sync word, carrier to noise
// ratio, level, AC data, and their configuration. It reads registers and moves bits; it judges nothing. A
// reading may hold its caller for 3 seconds. "Path" 0 is the wide half of the chip, 1 the narrow one; `kind`
// 0 is bits, 1 packets. Results are those of tunerx.h; readings give 259 on a chip that isn't tuned.
#pragma once

#include <cstdint>

// A value and a mask of one layout. With a mask of 0 the call reads: the value, and the mask of all bits it
// knows. Else it writes each field whose lowest bit is in the mask.
struct tunerx_field_record {
    std::uint32_t value;
    std::uint32_t mask;
};

// 258 for a path or kind that isn't one; 259 for a chip that isn't initialised.
int tunerx_cfg_berper(int path, int kind, tunerx_field_record& record);

// Bit 0 of the value: the measurement isn't available. 258 as above.
int tunerx_ctl_berper(int path, int kind, tunerx_field_record& record);

// 258 for a path that isn't one.
int tunerx_cfg_cn(int path, tunerx_field_record& record);
int tunerx_ctl_cn(int path, tunerx_field_record& record);

// Bit 0: AC data of the other kind. Reading needs a tuned chip.
int tunerx_cfg_ac(tunerx_field_record& record);

// clang-format off
// Flags of an error rate.
constexpr std::uint32_t BERPER_LAYER    = 0x003; // input: 0 and 1 are A, 2 is B, 3 is C
constexpr std::uint32_t BERPER_KIND     = 0x004; // input
constexpr std::uint32_t BERPER_READY    = 0x008;
constexpr std::uint32_t BERPER_COMPLETE = 0x010;
constexpr std::uint32_t BERPER_METHOD   = 0x020;
constexpr unsigned      BERPER_FIELD_AT = 6;     // two bits
constexpr unsigned      BERPER_MODE_AT  = 8;     // two bits
constexpr std::uint32_t BERPER_TIMEOUT  = 0x400;
constexpr std::uint32_t BERPER_NARROW   = 0x800;
// clang-format on

struct tunerx_berper {
    std::uint32_t errors;
    std::uint32_t period; // in mode 0 its exponent to the base 2
    std::uint32_t ratio;  // times 100000, cut; 100000 for a period of 0
    std::uint32_t flags;
};

// Measures, or with `nowait` takes what is there. A time-out is only told by its flag.
int tunerx_get_berper(int nowait, tunerx_berper& result);

// The two words of transmission control data.
int tunerx_get_tmcc(std::uint32_t (&words)[2]);

constexpr std::uint32_t SYNC_NONE = 1u << 21;      // no sync
constexpr std::uint32_t SYNC_GOOD_WIDE = 1u << 20; // C/N and AC data can be had
constexpr std::uint32_t SYNC_GOOD_NARROW = 1u << 27;
int tunerx_get_sync(std::uint32_t& word);

struct tunerx_cn {
    std::uint32_t raw;
    std::int32_t cn; // dB times 100000, cut
    std::uint32_t flags;
};
constexpr std::uint32_t CN_READY = 1;
constexpr std::uint32_t CN_COMPLETE = 2;
constexpr std::uint32_t CN_TIMEOUT = 4;
constexpr std::uint32_t CN_NARROW = 8;
int tunerx_get_cn(int nowait, tunerx_cn& result);

// dBm times 100000, cut.
int tunerx_get_rssi(std::int32_t& value);

constexpr std::uint32_t AC_NARROW = 0x80; // the other flags are the chip's status
struct tunerx_ac {
    std::uint32_t flags;
    std::uint8_t data[24];
};
int tunerx_get_ac(tunerx_ac& result);
