#include "battery_default.h"

#include <cstdlib>
#include <string_view>
#include <strings.h>

#include "adcr/adcr.h"
#include "attr/attr.h"
#include "battery_alg.h"

namespace {

constexpr std::uint32_t CHANNEL_VOLTAGE = 10;
constexpr std::uint32_t CHANNEL_TEMP = 11;
constexpr int TYPE_UNKNOWN = 0;
constexpr int TYPE_KNOWN = 1;
constexpr std::size_t ATTR_ROOM = 32; // 31 characters of an attribute

int read_channel(std::uint32_t channel, int* p_mv)
{
    int mv;
    if (adcr_read(channel, ADCR_DIVIDED, &mv) != ADCR_OK)
        return 0;
    *p_mv = mv;
    return 1;
}

int battery_voltage(int* p_mv)
{
    return read_channel(CHANNEL_VOLTAGE, p_mv);
}

// There is no reading of the current without a driver.
int battery_current(int*)
{
    return 0;
}

int battery_type(int* p_type)
{
    char text[ATTR_ROOM];
    if (attr_read(battery_cfg_now().type_path, text, sizeof text) != ATTR_OK)
        return 0;
    constexpr std::string_view UNKNOWN = "Unknown";
    const bool is_unknown = strncasecmp(text, UNKNOWN.data(), UNKNOWN.size()) == 0 &&
                            (text[UNKNOWN.size()] == '\0' || text[UNKNOWN.size()] == '\n');
    *p_type = is_unknown ? TYPE_UNKNOWN : TYPE_KNOWN;
    return 1;
}

// The attribute is in tenths of a degree.
int battery_temp(int* p_degrees)
{
    char text[ATTR_ROOM];
    if (attr_read(battery_cfg_now().temp_path, text, sizeof text) != ATTR_OK)
        return 0;
    *p_degrees = std::atoi(text) / 10;
    return 1;
}

int battery_temp_mv(int* p_mv)
{
    return read_channel(CHANNEL_TEMP, p_mv);
}

// An in/out value: the measurement goes out through a 0, any other value comes in. True for the latter.
bool given(int* p_value, int measured)
{
    if (p_value == nullptr)
        return false;
    if (*p_value != 0)
        return true;
    *p_value = measured;
    return false;
}

int battery_capacity(int* p_percent, int* p_mv, int* p_ma)
{
    int mv;
    int ma;
    int type;
    if (battery_read_voltage(&mv) == 0 || battery_read_current(&ma) == 0 || battery_read_type(&type) == 0)
        return 0;
    if (given(p_mv, mv))
        mv = *p_mv;
    if (given(p_ma, ma))
        ma = static_cast<int>(0U - static_cast<unsigned>(*p_ma));
    const battery_cfg now = battery_cfg_now();
    switch (now.algorithm) {
    case 1:
        return battery_alg1_calc_capacity(now, type, mv, ma, p_percent);
    case 2:
        return battery_alg2_calc_capacity(now, type, mv, ma, p_percent);
    default:
        return 0;
    }
}

} // namespace

const battery_cfg battery_default_cfg = {
    .algorithm = 1, .model = 1, .ires_mohm = 200, .type_path = nullptr, .temp_path = nullptr};

// clang-format off
const battery_co battery_default_co = {
    .read_voltage  = battery_voltage,
    .read_current  = battery_current,
    .read_capacity = battery_capacity,
    .read_type     = battery_type,
    .read_temp     = battery_temp,
    .read_temp_mv  = battery_temp_mv,
};
// clang-format on
