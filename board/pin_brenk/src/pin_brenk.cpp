#include "pin_brenk/pin_brenk.h"

#include "pin/signals.h"

namespace {

constexpr int LOW = 0; // active low
constexpr int HIGH = 1;

// clang-format off
constexpr pin_out_row pin_out_map_brenk[] = {
    // sig                   group         pin  counts      active  attr  on       off
    { PIN_OUT_30,            PIN_GRP_GPIO,   3, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_NFC_ENABLE,    PIN_GRP_GPIO, 558, PIN_DIRECT, LOW,    8,    nullptr, nullptr },
    { PIN_OUT_TUNER_POWER1,  PIN_GRP_GPIO,  13, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_TUNER_POWER2,  PIN_GRP_GPIO,  14, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_TUNER_RESET,   PIN_GRP_GPIO, 561, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_RF_ID_SUPPLY,  PIN_GRP_GPIO, 544, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_LOCK_LINE,     PIN_GRP_GPIO, 568, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_MHL_RESET,     PIN_GRP_GPIO,  16, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_160,           PIN_GRP_GPIO,  57, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_SIM_SELECT,    PIN_GRP_GPIO, 559, PIN_DIRECT, LOW,    8,    nullptr, nullptr },
    { PIN_OUT_ANTENNA0,      PIN_GRP_GPIO, 567, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_ANTENNA1,      PIN_GRP_GPIO, 564, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_ANTENNA2,      PIN_GRP_GPIO, 565, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    { PIN_OUT_LAST, PIN_GRP_NONE, 0, PIN_DIRECT, HIGH, 0, nullptr, nullptr },
};

constexpr pin_in_row pin_in_map_brenk[] = {
    // sig                   group         pin  active  attr
    { PIN_IN_NFC_IRQ,        PIN_GRP_GPIO,  59, HIGH,   8 },
    { PIN_IN_12,             PIN_GRP_NONE,   0, HIGH,   8 },
    { PIN_IN_CARD_DETECT,    PIN_GRP_GPIO,  62, HIGH,   8 },
    { PIN_IN_41,             PIN_GRP_GPIO, 153, HIGH,   8 },
    { PIN_IN_PROXIMITY,      PIN_GRP_GPIO,  74, LOW,    1 },
    { PIN_IN_SIM_SUPPLY,     PIN_GRP_GPIO,  97, HIGH,   8 },
    { PIN_IN_SIM_DETECT,     PIN_GRP_GPIO, 100, HIGH,   8 },
    { PIN_IN_ACCEL_IRQ1,     PIN_GRP_GPIO,  73, HIGH,   8 },
    { PIN_IN_ACCEL_IRQ2,     PIN_GRP_GPIO,  65, HIGH,   8 },
    { PIN_IN_RF_VARIANT,     PIN_GRP_GPIO, 547, HIGH,   8 },
    { PIN_IN_NFC2_STATUS1,   PIN_GRP_GPIO, 569, HIGH,   8 },
    { PIN_IN_NFC2_STATUS2,   PIN_GRP_GPIO,  77, LOW,    8 },
    { PIN_IN_NFC2_IRQ,       PIN_GRP_GPIO,  78, HIGH,   8 },
    { PIN_IN_NFC2_VARIANT,   PIN_GRP_GPIO,  25, HIGH,   8 },
    { PIN_IN_65,             PIN_GRP_GPIO,  28, HIGH,   8 },
    { PIN_IN_66,             PIN_GRP_GPIO, 169, HIGH,   8 },
    { PIN_IN_COMPASS_READY,  PIN_GRP_GPIO,  67, HIGH,   8 },
    { PIN_IN_MHL_HOTPLUG,    PIN_GRP_GPIO,  34, HIGH,   8 },
    { PIN_IN_TUNER_BUS,      PIN_GRP_GPIO,  68, HIGH,   8 },
    { PIN_IN_LAST, PIN_GRP_NONE, 0, HIGH, 0 },
};
// clang-format on

constexpr pin_tab pin_tab_brenk = {"brenk", pin_in_map_brenk, pin_out_map_brenk};

constexpr pin_map_co pin_brenk_co = {
    .tab = [] { return &pin_tab_brenk; },
};

} // namespace

const pin_map_co* pin_brenk_co_get(std::uint8_t)
{
    return &pin_brenk_co;
}
