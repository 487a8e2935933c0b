#include "f_poff/f_poff.h"

#include <algorithm>
#include <cstdint>

#include "cfg/cfg.h"
#include "dcp/dcp.h"
#include "plat/plat.h"
#include "tmr/tmr.h"
#include "usb/usb.h"

namespace {

constexpr std::uint32_t GOING_DOWN_S = 60;

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

void tmr_cb_poff(tmr_link*, std::uint32_t)
{
    power_off();
}

void usb_cb_poff(unsigned)
{
    power_off();
}

// The newest time counts. What is longer than the timers can wait, 71 minutes, is as long as they can.
void power_off_after(std::uint32_t ms)
{
    const std::uint64_t us = std::min<std::uint64_t>(std::uint64_t{ms} * 1000, UINT32_MAX);
    tmr_cb_rm(&tmr_poff);
    tmr_cb_add(&tmr_poff, tmr_cb_poff, static_cast<std::uint32_t>(us));
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
