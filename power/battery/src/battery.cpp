#include "battery/battery.h"

#include <mutex>

#include "battery_default.h"
#include "overlay/overlay.h"

namespace {

constexpr int TYPE_OTHERWISE = 1;
constexpr int TEMP_OTHERWISE = 25; // degrees

battery_co co;

// A station may change the settings while the charging monitor reads.
std::mutex cfg_mutex;
battery_cfg cfg;

// What takes part when settings or callouts are laid over those in force.
// clang-format off
constexpr std::tuple cfg_fields = {
    &battery_cfg::algorithm,
    &battery_cfg::model,
    &battery_cfg::ires_mohm,
    &battery_cfg::type_path,
    &battery_cfg::temp_path,
};
constexpr std::tuple co_slots = {
    &battery_co::read_voltage,
    &battery_co::read_current,
    &battery_co::read_capacity,
    &battery_co::read_type,
    &battery_co::read_temp,
    &battery_co::read_temp_mv,
};
// clang-format on

} // namespace

battery_cfg battery_cfg_now()
{
    const std::lock_guard lock(cfg_mutex);
    return cfg;
}

void battery_init()
{
    const std::lock_guard lock(cfg_mutex);
    cfg = battery_default_cfg;
    co = battery_default_co;
}

void battery_set_cfg(const battery_cfg* p_cfg)
{
    const std::lock_guard lock(cfg_mutex);
    overlay(cfg, *p_cfg, cfg_fields);
}

void battery_cmd_co_attach(const battery_co* p_co)
{
    overlay(co, *p_co, co_slots);
}

int battery_read_voltage(int* p_mv)
{
    return co.read_voltage(p_mv);
}

int battery_read_current(int* p_ma)
{
    return co.read_current(p_ma);
}

int battery_read_capacity(int* p_percent, int* p_mv, int* p_ma)
{
    return co.read_capacity(p_percent, p_mv, p_ma);
}

// The paths are gates: a product without one has its answer here, and no reading, not a driver's either, is
// asked.
int battery_read_type(int* p_type)
{
    if (battery_cfg_now().type_path == nullptr) {
        *p_type = TYPE_OTHERWISE;
        return 1;
    }
    return co.read_type(p_type);
}

int battery_read_temp(int* p_degrees)
{
    if (battery_cfg_now().temp_path == nullptr) {
        *p_degrees = TEMP_OTHERWISE;
        return 1;
    }
    return co.read_temp(p_degrees);
}

int battery_read_temp_mv(int* p_mv)
{
    return co.read_temp_mv(p_mv);
}
