// The touch panel: starts a device, polls it for events while somebody wants them, and passes self tests,
// firmware download and identity to the drivers. Several drivers may each supply some of the operations. One
// event callback for all; it comes on the main loop. Not for what an event means: that is the caller's.
#pragma once

#include <cstdint>

#include "slnk/slnk.h"

// Firmware file of a module id (chip id << 16 | configuration id); a null name ends a list.
struct touch_modid {
    std::uint32_t id;
    const char* file;
};

constexpr std::uint32_t TOUCH_FW_NONE = 0; // no download
constexpr std::uint32_t TOUCH_FW_IOCTL = 2;
constexpr std::uint32_t TOUCH_FW_COMMAND = 3;

// A device: static storage of the board module. Texts that don't apply are null.
struct touch_config {
    slnk link;
    std::uint32_t id; // device number
    const char* ctrl_path;
    const char* name;
    const char* module;   // kernel module, from /system/modules/
    const char* load_cmd; // a shell command in its place
    std::uint32_t loaded;
    const touch_modid* modid_info;
    std::uint32_t fw_method;
    const char* fw_cmd;
    const char* fw_dir;
};

struct touch_event {
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t x2; // the first pair again
    std::uint32_t y2;
    std::uint32_t value; // of the kernel's event
    std::uint32_t code;
};

struct touch_hwinfo {
    std::uint8_t vendor;
    std::uint16_t chip_id;
    std::uint16_t config_id;
    std::uint32_t fw_version;
};

struct touch_selftest_rec {
    std::uint32_t kind; // 0 to 7
    std::uint32_t result[3];
};

// A test mode. `buffer` has room for `size` bytes of text.
struct touch_test_mode_rec {
    std::uint32_t result;
    std::uint32_t mode;
    std::uint32_t action;
    std::uint32_t min;
    std::uint32_t max;
    std::uint32_t unused; // stays 0
    std::uintptr_t buffer;
    std::uint32_t size;
    std::uint32_t iterations;
};

// What touch_poll looks for.
constexpr int TOUCH_POLL_TAP = 0;
constexpr int TOUCH_POLL_TRACE = 1;
constexpr int TOUCH_POLL_PRESS_RELEASE = 2;

// All give 1 for success and 0 for failure.
struct touch_co {
    int (*start)(slnk* p_list, std::uint32_t id);
    int (*stop)();
    int (*start_evt_hnd)(int mode);
    int (*stop_evt_hnd)();
    int (*poll)(int mode, touch_event* p_event); // 1 when there was an event
    int (*selftest)(touch_selftest_rec* p_rec);
    int (*fmdn)(const char* path); // null: the file that fits the device
    int (*fmid)(touch_hwinfo* p_info);
    int (*test_mode)(touch_test_mode_rec* p_rec);
    int (*test_mode_secondary)(touch_test_mode_rec* p_rec);
};

constexpr std::uint32_t TOUCH_FLAG_POLLED = 1; // otherwise the driver reports events by itself

using touch_evt_cb = void (*)(const touch_event* p_event);

void touch_init();

// Takes over the operations that `p_co` has, and the flags.
void touch_co_attach(const touch_co* p_co, std::uint32_t flags);

void touch_add_cfg(touch_config* p_cfg);

// Selects device 1 or 2; another number changes nothing.
void touch_select(std::uint32_t n);

int touch_start();
int touch_stop();

// Sets the callback, which must be one; gives the former one.
touch_evt_cb touch_evt_attach(touch_evt_cb cb);

// A driver that isn't polled reports an event.
void touch_evt_report(const touch_event* p_event);

// Starts and ends the reports, in a poll mode: 1, or 0 when they run already.
int touch_start_evt_hnd(int mode);
int touch_stop_evt_hnd();

int touch_poll(int mode, touch_event* p_event);
int touch_selftest(touch_selftest_rec* p_rec);
int touch_fmdn(const char* path);
int touch_fmid(touch_hwinfo* p_info);
int touch_test_mode(touch_test_mode_rec* p_rec);
int touch_test_mode_secondary(touch_test_mode_rec* p_rec);
