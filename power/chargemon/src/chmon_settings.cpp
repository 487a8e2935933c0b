// The settings: the presets, and what a product lays over them.
#include <tuple>

#include "chmon.h"
#include "overlay/overlay.h"

namespace {

// The presets 1 to 5 are other products'.
// clang-format off
constexpr chargemon_cfg preset_brenk = {
    .preset               = 6,
    .tick_period_us       = 2'000'000,
    .stay_with_usb        = 0,
    .voltage_mode         = 0,
    .allow_discharge      = 1,
    .stable_time_ms       = 120'000,
    .recharge_percent     = 58,
    .target_percent       = 60,
    .margin_high_percent  = 2,
    .margin_low_percent   = 1,
    .recharge_mv          = 0,
    .max_mv               = 0,
    .max_celsius          = 80,
    .wall_ma              = 1500,
    .simple_ma            = 1500,
    .capacity_mah         = 2380,
    .charge_time_limit_ms = 10'800'000,
    .min_charge_time_ms   = 0,
    .done_check_period_ms = 120'000,
    .backlight_level      = 128,
};

// All that can be laid over a preset; it has no recharge_mv of a product's.
constexpr std::tuple fields = {
    &chargemon_cfg::tick_period_us,
    &chargemon_cfg::stay_with_usb,
    &chargemon_cfg::voltage_mode,
    &chargemon_cfg::allow_discharge,
    &chargemon_cfg::stable_time_ms,
    &chargemon_cfg::recharge_percent,
    &chargemon_cfg::target_percent,
    &chargemon_cfg::margin_high_percent,
    &chargemon_cfg::margin_low_percent,
    &chargemon_cfg::max_mv,
    &chargemon_cfg::max_celsius,
    &chargemon_cfg::wall_ma,
    &chargemon_cfg::simple_ma,
    &chargemon_cfg::capacity_mah,
    &chargemon_cfg::charge_time_limit_ms,
    &chargemon_cfg::min_charge_time_ms,
    &chargemon_cfg::done_check_period_ms,
    &chargemon_cfg::backlight_level,
};
// clang-format on

} // namespace

chargemon_cfg cmcfg;

void chmon_settings_init()
{
    cmcfg = preset_brenk;
}

void chargemon_set_cfg(const chargemon_cfg* p_cfg)
{
    if (p_cfg->preset != preset_brenk.preset) {
        cmcfg = *p_cfg;
        return;
    }
    cmcfg = preset_brenk;
    overlay(cmcfg, *p_cfg, fields);
}

const chargemon_cfg* chargemon_get_cfg()
{
    return &cmcfg;
}
