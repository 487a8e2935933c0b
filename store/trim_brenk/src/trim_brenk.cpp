#include "trim_brenk/trim_brenk.h"

namespace {

// clang-format off
constexpr trim_map_row trim_map_brenk[] = {
    // id   unit            bytes
    {  1,   0x800009F7 },   // text     RF band variant
    {  4,   0x80001324 },   // 4, 10    production parameter
    { 26,   60203      },   //
    { 28,   60220      },   // 4        display sync value
    { 31,   0x80001363 },   // 3        accelerometer offsets
    { 32,   0x80001365 },   // 27       accelerometer NVM backup
    { 37,   0x800008FD },   // 1, 8     restart marker
    { 38,   0x80000866 },   //
    { 40,   0x80001364 },   // 5        gyroscope offsets
    { 41,   0x80001366 },   // 58       gyroscope backup
    { 43,   0x80001356 },   // 5        touch hardware information
    { TRIM_LAST, 0 },
};
// clang-format on

constexpr trim_map_co trim_brenk_co = {
    .map = []() -> const trim_map_row* { return trim_map_brenk; },
};

} // namespace

const trim_map_co* trim_brenk_co_get(std::uint8_t)
{
    return &trim_brenk_co;
}
