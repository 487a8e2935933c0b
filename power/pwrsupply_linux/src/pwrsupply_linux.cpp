#include "pwrsupply_linux/pwrsupply_linux.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "attr/attr.h"
#include "battery/battery.h"
#include "fuelgauge/fuelgauge.h"

namespace {

constexpr const char* attr_path[] = {
    "/sys/class/power_supply/battery/voltage_now", "/sys/class/power_supply/battery/current_now",
    "/sys/class/power_supply/battery/capacity",    "/sys/class/power_supply/battery/type",
    "/sys/class/power_supply/battery/temp",
};

constexpr long MICRO_PER_MILLI = 1000;
constexpr std::size_t ATTR_ROOM = 33; // 32 characters

int read_milli(int index, int* p_out)
{
    long micro;
    if (pwrsupply_linux_read_attr(index, &micro) == 0)
        return 0;
    *p_out = static_cast<int>(micro / MICRO_PER_MILLI);
    return 1;
}

int battery_linux_read_voltage(int* p_mv)
{
    return read_milli(PWRSUPPLY_VOLTAGE_NOW, p_mv);
}

int battery_linux_read_current(int* p_ma)
{
    return read_milli(PWRSUPPLY_CURRENT_NOW, p_ma);
}

// A power supply that tells its type is a battery of the one type that this phone has.
int battery_linux_read_type(int* p_type)
{
    long ignored;
    if (pwrsupply_linux_read_attr(PWRSUPPLY_TYPE, &ignored) == 0)
        return 0;
    *p_type = 1;
    return 1;
}

int fuelgauge_linux_read_voltage(int* p_mv)
{
    return read_milli(PWRSUPPLY_VOLTAGE_NOW, p_mv) != 0 ? FUELGAUGE_VALUE : FUELGAUGE_FAILED;
}

int fuelgauge_linux_read_current(int* p_ma)
{
    return read_milli(PWRSUPPLY_CURRENT_NOW, p_ma) != 0 ? FUELGAUGE_VALUE : FUELGAUGE_FAILED;
}

constexpr battery_co battery_linux_co = {
    .read_voltage = battery_linux_read_voltage,
    .read_current = battery_linux_read_current,
    .read_capacity = nullptr,
    .read_type = battery_linux_read_type,
    .read_temp = nullptr,
    .read_temp_mv = nullptr,
};

} // namespace

int pwrsupply_linux_read_attr(int index, long* p_out)
{
    char text[ATTR_ROOM];
    if (index < 0 || index >= static_cast<int>(std::size(attr_path)) ||
        attr_read(attr_path[index], text, sizeof text) != ATTR_OK)
        return 0;
    *p_out = std::strtol(text, nullptr, 0);
    return 1;
}

void pwrsupply_linux_init()
{
    fg_co gauge{};
    gauge.read_voltage = fuelgauge_linux_read_voltage;
    gauge.read_current = fuelgauge_linux_read_current;
    fuelgauge_cmd_co_attach(&gauge);
    battery_cmd_co_attach(&battery_linux_co);
}
