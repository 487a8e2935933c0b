#include "pin_brenk/pin_brenk.h"

namespace {

constexpr int LOW = 0; // active low
constexpr int HIGH = 1;

// clang-format off
constexpr pin_out_row pin_out_map_brenk[] = {
    // sig  group         pin  counts      active  attr  on       off
    {   30, PIN_GRP_GPIO,   3, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    {   69, PIN_GRP_GPIO, 558, PIN_DIRECT, LOW,    8,    nullptr, nullptr }, // NFC enable
    {  149, PIN_GRP_GPIO,  13, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // tuner power
    {  150, PIN_GRP_GPIO,  14, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // tuner power
    {  151, PIN_GRP_GPIO, 561, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // tuner reset
    {  154, PIN_GRP_GPIO, 544, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // supply of the RF id divider
    {  158, PIN_GRP_GPIO, 568, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // contactless lock line
    {  159, PIN_GRP_GPIO,  16, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // MHL self tests
    {  160, PIN_GRP_GPIO,  57, PIN_DIRECT, HIGH,   8,    nullptr, nullptr },
    {  161, PIN_GRP_GPIO, 559, PIN_DIRECT, LOW,    8,    nullptr, nullptr }, // contactless SIM select
    {  163, PIN_GRP_GPIO, 567, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // tuner antenna, bit 0
    {  164, PIN_GRP_GPIO, 564, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // tuner antenna, bit 1
    {  165, PIN_GRP_GPIO, 565, PIN_DIRECT, HIGH,   8,    nullptr, nullptr }, // tuner antenna, bit 2
    { PIN_OUT_LAST, PIN_GRP_NONE, 0, PIN_DIRECT, HIGH, 0, nullptr, nullptr },
};

constexpr pin_in_row pin_in_map_brenk[] = {
    // sig  group         pin  active  attr
    {    4, PIN_GRP_GPIO,  59, HIGH,   8 }, // NFC interrupt
    {   12, PIN_GRP_NONE,   0, HIGH,   8 },
    {   13, PIN_GRP_GPIO,  62, HIGH,   8 }, // memory card detect
    {   41, PIN_GRP_GPIO, 153, HIGH,   8 },
    {   47, PIN_GRP_GPIO,  74, LOW,    1 }, // proximity output
    {   49, PIN_GRP_GPIO,  97, HIGH,   8 }, // contactless SIM supply check
    {   50, PIN_GRP_GPIO, 100, HIGH,   8 }, // SIM detect
    {   52, PIN_GRP_GPIO,  73, HIGH,   8 }, // accelerometer interrupt line 1
    {   53, PIN_GRP_GPIO,  65, HIGH,   8 }, // accelerometer interrupt line 2
    {   57, PIN_GRP_GPIO, 547, HIGH,   8 }, // RF variant pin
    {   61, PIN_GRP_GPIO, 569, HIGH,   8 }, // contactless status line
    {   62, PIN_GRP_GPIO,  77, LOW,    8 }, // contactless status line
    {   63, PIN_GRP_GPIO,  78, HIGH,   8 }, // contactless chip interrupt
    {   64, PIN_GRP_GPIO,  25, HIGH,   8 }, // contactless variant check
    {   65, PIN_GRP_GPIO,  28, HIGH,   8 },
    {   66, PIN_GRP_GPIO, 169, HIGH,   8 },
    {   67, PIN_GRP_GPIO,  67, HIGH,   8 }, // compass data ready
    {   68, PIN_GRP_GPIO,  34, HIGH,   8 }, // MHL hot-plug test
    {   69, PIN_GRP_GPIO,  68, HIGH,   8 }, // tuner bus check
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
