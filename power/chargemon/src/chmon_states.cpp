// The states, each a handler: what is done on entry and exit, at a tick, and when the charger changes.
#include <iterator>

#include "autopoff/autopoff.h"
#include "battery/battery.h"
#include "charge/charge.h"
#include "chmon.h"
#include "tmr/tmr.h"
#include "usb/usb.h"

namespace {

constexpr std::uint32_t GREEN = 0x00FF00;
constexpr std::uint32_t RED = 0xFF0000;
constexpr std::uint32_t BLACK = 0x000000;

constexpr std::uint8_t MOST_RETRIES = 3;
constexpr std::uint32_t MA_MS_PER_UAH = 3600;
constexpr std::int64_t SECONDS_PER_HOUR = 3600;

chmon& me = chmon_fsm;

int go(const fsm_state& state)
{
    fsm_state_tran(&me.machine, &state);
    return 0;
}

int fail(const char* message)
{
    me.message = message;
    return go(me.error);
}

// The time since the last tick in ms, counted in the session and in `p_own`, which may be null. The clock is
// the wall's: it wraps, and may be set back.
std::uint32_t advance(std::uint32_t* p_own)
{
    const std::uint32_t now = tmr_get();
    const auto us = static_cast<std::int32_t>(now - me.last_time);
    const std::uint32_t dt =
        (us < 0 ? 0U - static_cast<std::uint32_t>(us) : static_cast<std::uint32_t>(us)) / 1000;
    me.last_time = now;
    me.total_ms += dt;
    if (p_own != nullptr)
        *p_own += dt;
    return dt;
}

void begin_time()
{
    me.state_ms = 0;
    me.last_time = tmr_get();
}

int charger_gone()
{
    chmon_log("Charger disconnected.");
    chmon_shutdown();
    return 0;
}

int target_mah()
{
    return static_cast<int>(cmcfg.target_percent * cmcfg.capacity_mah / 100);
}

// ---- idle

int idle_tick()
{
    int connected = 0;
    if (cmcfg.stay_with_usb == 0 && usb_get(USB_GET_CONNECTED, &connected) != 0 && connected != 0) {
        me.running = false;
        chmon_log("Terminating charging monitor.");
    }
    return 0;
}

bool battery_is_valid()
{
    int type;
    return battery_read_type(&type) != 0 && (type == 1 || type == 2);
}

int idle_by_voltage()
{
    const int mv = chmon_read_voltage().mv;
    if (mv <= static_cast<int>(cmcfg.max_mv))
        return go(me.charging);
    chmon_log("Voltage (%d mV) too high for charging.", mv);
    me.message = "Start voltage not low enough";
    return go(me.done);
}

int idle_by_capacity()
{
    const int percent = chmon_read().percent;
    if (cmcfg.allow_discharge != 0 && percent > cmcfg.target_percent + cmcfg.margin_high_percent) {
        chmon_log("Capacity (%d) too high,need discharging.", percent);
        me.message = "discharging now";
        return go(me.discharging);
    }
    if (percent > cmcfg.target_percent) {
        chmon_log("Capacity (%d) too high for charging.", percent);
        me.message = "Start capacity not low enough";
        return go(me.done);
    }
    return go(me.charging);
}

constexpr const char* charger_texts[] = {
    "No charger connected.",
    "USB connected (no charging).",
    "USB Wall charger connected.",
    "Simple charger connected.",
};

int idle_change()
{
    if (me.charger >= 0 && me.charger < static_cast<int>(std::size(charger_texts)))
        chmon_log("%s", charger_texts[me.charger]);
    if (me.charger != CHARGER_WALL && me.charger != CHARGER_SIMPLE)
        return 0;
    chmon_log("Charger connected.");
    begin_time();
    if (!battery_is_valid())
        return fail("No valid battery detected");
    return cmcfg.voltage_mode != 0 ? idle_by_voltage() : idle_by_capacity();
}

int idle_hnd(fsm*, const fsm_event* p_evt)
{
    switch (fsm_evt_get(p_evt)) {
    case FSM_MSG_ENTRY:
        me.charger = CHARGER_UNKNOWN; // so that the first tick reports a change
        return 0;
    case CHMON_EVT_TICK:
        return idle_tick();
    case CHMON_EVT_CHANGE:
        return idle_change();
    default:
        return 0;
    }
}

// ---- charging

int charging_entry()
{
    if (cmcfg.voltage_mode != 0) {
        chmon_log("Starting voltage (%dmV).", chmon_read_voltage().mv);
    } else {
        const int percent = chmon_median_percent();
        const std::uint32_t mah = static_cast<std::uint32_t>(percent) * cmcfg.capacity_mah / 100;
        me.charge_uah = mah * 1000;
        chmon_log("Starting capacity (%d%%, %umAh).", percent, mah);
    }
    chmon_log("Starting charging at %umA", chmon_start_charger());
    chmon_led_start();
    me.charge_ms = 0;
    begin_time();
    autopoff_stop();
    return 0;
}

int charging_exit()
{
    if (charge_set_mode(CHARGE_OFF) == 0)
        chmon_log("charge_set_mode failed.");
    chmon_led_end();
    return 0;
}

int charging_by_voltage()
{
    if (me.charge_ms >= cmcfg.charge_time_limit_ms)
        return fail("Charging time limit reached");
    const int mv = chmon_read_voltage().mv;
    if (mv < static_cast<int>(cmcfg.max_mv))
        return 0;
    chmon_log("Voltage reached limit, charging done.");
    chmon_log("Read voltage %dmV, Max voltage %dmV", mv, static_cast<int>(cmcfg.max_mv));
    return go(me.done);
}

// The charge is counted from the current: a voltage under charge tells nothing of the cell at rest.
int count_charge(const chmon_reading& now, std::uint32_t dt)
{
    if (now.ma > 0)
        me.charge_uah += static_cast<std::uint32_t>(static_cast<std::uint64_t>(dt) *
                                                    static_cast<std::uint32_t>(now.ma) / MA_MS_PER_UAH);
    const int percent =
        cmcfg.capacity_mah != 0 ? static_cast<int>(me.charge_uah / cmcfg.capacity_mah / 10) : 0;
    chmon_log("%d%%, %dmV, %dmA, %umAh/%dmAh", percent, now.mv, now.ma, me.charge_uah / 1000, target_mah());
    return percent;
}

// The charger was switched on and hasn't taken over.
int retry()
{
    if (me.retries >= MOST_RETRIES)
        return fail("Charging did not start");
    charge_set_mode(CHARGE_OFF);
    chmon_start_charger();
    me.retries++;
    chmon_log("Start charging retry %d", me.retries);
    return 0;
}

void log_time_left(int ma)
{
    const std::int64_t missing_mah = target_mah() - static_cast<std::int64_t>(me.charge_uah / 1000);
    const int seconds = static_cast<int>(missing_mah * SECONDS_PER_HOUR / ma);
    chmon_log("Estimated time left %dh:%dm:%ds", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

int charging_by_capacity(std::uint32_t dt)
{
    const chmon_reading now = chmon_read();
    const int percent = count_charge(now, dt);
    if (cmcfg.allow_discharge != 0) {
        if (me.charge_ms >= cmcfg.min_charge_time_ms &&
            percent >= cmcfg.target_percent - cmcfg.margin_low_percent)
            return go(me.discharging);
    } else if (percent >= cmcfg.target_percent) {
        chmon_log("Charging done.");
        return go(me.done);
    }
    if (me.charge_ms >= cmcfg.charge_time_limit_ms)
        return fail("Charging time limit reached");
    if (now.ma < 0)
        return retry();
    if (now.ma > 0) {
        log_time_left(now.ma);
        me.retries = 0;
    }
    return 0;
}

int charging_tick()
{
    chmon_toggle_led();
    int degrees;
    if (battery_read_temp(&degrees) == 0 || degrees > cmcfg.max_celsius)
        return fail("Battery temperature too high");
    const std::uint32_t dt = advance(&me.charge_ms);
    return cmcfg.voltage_mode != 0 ? charging_by_voltage() : charging_by_capacity(dt);
}

int charging_change()
{
    chmon_log("Charger disconnected.");
    charge_set_mode(CHARGE_OFF);
    chmon_shutdown();
    return 0;
}

int charging_hnd(fsm*, const fsm_event* p_evt)
{
    switch (fsm_evt_get(p_evt)) {
    case FSM_MSG_ENTRY:
        return charging_entry();
    case FSM_MSG_EXIT:
        return charging_exit();
    case CHMON_EVT_TICK:
        return charging_tick();
    case CHMON_EVT_CHANGE:
        return charging_change();
    default:
        return 0;
    }
}

// ---- discharging

int discharging_entry()
{
    chmon_show(BLACK, "");
    chmon_led_start();
    begin_time();
    chmon_backlight(cmcfg.backlight_level);
    chmon_log("Entering discharge state");
    autopoff_stop();
    return 0;
}

int display_exit()
{
    chmon_backlight(0);
    me.message = "";
    return 0;
}

int discharging_exit()
{
    display_exit();
    chmon_led_end();
    return 0;
}

chmon_reading read_and_log()
{
    const chmon_reading now = chmon_read();
    chmon_log("%d%%, %dmV, %dmA", now.percent, now.mv, now.ma);
    return now;
}

int discharging_tick()
{
    advance(&me.state_ms);
    chmon_toggle_led();
    const chmon_reading now = read_and_log();
    if (me.state_ms <= cmcfg.stable_time_ms) {
        chmon_log("waiting for voltage and current stable.");
        return 0;
    }
    me.state_ms = 0;
    chmon_log("enough time have passed for stable voltage and current.");
    if (!now.valid || now.percent > cmcfg.target_percent + cmcfg.margin_high_percent)
        return 0;
    if (now.percent < cmcfg.recharge_percent)
        return go(me.charging);
    chmon_log("Discharging done.");
    return go(me.done);
}

int discharging_hnd(fsm*, const fsm_event* p_evt)
{
    switch (fsm_evt_get(p_evt)) {
    case FSM_MSG_ENTRY:
        return discharging_entry();
    case FSM_MSG_EXIT:
        return discharging_exit();
    case CHMON_EVT_TICK:
        return discharging_tick();
    case CHMON_EVT_CHANGE:
        return charger_gone();
    default:
        return 0;
    }
}

// ---- done and error

// True when the battery has surely sunk so far that it must be charged again.
bool read_and_judge()
{
    if (cmcfg.voltage_mode == 0) {
        const chmon_reading now = read_and_log();
        return now.valid && now.percent < cmcfg.recharge_percent;
    }
    const chmon_reading now = chmon_read_voltage();
    chmon_log("%dmV", now.mv);
    return now.valid && now.mv < static_cast<int>(cmcfg.recharge_mv);
}

int done_entry()
{
    chmon_show(GREEN, me.message);
    chmon_backlight(cmcfg.backlight_level);
    begin_time();
    chmon_log("Entering done state");
    return 0;
}

int done_tick()
{
    advance(&me.state_ms);
    const bool low = read_and_judge();
    if (me.state_ms < cmcfg.done_check_period_ms)
        return 0;
    chmon_log("check if capacity keeps higher than recharge_cap.");
    if (low)
        return go(me.charging);
    me.state_ms = 0;
    return 0;
}

int done_hnd(fsm*, const fsm_event* p_evt)
{
    switch (fsm_evt_get(p_evt)) {
    case FSM_MSG_ENTRY:
        return done_entry();
    case FSM_MSG_EXIT:
        return display_exit();
    case CHMON_EVT_TICK:
        return done_tick();
    case CHMON_EVT_CHANGE:
        return charger_gone();
    default:
        return 0;
    }
}

int error_entry()
{
    chmon_log("Error state: %s.", me.message);
    chmon_show(RED, me.message);
    chmon_backlight(cmcfg.backlight_level);
    return 0;
}

int error_tick()
{
    advance(nullptr);
    read_and_judge();
    return 0;
}

int error_hnd(fsm*, const fsm_event* p_evt)
{
    switch (fsm_evt_get(p_evt)) {
    case FSM_MSG_ENTRY:
        return error_entry();
    case FSM_MSG_EXIT:
        return display_exit();
    case CHMON_EVT_TICK:
        return error_tick();
    case CHMON_EVT_CHANGE:
        return charger_gone();
    default:
        return 0;
    }
}

} // namespace

void chmon_states_init()
{
    fsm_ctor(&me.machine, "chargemon");
    fsm_state_ctor(&me.idle, "idle", idle_hnd);
    fsm_state_ctor(&me.charging, "charging", charging_hnd);
    fsm_state_ctor(&me.discharging, "discharging", discharging_hnd);
    fsm_state_ctor(&me.done, "done", done_hnd);
    fsm_state_ctor(&me.error, "error", error_hnd);
}
