#include "trim_brenk/trim_brenk.h"

#include "trim/items.h"

namespace {

// clang-format off
constexpr trim_map_row trim_map_brenk[] = {
    // id                  unit
    { TRIM_RF_VARIANT,     0x800009F7 },
    { TRIM_PP_TEXT,        0x80001324 },
    { TRIM_26,             60203      },
    { TRIM_VSYNC,          60220      },
    { TRIM_ACCEL_OFFSETS,  0x80001363 },
    { TRIM_ACCEL_BACKUP,   0x80001365 },
    { TRIM_RESTART_MARKER, 0x800008FD },
    { TRIM_38,             0x80000866 },
    { TRIM_GYRO_OFFSETS,   0x80001364 },
    { TRIM_GYRO_BACKUP,    0x80001366 },
    { TRIM_TOUCH_HWINFO,   0x80001356 },
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
