#include "devices/converters.h"

#include <string>

#include "core/home.h"

namespace phone {

namespace {

// The code counts from 0x6000 at 0 V to 0xA000 at 1.8 V, behind the channel's divider.
struct channel {
    const char* name;
    int result;
    int code;
};

// clang-format off
constexpr channel channels[] = {
    // name              result    code
    { "rf_id",          1790000,  40869 },   // uV
    { "vcoin",          3056000,  33848 },   // uV, divided by 3
    { "usb_in",         5012000,  26857 },   // uV, divided by 20
    { "vchg_sns",       4987000,  26846 },   // uV, divided by 20
    { "vbat_sns",       3802000,  36111 },   // uV, divided by 3
    { "batt_therm_dflt", 912000,  32877 },   // uV
    { "batt_therm",         284,  32879 },   // 0.1 degrees
    { "die_temp",         33500,  30158 },   // 0.001 degrees; 2 mV a kelvin
    { "pa_therm0",           32,  31764 },   // degrees, and below
    { "pa_therm1",           31,  31922 },
    { "xo_therm_pu2",        30,  32103 },
    { "msm_therm",           36,  31180 },
    { "pcb_therm",           29,  32260 },
    { "bl_therm",            27,  32591 },
};
// clang-format on

constexpr int zone_degrees[] = {38, 39, 41, 42, 43, 44, 45, 40, 37, 46, 47};

} // namespace

void converters_seed()
{
    for (const channel& c : channels)
        home_seed(std::string("/sys/devices/qpnp-vadc-8/") + c.name,
                  "Result:" + std::to_string(c.result) + " Raw:" + std::to_string(c.code) + "\n");
    int zone = 0;
    for (const int degrees : zone_degrees)
        home_seed("/sys/class/thermal/thermal_zone" + std::to_string(zone++) + "/temp",
                  std::to_string(degrees) + "\n");
}

} // namespace phone
