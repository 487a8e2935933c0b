#include "f_poff/f_poff.h"

#include <algorithm>
#include <cstdint>
#include <mutex>

#include "cfg/cfg.h"
#include "dcp/dcp.h"
#include "plat/plat.h"
#include "tmr/tmr.h"
#include "usb/usb.h"

namespace {

constexpr std::uint32_t GOING_DOWN_S = 60;
constexpr std::uint64_t EARLY_US =
    500; // a timer comes early by fractions of a microsecond for each change of the list

std::mutex poff_mutex;      // guards what follows: the timer comes on a thread of its own
std::uint64_t poff_time_us; // of tmr_get64
tmr_link tmr_poff;

usb_listener usb_poff = {{nullptr}, USB_EVT_DISCONNECTED, nullptr};

// 0 when the phone is on its way down.
int power_off()
{
    plat_system("sync");
    return plat_system("reboot -p");
}

// Doesn't come back, unless the phone refuses to go: the station is told so then.
int power_off_now(int id)
{
    if (power_off() == 0)
        for (std::uint32_t s = 0; s < GOING_DOWN_S; s++)
            tmr_msleep(1000);
    return dcp_answer(id, "poff", " ", DCP_ERROR);
}

void tmr_cb_poff(tmr_link*, std::uint32_t);

// The timers can wait for 71 minutes: a longer time is waited for in several rounds. False when it has come.
bool wait_on_locked()
{
    const std::uint64_t now = tmr_get64();
    if (now + EARLY_US >= poff_time_us)
        return false;
    const std::uint64_t left = std::min<std::uint64_t>(poff_time_us - now, UINT32_MAX);
    tmr_cb_rm(&tmr_poff);
    tmr_cb_add(&tmr_poff, tmr_cb_poff, static_cast<std::uint32_t>(left));
    return true;
}

void tmr_cb_poff(tmr_link*, std::uint32_t)
{
    std::unique_lock lock(poff_mutex);
    if (wait_on_locked())
        return;
    lock.unlock();
    power_off();
}

void usb_cb_poff(unsigned)
{
    power_off();
}

// The newest time counts.
void power_off_after(std::uint32_t ms)
{
    const std::lock_guard lock(poff_mutex);
    poff_time_us = tmr_get64() + std::uint64_t{ms} * 1000;
    wait_on_locked();
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
