#include "chargemon/chargemon.h"

#include "charge/charge.h"
#include "chmon.h"
#include "tmr/tmr.h"

namespace {

constexpr int STOP_TURNS = 100;
constexpr std::uint32_t STOP_TURN_MS = 50;

tmr_link tick_link;

void post(int code)
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
    post(CHMON_EVT_CHANGE);
}

void tmr_cb_chargemon(tmr_link* p_link, std::uint32_t)
{
    chmon_fsm.in_tick = true;
    post(CHMON_EVT_TICK);
    if (chmon_fsm.running) {
        report_charger();
        tmr_cb_add(p_link, tmr_cb_chargemon, cmcfg.tick_period_us);
    }
    chmon_fsm.in_tick = false;
}

} // namespace

chmon chmon_fsm;

void chargemon_init()
{
    chmon_states_init();
    chmon_fsm.message = "";
    chmon_settings_init();
}

void chargemon_start()
{
    fsm_start(&chmon_fsm.machine, &chmon_fsm.idle);
    chmon_fsm.running = true;
    chmon_fsm.total_ms = 0;
    chmon_fsm.retries = 0;
    chmon_log("-------- New session ---------");
    tmr_cb_add(&tick_link, tmr_cb_chargemon, cmcfg.tick_period_us);
}

void chargemon_stop()
{
    tmr_cb_rm(&tick_link);
    for (int i = 0; i < STOP_TURNS && chmon_fsm.in_tick; i++)
        tmr_msleep(STOP_TURN_MS);
    if (!chmon_fsm.in_tick)
        chmon_fsm.running = false;
}
