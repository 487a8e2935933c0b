#include "touch_linux_v2/touch_linux.h"

#include <atomic>
#include <iterator>
#include <mutex>
#include <string>

#include "core/core.h"
#include "firmware.h"
#include "input_linux/input_linux.h"
#include "plat/plat.h"
#include "tmr/tmr.h"
#include "touch_v2/touch.h"

namespace {

constexpr int CTRL_RETRIES = 5;
constexpr std::uint32_t CTRL_RETRY_MS = 100;

constexpr std::uint32_t HAS_KEYS_AND_AXES = 1u << INPUT_KEY | 1u << INPUT_ABS;

// Requests of the panel driver.
constexpr unsigned long REQUEST_TEST_MODE = 0xC004740E;
constexpr unsigned long selftest_requests[] = {
    0x800C7405, 0x800C7407, 0x800C7406, 0x800C7408, 0x800C7409, 0x800C740A, 0x800C740B, 0x800C740F,
};
constexpr std::uint32_t ACTION_DRIVER_TEST = 6;
constexpr std::uint32_t DRIVER_TEST_MODES = 100; // where the driver counts them from

// Commands come from the main loop and from a menu; the device is opened and closed by either.
std::mutex touch_linux_mutex; // guards the two below
int device_fd = -1;
touch_config* active_cfg;

bool load_driver(touch_config* p_cfg)
{
    if (p_cfg->loaded != 0)
        return true;
    std::string line;
    if (p_cfg->module != nullptr)
        line = std::string("insmod /system/modules/") + p_cfg->module;
    else if (p_cfg->load_cmd != nullptr)
        line = p_cfg->load_cmd;
    if (!line.empty() && plat_system(line.c_str()) != 0)
        return false;
    p_cfg->loaded = 1;
    return true;
}

bool ctrl_comes_up(const char* path)
{
    for (int turn = 0;; turn++) {
        const int fd = plat_open(path, O_RDONLY | O_CLOEXEC);
        if (fd >= 0) {
            plat_close(fd);
            return true;
        }
        if (turn == CTRL_RETRIES)
            return false;
        tmr_msleep(CTRL_RETRY_MS);
    }
}

// A driver that is built into the kernel, or that another run of this program has loaded, can't be loaded
// again: what counts then is its node.
bool start_driver(touch_config* p_cfg)
{
    const bool loaded = load_driver(p_cfg);
    return p_cfg->ctrl_path != nullptr ? ctrl_comes_up(p_cfg->ctrl_path) : loaded;
}

// The first input device with keys and axes, left open; -1 when there is none.
int open_device()
{
    for (unsigned i = 0; i < INPUT_MOST_NODES; i++) {
        const int fd = input_open(i);
        if (fd < 0)
            return -1;
        std::uint32_t types;
        const bool told = input_types(fd, &types);
        if (told && (types & HAS_KEYS_AND_AXES) == HAS_KEYS_AND_AXES)
            return fd;
        plat_close(fd);
        if (!told)
            return -1;
    }
    return -1;
}

int touch_linux_start(slnk* p_list, std::uint32_t id)
{
    std::lock_guard lock(touch_linux_mutex);
    if (device_fd >= 0)
        return 1;
    touch_config* p_found = nullptr;
    for (slnk* p = slnk_next(p_list); p != nullptr && p_found == nullptr; p = slnk_next(p)) {
        auto* const p_cfg = reinterpret_cast<touch_config*>(p);
        if (p_cfg->id == id && start_driver(p_cfg))
            p_found = p_cfg;
    }
    if (p_found == nullptr)
        return 0;
    active_cfg = p_found;
    device_fd = open_device();
    return device_fd >= 0 ? 1 : 0;
}

int touch_linux_stop()
{
    std::lock_guard lock(touch_linux_mutex);
    if (device_fd >= 0)
        plat_close(device_fd);
    device_fd = -1;
    active_cfg = nullptr;
    return 1;
}

bool fits(const input_event16& event, int mode)
{
    switch (mode) {
    case TOUCH_POLL_TAP:
        return event.type == INPUT_KEY && event.code == INPUT_BTN_TOUCH && event.value == 1;
    case TOUCH_POLL_TRACE:
        return event.type == INPUT_ABS && event.code == INPUT_ABS_PRESSURE;
    case TOUCH_POLL_PRESS_RELEASE:
        return event.type == INPUT_KEY && event.code == INPUT_BTN_TOUCH;
    default:
        return false;
    }
}

int fill_event(const input_event16& event, touch_event* p_event)
{
    std::int32_t x;
    std::int32_t y;
    if (!input_axis(device_fd, INPUT_ABS_X, &x) || !input_axis(device_fd, INPUT_ABS_Y, &y))
        return 0;
    const auto px = static_cast<std::uint32_t>(x);
    const auto py = static_cast<std::uint32_t>(y);
    *p_event = {px, py, px, py, static_cast<std::uint32_t>(event.value), event.code};
    return 1;
}

int touch_linux_poll(int mode, touch_event* p_event)
{
    std::lock_guard lock(touch_linux_mutex);
    input_event16 event;
    while (device_fd >= 0 && input_read(device_fd, &event))
        if (fits(event, mode))
            return fill_event(event, p_event);
    return 0;
}

// The device in use, or null. What its control node does may take long: that is waited for without the lock.
const touch_config* active()
{
    std::lock_guard lock(touch_linux_mutex);
    return active_cfg;
}

int touch_linux_selftest(touch_selftest_rec* p_rec)
{
    const touch_config* const p_cfg = active();
    if (p_cfg == nullptr || p_rec->kind >= std::size(selftest_requests))
        return 0;
    return touch_linux_ctrl(p_cfg, selftest_requests[p_rec->kind], p_rec->result);
}

int touch_linux_fmid(touch_hwinfo* p_info)
{
    const touch_config* const p_cfg = active();
    return p_cfg != nullptr ? touch_linux_hwinfo(p_cfg, p_info) : 0;
}

int touch_linux_fmdn(const char* path)
{
    const touch_config* const p_cfg = active();
    return p_cfg != nullptr ? touch_linux_download(p_cfg, path) : 0;
}

int touch_linux_test_mode(touch_test_mode_rec* p_rec)
{
    touch_test_mode_rec own{};
    own.mode = p_rec->mode + (p_rec->action == ACTION_DRIVER_TEST ? DRIVER_TEST_MODES : 0);
    own.min = p_rec->min;
    own.max = p_rec->max;
    own.buffer = p_rec->buffer;
    own.size = p_rec->size;
    const touch_config* const p_cfg = active();
    const int done = p_cfg != nullptr ? touch_linux_ctrl(p_cfg, REQUEST_TEST_MODE, &own) : 0;
    p_rec->result = own.result;
    p_rec->min = own.min;
    p_rec->max = own.max;
    p_rec->buffer = own.buffer;
    p_rec->size = own.size;
    return done;
}

// Reports as a read client of the main loop, for a board that doesn't want the device polled.
core_rd_cb_client rd_client;
std::atomic<int> rd_mode;

void touch_fdevent(void*, void*)
{
    touch_event event{};
    if (touch_linux_poll(rd_mode, &event) != 0)
        touch_evt_report(&event);
}

int touch_linux_start_evt_hnd(int mode)
{
    std::lock_guard lock(touch_linux_mutex);
    if (device_fd < 0)
        return 0;
    rd_mode = mode;
    rd_client = {{}, device_fd, touch_fdevent, nullptr, nullptr};
    core_add_rd_cb_client(&rd_client);
    return 1;
}

int touch_linux_stop_evt_hnd()
{
    core_rm_rd_cb_client(&rd_client);
    return 1;
}

// clang-format off
constexpr touch_co touch_linux_co = {
    .start               = touch_linux_start,
    .stop                = touch_linux_stop,
    .start_evt_hnd       = touch_linux_start_evt_hnd,
    .stop_evt_hnd        = touch_linux_stop_evt_hnd,
    .poll                = touch_linux_poll,
    .selftest            = touch_linux_selftest,
    .fmdn                = touch_linux_fmdn,
    .fmid                = touch_linux_fmid,
    .test_mode           = touch_linux_test_mode,
    .test_mode_secondary = nullptr,
};
// clang-format on

} // namespace

void touch_linux_init()
{
    touch_co_attach(&touch_linux_co, TOUCH_FLAG_POLLED);
}
