#include "chargemon/chargemon.h"

#include "charge/charge.h"
#include "chmon.h"
#include "tmr/tmr.h"

namespace {

constexpr int STOP_TURNS = 100;
constexpr std::uint32_t STOP_TURN_MS = 50;

// The presets 1 to 5 are other products'.
constexpr chargemon_cfg preset_brenk = {
    .preset = 6,
    .tick_period = 2'000'000,
    .stay_with_usb = 0,
    .voltage_mode = 0,
    .allow_discharge = 1,
    .stable_time = 120'000,
    .recharge_cap = 58,
    .target_cap = 60,
    .cap_margin_high = 2,
    .cap_margin_low = 1,
    .recharge_voltage = 0,
    .max_voltage = 0,
    .max_temp = 80,
    .wall_current = 1500,
    .simple_current = 1500,
    .capacity = 2380,
    .charge_time_limit = 10'800'000,
    .min_charge_time = 0,
    .done_check_period = 120'000,
    .backlight_level = 128,
};

tmr_link tick_link;

template <typename T>
void overlay(T& field, T given)
{
    if (given != 0)
        field = given;
}

void send(int code)
{
    const fsm_event evt = {code};
    fsm_evt(&chmon_fsm.machine, &evt);
}

void report_charger()
{
    int type;
    if (charge_get_mode(CHARGE_GET_TYPE, &type) == 0 || type == chmon_fsm.charger)
        return;
    chmon_fsm.charger = type;
    send(CHMON_EVT_CHANGE);
}

void tmr_cb_chargemon(tmr_link* p_link, std::uint32_t)
{
    chmon_fsm.in_tick = true;
    send(CHMON_EVT_TICK);
    if (chmon_fsm.running) {
        report_charger();
        tmr_cb_add(p_link, tmr_cb_chargemon, cmcfg.tick_period);
    }
    chmon_fsm.in_tick = false;
}

} // namespace

chmon chmon_fsm;
chargemon_cfg cmcfg;

void chargemon_init()
{
    chmon_states_init();
    chmon_fsm.message = "";
    cmcfg = preset_brenk;
}

void chargemon_set_cfg(const chargemon_cfg* p_cfg)
{
    if (p_cfg->preset != preset_brenk.preset) {
        cmcfg = *p_cfg;
        return;
    }
    cmcfg = preset_brenk;
    overlay(cmcfg.tick_period, p_cfg->tick_period);
    overlay(cmcfg.stay_with_usb, p_cfg->stay_with_usb);
    overlay(cmcfg.voltage_mode, p_cfg->voltage_mode);
    overlay(cmcfg.allow_discharge, p_cfg->allow_discharge);
    overlay(cmcfg.stable_time, p_cfg->stable_time);
    overlay(cmcfg.recharge_cap, p_cfg->recharge_cap);
    overlay(cmcfg.target_cap, p_cfg->target_cap);
    overlay(cmcfg.cap_margin_high, p_cfg->cap_margin_high);
    overlay(cmcfg.cap_margin_low, p_cfg->cap_margin_low);
    overlay(cmcfg.max_voltage, p_cfg->max_voltage);
    overlay(cmcfg.max_temp, p_cfg->max_temp);
    overlay(cmcfg.wall_current, p_cfg->wall_current);
    overlay(cmcfg.simple_current, p_cfg->simple_current);
    overlay(cmcfg.capacity, p_cfg->capacity);
    overlay(cmcfg.charge_time_limit, p_cfg->charge_time_limit);
    overlay(cmcfg.min_charge_time, p_cfg->min_charge_time);
    overlay(cmcfg.done_check_period, p_cfg->done_check_period);
    overlay(cmcfg.backlight_level, p_cfg->backlight_level);
}

const chargemon_cfg* chargemon_get_cfg()
{
    return &cmcfg;
}

void chargemon_start()
{
    fsm_start(&chmon_fsm.machine, &chmon_fsm.idle);
    chmon_fsm.running = true;
    chmon_fsm.total_ms = 0;
    chmon_fsm.retries = 0;
    chmon_log("-------- New session ---------");
    tmr_cb_add(&tick_link, tmr_cb_chargemon, cmcfg.tick_period);
}

void chargemon_stop()
{
    tmr_cb_rm(&tick_link);
    for (int i = 0; i < STOP_TURNS && chmon_fsm.in_tick; i++)
        tmr_msleep(STOP_TURN_MS);
    if (!chmon_fsm.in_tick)
        chmon_fsm.running = false;
}
