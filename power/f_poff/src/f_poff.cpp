#include "f_poff/f_poff.h"

#include <algorithm>
#include <cstdint>
#include <mutex>

#include "cfg/cfg.h"
#include "dcp/dcp.h"
#include "powerdown/powerdown.h"
#include "tmr/tmr.h"
#include "usb/usb.h"

namespace {

constexpr std::uint64_t EARLY_US = 1000; // a timer among others comes up to a microsecond early

std::mutex poff_mutex;      // guards what follows: the timer comes on a thread of its own
std::uint64_t poff_time_us; // of tmr_get64
tmr_link tmr_poff;

usb_listener usb_poff = {{nullptr}, USB_EVT_DISCONNECTED, nullptr};

// Doesn't come back, unless the phone refuses to go: the station is told so then.
int power_off_now(int id)
{
    powerdown_wait(powerdown_off());
    return dcp_answer(id, "poff", " ", DCP_ERROR);
}

void tmr_cb_poff(tmr_link*, std::uint32_t);

// The timers can wait for 71 minutes: a longer time is waited for in several rounds.
void arm_locked(std::uint64_t left_us)
{
    tmr_cb_rm(&tmr_poff);
    tmr_cb_add(&tmr_poff, tmr_cb_poff,
               static_cast<std::uint32_t>(std::min<std::uint64_t>(left_us, UINT32_MAX)));
}

void tmr_cb_poff(tmr_link*, std::uint32_t)
{
    std::unique_lock lock(poff_mutex);
    const std::uint64_t now = tmr_get64();
    if (now + EARLY_US < poff_time_us)
        return arm_locked(poff_time_us - now);
    lock.unlock();
    powerdown_off();
}

void usb_cb_poff(unsigned)
{
    powerdown_off();
}

// The newest time counts.
void power_off_after(std::uint32_t ms)
{
    const std::lock_guard lock(poff_mutex);
    const std::uint64_t us = std::uint64_t{ms} * 1000;
    poff_time_us = tmr_get64() + us;
    arm_locked(us);
}

void power_off_without_cable()
{
    usb_evt_detach(&usb_poff);
    usb_evt_attach(&usb_poff, usb_cb_poff);
}

int do_poff(int id, int action, int argc, const dcp_word* argv)
{
    if (argc > 1)
        return dcp_answer(id, "poff", " ", DCP_SYNTAX);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "poff", "Power off system", DCP_OK);
    if (argc == 0)
        return power_off_now(id);
    const std::uint32_t wait_ms = dcp_uint(argv[0]);
    if (wait_ms != 0 && cfg_get_int("f_poff", "param1_delay", 0) != 0)
        power_off_after(wait_ms);
    else
        power_off_without_cable();
    return dcp_answer(id, "poff", " ", DCP_OK);
}

constexpr dcp_cmd poff_cmd_tab[] = {
    {"poff", "W", "%v", "POFF(waittime)", do_poff, DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link poff_cmd_obj;

} // namespace

void f_poff_init()
{
    dcp_cmd_add(poff_cmd_tab, &poff_cmd_obj);
}
