#include "adcr_brenk/adcr_brenk.h"

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>

#include "adcr/adcr.h"
#include "attr/attr.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "plat/plat.h"

namespace {

constexpr std::uint32_t CH_RF_ID = 3;
constexpr std::uint32_t CH_BATT_THERM = 11;
constexpr std::uint32_t CH_DIE_TEMP = 13;
constexpr const char* VADC_DIR = "/sys/devices";
constexpr const char* VADC_PREFIX = "qpnp-vadc-";
constexpr const char* THERMAL_ZONE = "/sys/class/thermal/thermal_zone";

// clang-format off
constexpr adcr_channel adcr_brenk_tab[] = {
    /*  0 */ { "",                "",             "" },
    /*  1 */ { "",                "",             "" },
    /*  2 */ { "",                "",             "" },
    /*  3 */ { "rf_id",           "",             "Band variant / RF-id" },
    /*  4 */ { "",                "",             "" },
    /*  5 */ { "",                "",             "" },
    /*  6 */ { "",                "",             "" },
    /*  7 */ { "vcoin",           "",             "Coin cell battery voltage" },
    /*  8 */ { "usb_in",          "",             "USB input voltage" },
    /*  9 */ { "vchg_sns",        "",             "Charger input voltage" },
    /* 10 */ { "vbat_sns",        "",             "Battery voltage" },
    /* 11 */ { "batt_therm_dflt", "batt_therm",   "Battery thermistor" },
    /* 12 */ { "",                "",             "" },
    /* 13 */ { "die_temp",        "die_temp",     "PM8941 die thermistor" },
    /* 14 */ { "",                "",             "" },
    /* 15 */ { "",                "",             "" },
    /* 16 */ { "",                "",             "" },
    /* 17 */ { "",                "",             "" },
    /* 18 */ { "pa_therm1",       "pa_therm1",    "PA thermistor 1" },
    /* 19 */ { "0/temp",          "0/temp",       "MSM internal thermistor0" },
    /* 20 */ { "xo_therm_pu2",    "xo_therm_pu2", "XO thermistor" },
    /* 21 */ { "pa_therm0",       "pa_therm0",    "PA thermistor 0" },
    /* 22 */ { "",                "",             "" },
    /* 23 */ { "",                "",             "" },
    /* 24 */ { "1/temp",          "1/temp",       "MSM internal thermistor1" },
    /* 25 */ { "2/temp",          "2/temp",       "MSM internal thermistor2" },
    /* 26 */ { "3/temp",          "3/temp",       "MSM internal thermistor3" },
    /* 27 */ { "4/temp",          "4/temp",       "MSM internal thermistor4" },
    /* 28 */ { "",                "",             "" },
    /* 29 */ { "5/temp",          "5/temp",       "MSM internal thermistor5" },
    /* 30 */ { "6/temp",          "6/temp",       "MSM internal thermistor6" },
    /* 31 */ { "7/temp",          "7/temp",       "MSM internal thermistor7" },
    /* 32 */ { "8/temp",          "8/temp",       "MSM internal thermistor8" },
    /* 33 */ { "9/temp",          "9/temp",       "MSM internal thermistor9" },
    /* 34 */ { "10/temp",         "10/temp",      "MSM internal thermistor10" },
    /* 35 */ { "",                "",             "" },
    /* 36 */ { "msm_therm",       "msm_therm",    "MSM external thermistor" },
    /* 37 */ { "pcb_therm",       "pcb_therm",    "PCB thermistor" },
    /* 38 */ { "bl_therm",        "bl_therm",     "Backlight thermistor" },
    {},
};
// clang-format on

constexpr std::uint32_t ADC_MAX_CHANNEL = std::size(adcr_brenk_tab) - 2;
static_assert(ADC_MAX_CHANNEL == 38);

bool is_thermal_zone(std::uint32_t channel)
{
    return channel == 19 || (channel >= 24 && channel <= 27) || (channel >= 29 && channel <= 34);
}

// What one attribute tells.
struct reading {
    int value;
    int code;
};

// The number behind the first ':' of `*pp`, which is moved behind it.
bool scan_number(const char** pp, int* p_number)
{
    const char* const p_colon = std::strchr(*pp, ':');
    if (p_colon == nullptr)
        return false;
    *pp = p_colon + 1;
    *p_number = std::atoi(*pp);
    return true;
}

bool read_thermal_zone(const char* attr, reading* p_out)
{
    char text[32];
    if (attr_read((std::string(THERMAL_ZONE) + attr).c_str(), text, sizeof text) != ATTR_OK)
        return false;
    p_out->value = std::atoi(text);
    p_out->code = p_out->value;
    return true;
}

// The converter's directory, whose number the kernel chooses; empty when there is none.
std::string find_vadc()
{
    std::string path;
    DIR* const dir = plat_opendir(VADC_DIR);
    if (dir == nullptr)
        return path;
    for (const dirent* p_entry; path.empty() && (p_entry = plat_readdir(dir)) != nullptr;)
        if (std::strncmp(p_entry->d_name, VADC_PREFIX, std::strlen(VADC_PREFIX)) == 0)
            path = std::string(VADC_DIR) + '/' + p_entry->d_name;
    plat_closedir(dir);
    return path;
}

// "Result:3812345 Raw:9211"
bool read_vadc(const char* attr, reading* p_out)
{
    const std::string dir = find_vadc();
    char text[32];
    if (dir.empty() || attr_read((dir + '/' + attr).c_str(), text, sizeof text) != ATTR_OK)
        return false;
    const char* pos = text;
    return scan_number(&pos, &p_out->value) && scan_number(&pos, &p_out->code);
}

int refuse(int reason, int* p_val)
{
    *p_val = reason;
    return ADCR_REFUSED;
}

int in_format(std::uint32_t channel, std::uint32_t format, const reading& read)
{
    if (format == ADCR_RAW)
        return read.code;
    if (format == ADCR_DIVIDED || channel == CH_DIE_TEMP)
        return read.value / 1000;
    return channel == CH_BATT_THERM ? read.value / 10 : read.value;
}

int read_channel(std::uint32_t channel, std::uint32_t format, int* p_val)
{
    if (channel > ADC_MAX_CHANNEL)
        return refuse(ADCR_OUT_OF_RANGE, p_val);
    const adcr_channel& row = adcr_brenk_tab[channel];
    if (row.attr_raw[0] == '\0')
        return refuse(ADCR_NO_CHANNEL, p_val);
    const char* const attr = format == ADCR_SCALED ? row.attr_scaled : row.attr_raw;
    if (attr[0] == '\0')
        return refuse(ADCR_NO_SCALED, p_val);
    reading read{};
    if (is_thermal_zone(channel)) {
        if (!read_thermal_zone(attr, &read))
            return ADCR_FAILED;
    } else {
        if (channel == CH_RF_ID)
            pin_out_set(PIN_OUT_RF_ID_SUPPLY, PIN_ACTIVE);
        if (!read_vadc(attr, &read))
            return ADCR_FAILED;
    }
    *p_val = in_format(channel, format, read);
    return ADCR_OK;
}

int adcr_brenk_read(std::uint32_t channel, std::uint32_t format, int* p_val)
{
    return format <= ADCR_SCALED ? read_channel(channel, format, p_val) : ADCR_FAILED;
}

constexpr adcr_co adcr_brenk_co = {
    .read = adcr_brenk_read,
    .channel_info = []() -> const adcr_channel* { return adcr_brenk_tab; },
};

} // namespace

void adcr_brenk_init()
{
    adcr_cmd_co_attach(&adcr_brenk_co);
}
