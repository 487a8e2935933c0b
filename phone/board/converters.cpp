#include "board/converters.h"

#include <cmath>

#include "core/home.h"

namespace phone {

namespace {

// What its pin sees: the code counts from 0x6000 at 0 V to 0xA000 at 1.8 V.
constexpr double code_at_0 = 0x6000;
constexpr double code_span = 0x4000;
constexpr double reference_mv = 1800;

// The battery's thermistor hangs below a resistor at the reference.
constexpr double therm_ohm = 100e3; // at 25 degrees
constexpr double therm_beta = 4250; // kelvin
constexpr double therm_pull_up_ohm = 100e3;
constexpr double kelvin_at_0 = 273.15;

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

std::string text_of(long result, long code)
{
    return "Result:" + std::to_string(result) + " Raw:" + std::to_string(code) + "\n";
}

long code_of(double pin_mv)
{
    return std::lround(code_at_0 + pin_mv / reference_mv * code_span);
}

double therm_mv(double temp_c)
{
    const double ohm =
        therm_ohm * std::exp(therm_beta * (1 / (temp_c + kelvin_at_0) - 1 / (25 + kelvin_at_0)));
    return reference_mv * ohm / (ohm + therm_pull_up_ohm);
}

} // namespace

std::string converter_volts(double mv, int divided_by)
{
    return text_of(std::lround(mv) * 1000, code_of(std::round(mv) / divided_by));
}

std::string converter_therm_volts(double temp_c)
{
    return converter_volts(therm_mv(temp_c), 1);
}

std::string converter_therm_degrees(double temp_c)
{
    return text_of(std::lround(temp_c * 10), code_of(therm_mv(temp_c)));
}

void converters_seed()
{
    for (const channel& c : channels)
        home_seed(std::string("/sys/devices/qpnp-vadc-8/") + c.name, text_of(c.result, c.code));
    int zone = 0;
    for (const int degrees : zone_degrees)
        home_seed("/sys/class/thermal/thermal_zone" + std::to_string(zone++) + "/temp",
                  std::to_string(degrees) + "\n");
}

} // namespace phone
