#include "usb_linux/usb_linux.h"

#include "attr/attr.h"
#include "cfg/cfg.h"
#include "charge/charge.h"
#include "tmr/tmr.h"
#include "uevent/uevent.h"
#include "usb/usb.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <mutex>

namespace {

constexpr const char* DETECT_PATH = "/sys/devices/platform/msm_hsusb/gadget/detect";
constexpr std::size_t PARAM_ROOM = 65; // 64 characters
constexpr int STATE_FIELD = 3;         // of the gadget's uevent
constexpr std::uint32_t RECHECK_MS = 5;
constexpr std::uint32_t VBUS_CHECK_US = 100'000;
constexpr std::uint32_t DEFAULT_TIMEOUT_MS = 500;

// The index is the charger type.
constexpr const char* usb_type[] = {
    "INVALID_CHARGER",   "USB_SDP_CHARGER",      "USB_DCP_CHARGER",
    "USB_CDP_CHARGER",   "USB_ACA_A_CHARGER",    "USB_ACA_B_CHARGER",
    "USB_ACA_C_CHARGER", "USB_ACA_DOCK_CHARGER", "USB_PROPRIETARY_CHARGER",
};

usb_linux_config config = {
    "/sys/devices/platform/msm_hsusb/gadget/usb_state",
    "USB_STATE_CONFIGURED",
    "USB_STATE_DISCONNECTED",
    "/devices/virtual/android_usb/android0",
};

bool usb_state; // connected, as the listeners know it
bool usb_recheck_discon;

// The VBUS watch runs on the timer thread. It arms its own link again, so nobody else may while it runs.
std::mutex vbus_mutex;
std::uint32_t timeout_ms = DEFAULT_TIMEOUT_MS;
bool vbus_runs;
bool vbus_wanted; // asked for since its last round
tmr_link tmr_vbus_check;

int get_charger_type(int* p_val)
{
    char text[PARAM_ROOM];
    if (attr_read(DETECT_PATH, text, sizeof text) == ATTR_OK && std::sscanf(text, "%d", p_val) == 1)
        return 1;
    const char* path = cfg_get_str("chg_type", "chg_type_path", nullptr);
    if (!path || attr_read(path, text, sizeof text) != ATTR_OK)
        return 0;
    int found = -1;
    for (int type = 0; type < static_cast<int>(std::size(usb_type)); type++)
        if (std::strstr(text, usb_type[type]))
            found = type;
    if (found < 0)
        return 0;
    *p_val = found;
    return 1;
}

int usb_linux_get(int item, int* p_val)
{
    char text[PARAM_ROOM];
    switch (item) {
    case USB_GET_CHARGER_TYPE:
        return get_charger_type(p_val);
    case USB_GET_CONNECTED:
        if (attr_read(config.state_path, text, sizeof text) != ATTR_OK)
            return 0;
        *p_val = std::strstr(text, config.connected) != nullptr;
        return 1;
    default:
        return 0;
    }
}

void tmr_cb_vbus_check(tmr_link* p_link, std::uint32_t);

// Takes the watch over into its next round, as long as something is connected or it has been asked for anew.
void vbus_next(bool connected)
{
    const std::lock_guard lock(vbus_mutex);
    vbus_runs = connected || vbus_wanted;
    vbus_wanted = false;
    if (vbus_runs)
        tmr_cb_add(&tmr_vbus_check, tmr_cb_vbus_check, VBUS_CHECK_US);
}

// Feeds the cable from the phone for a while, and no longer.
void vbus_cycle()
{
    std::uint32_t ms;
    {
        const std::lock_guard lock(vbus_mutex);
        ms = timeout_ms;
    }
    charge_set_mode(CHARGE_HOST_POWER_ON);
    tmr_msleep(ms);
    charge_set_mode(CHARGE_HOST_POWER_OFF);
}

void tmr_cb_vbus_check(tmr_link*, std::uint32_t)
{
    int connected = 0;
    const bool known = usb_linux_get(USB_GET_CONNECTED, &connected);
    if (known && !connected)
        vbus_cycle();
    vbus_next(known && connected);
}

int vbus_watch(int wanted_ms)
{
    const std::lock_guard lock(vbus_mutex);
    timeout_ms = wanted_ms < 0 ? DEFAULT_TIMEOUT_MS : static_cast<std::uint32_t>(wanted_ms);
    vbus_wanted = true;
    if (!vbus_runs) {
        vbus_runs = true;
        vbus_wanted = false;
        tmr_cb_add(&tmr_vbus_check, tmr_cb_vbus_check, VBUS_CHECK_US);
    }
    return 1;
}

int usb_linux_set(int item, int val)
{
    switch (item) {
    case USB_SET_HOST_POWER_OFF:
        return charge_set_mode(CHARGE_HOST_POWER_OFF) == 1;
    case USB_SET_VBUS_WATCH:
        return vbus_watch(val);
    default:
        return 0;
    }
}

// A connection that was there at the start is often told as gone once, while the gadget comes up.
bool disconnect_stands()
{
    if (!usb_recheck_discon)
        return true;
    usb_recheck_discon = false;
    tmr_msleep(RECHECK_MS);
    int connected;
    return !usb_linux_get(USB_GET_CONNECTED, &connected) || !connected;
}

void usb_uevent_cb(int count, const char* const* fields)
{
    if (count <= STATE_FIELD)
        return;
    const char* state = fields[STATE_FIELD];
    if (std::strstr(state, config.connected) && !usb_state) {
        usb_evt(USB_EVT_CONNECTED);
        usb_state = true;
    } else if (std::strstr(state, config.disconnected) && usb_state && disconnect_stands()) {
        usb_evt(USB_EVT_DISCONNECTED);
        usb_state = false;
    }
}

uevent_client usb_uevent = {{nullptr}, usb_uevent_cb, nullptr};

int usb_linux_start()
{
    int connected;
    if (usb_linux_get(USB_GET_CONNECTED, &connected) && connected) {
        usb_evt(USB_EVT_CONNECTED);
        usb_state = true;
        usb_recheck_discon = true;
    }
    usb_uevent.match = config.uevent_path;
    uevent_reg(&usb_uevent);
    return 1;
}

constexpr usb_co usb_linux_co = {usb_linux_start, usb_linux_set, usb_linux_get};

void take(const char** p_word, const char* given)
{
    if (given)
        *p_word = given;
}

} // namespace

void usb_linux_init()
{
    usb_co_attach(&usb_linux_co);
}

void usb_linux_set_cfg(const usb_linux_config* p_cfg)
{
    take(&config.state_path, p_cfg->state_path);
    take(&config.connected, p_cfg->connected);
    take(&config.disconnected, p_cfg->disconnected);
    take(&config.uevent_path, p_cfg->uevent_path);
}
