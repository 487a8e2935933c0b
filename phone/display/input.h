// Input devices as the kernel offers them, /dev/input/event0 and up: each reader of a node gets every event.
// The phone's own keys are event0, a test node for all other codes is event1, the touch panel (touch_panel.h)
// is event2 once its kernel module is loaded. An event has 16 bytes, as on any 32-bit kernel.
#pragma once

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "core/files.h"

namespace phone {

// What lies behind the descriptors of one reader.
struct input_reader {
    int write_end = -1;
    std::atomic<long> waiting = 0; // bytes that can be read
    ~input_reader();
};

struct input_device {
    std::uint32_t types; // a bit for each type of event
    std::mutex mutex{};  // guards all below
    bool present = true;
    std::map<int, std::int32_t> abs_max{};
    std::map<int, std::int32_t> abs{};
    std::map<int, std::int32_t> keys{};
    std::vector<std::weak_ptr<input_reader>> readers{};
};

// Types and codes of the kernel's input layer.
constexpr int ev_syn = 0;
constexpr int ev_key = 1;
constexpr int ev_abs = 3;
constexpr int abs_x = 0;
constexpr int abs_y = 1;
constexpr int abs_pressure = 24;
constexpr int btn_touch = 330;

// The node /dev/input/event<number>; the record must live as long as the process.
void input_device_add(unsigned number, input_device* p_device);

// Reports an event to all readers. As in the kernel, an axis or key that doesn't change is no event, but for
// the value 2 (repeat) of a key that is down.
void input_report(input_device& device, int type, int code, std::int32_t value);

// Keys of the phone, the word `key`.
void input_attach();

} // namespace phone
