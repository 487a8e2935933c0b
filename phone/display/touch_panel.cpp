#include "display/touch_panel.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <sys/mman.h>

#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "core/watch.h"
#include "display/framebuffer.h"
#include "display/input.h"
#include "runtime/insmod.h"

namespace phone {

namespace {

constexpr const char* ctrl_path = "/dev/max1187x_ctrl";
constexpr const char* firmware_dir = "/system/etc/firmware/";

// Requests of the panel driver, _IOC('t').
constexpr unsigned long request_info = 0x800C740C;
constexpr unsigned long request_download = 0x4004740D;
constexpr unsigned long request_measure = 0xC004740E;

struct self_test {
    unsigned long request;
    std::array<std::uint32_t, 3> healthy;
};

// By kind. The driver numbers its requests in another order.
// clang-format off
constexpr self_test self_tests[] = {
    { 0x800C7405, { 0x10, 0x110, 0x210 } },
    { 0x800C7407, { 0x11, 0x111, 0x211 } },
    { 0x800C7406, { 0x12, 0x112, 0x212 } },
    { 0x800C7408, { 0x13, 0x113, 0x213 } },
    { 0x800C7409, { 0x14, 0x114, 0x214 } },
    { 0x800C740A, { 0x15, 0x115, 0x215 } },
    { 0x800C740B, { 0x16, 0x116, 0x216 } },
    { 0x800C740F, { 0x17, 0x117, 0x217 } },
};
// clang-format on
constexpr std::size_t kinds = std::size(self_tests);

// The record of a measurement. Limits of 0 and 0 are no limits.
struct measurement {
    std::uint32_t result; // 0 within the limits, 1 outside
    std::uint32_t mode;
    std::uint32_t action;
    std::uint32_t min; // the lower limit, then the least value
    std::uint32_t max;
    std::uint32_t spare;
    std::uintptr_t buffer; // gets the values as text
    std::uint32_t size;
    std::uint32_t iterations;
};

constexpr std::uint32_t columns = 5;
constexpr std::uint32_t rows = 3;
// Modes come in two sets, the raw ones and the driver's own tests.
constexpr std::uint32_t raw_modes = 13;
constexpr std::uint32_t first_driver_mode = 100;
constexpr std::uint32_t driver_modes = 7;

input_device panel{
    .types = 1u << ev_syn | 1u << ev_key | 1u << ev_abs, .present = false, .abs_max = {{abs_pressure, 255}}};

std::mutex panel_mutex; // guards all below
bool loaded;
std::uint8_t vendor = 1;
std::uint16_t chip_id = 0x74;
std::uint16_t config_id = 0x0460;
std::uint32_t firmware = 0x00010203;
struct test_state {
    bool fails;
    std::optional<std::array<std::uint32_t, 3>> results;
};
std::array<test_state, kinds> test_states;

void load_module(const std::vector<std::string>&)
{
    {
        const std::lock_guard lock(panel_mutex);
        loaded = true;
    }
    const std::lock_guard lock(panel.mutex);
    panel.present = true;
}

int ctrl_error(int error)
{
    errno = error;
    return -1;
}

int run_self_test(std::size_t kind, void* arg)
{
    const test_state& state = test_states[kind];
    const auto results = state.results.value_or(self_tests[kind].healthy);
    std::memcpy(arg, results.data(), sizeof results);
    return state.fails ? ctrl_error(EIO) : 0;
}

int tell_info(void* arg)
{
    std::uint8_t info[12] = {};
    info[0] = vendor;
    std::memcpy(info + 2, &chip_id, 2);
    std::memcpy(info + 4, &config_id, 2);
    std::memcpy(info + 8, &firmware, 4);
    std::memcpy(arg, info, sizeof info);
    return 0;
}

// A firmware file begins with its version, a little-endian word.
int download(const char* name)
{
    std::string content;
    if (!file_read(std::string(firmware_dir) + name, content))
        return ctrl_error(ENOENT);
    if (content.size() < sizeof firmware)
        return ctrl_error(EINVAL);
    std::memcpy(&firmware, content.data(), sizeof firmware);
    return 0;
}

// Cell capacities, in the controller's units: each mode and each cell gives another one.
int measure(void* arg)
{
    measurement m;
    std::memcpy(&m, arg, sizeof m);
    const bool driver = m.mode >= first_driver_mode && m.mode < first_driver_mode + driver_modes;
    if ((m.mode >= raw_modes && !driver) || m.buffer == 0)
        return ctrl_error(EINVAL);
    const std::uint32_t first = 3000 + m.mode * 20;
    std::string text;
    for (std::uint32_t i = 0; i < columns * rows; i++)
        text += std::to_string(first + i) + ((i + 1) % columns == 0 ? "\r\n" : ",");
    if (text.size() >= m.size)
        return ctrl_error(ENOSPC);
    const std::uint32_t last = first + columns * rows - 1;
    const bool limits = m.min != 0 || m.max != 0;
    m.result = limits && (first < m.min || last > m.max) ? 1 : 0;
    m.min = first;
    m.max = last;
    m.size = static_cast<std::uint32_t>(text.size());
    std::memcpy(reinterpret_cast<void*>(m.buffer), text.c_str(), text.size() + 1);
    std::memcpy(arg, &m, sizeof m);
    return 0;
}

int ctrl_open(open_file&, int)
{
    const std::lock_guard lock(panel_mutex);
    return loaded ? memfd_create("ctrl", MFD_CLOEXEC) : ctrl_error(ENOENT);
}

int ctrl_ioctl(open_file& file, unsigned long request, void* arg)
{
    const std::lock_guard lock(panel_mutex);
    for (std::size_t kind = 0; kind < kinds; kind++)
        if (self_tests[kind].request == request)
            return run_self_test(kind, arg);
    switch (request) {
    case request_info:
        return tell_info(arg);
    case request_download:
        return download(static_cast<const char*>(arg));
    case request_measure:
        return measure(arg);
    default:
        strange("ioctl " + file.path + " request " + std::to_string(request));
        return ctrl_error(ENOTTY);
    }
}

constexpr node ctrl_node = {.open = ctrl_open, .ioctl = ctrl_ioctl};

// A finger never presses twice with the same force.
std::int32_t next_pressure()
{
    static std::int32_t pressure = 60;
    pressure = pressure == 60 ? 63 : 60;
    return pressure;
}

void finger(std::int32_t x, std::int32_t y, bool down, bool changes)
{
    input_report(panel, ev_abs, abs_x, x);
    input_report(panel, ev_abs, abs_y, y);
    input_report(panel, ev_abs, abs_pressure, down ? next_pressure() : 0);
    if (changes)
        input_report(panel, ev_key, btn_touch, down ? 1 : 0);
    input_report(panel, ev_syn, 0, 0);
}

std::string word_touch(request& rq)
{
    const auto x = rq.args.size() == 3 ? number(rq.args[0]) : std::nullopt;
    const auto y = rq.args.size() == 3 ? number(rq.args[1]) : std::nullopt;
    if (!x || !y || *x < 0 || *y < 0 || *x > panel.abs_max[abs_x] || *y > panel.abs_max[abs_y])
        return "a place on the panel and down, move, up or tap are wanted; the last pixel is " +
               std::to_string(panel.abs_max[abs_x]) + " " + std::to_string(panel.abs_max[abs_y]);
    const auto px = static_cast<std::int32_t>(*x);
    const auto py = static_cast<std::int32_t>(*y);
    const std::string& what = rq.args[2];
    if (what == "down" || what == "tap")
        finger(px, py, true, true);
    if (what == "move")
        finger(px, py, true, false);
    if (what == "up" || what == "tap")
        finger(px, py, false, true);
    const bool known = what == "down" || what == "tap" || what == "move" || what == "up";
    return known ? "" : "down, move, up or tap is wanted, not \"" + what + "\"";
}

std::string word_touchtest(request& rq)
{
    const auto kind = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (!kind || *kind < 0 || *kind >= static_cast<std::int64_t>(kinds))
        return "a kind from 0 to 7, and three results, fail or ok are wanted";
    const std::lock_guard lock(panel_mutex);
    test_state& state = test_states[static_cast<std::size_t>(*kind)];
    if (rq.args.size() == 2 && (rq.args[1] == "ok" || rq.args[1] == "fail")) {
        state = {rq.args[1] == "fail", std::nullopt};
        return {};
    }
    std::array<std::uint32_t, 3> results{};
    for (std::size_t i = 0; i < results.size(); i++) {
        const auto value = rq.args.size() == 4 ? number(rq.args[i + 1]) : std::nullopt;
        if (!value || *value < 0 || *value > UINT32_MAX)
            return "three results, fail or ok are wanted";
        results[i] = static_cast<std::uint32_t>(*value);
    }
    state = {false, results};
    return {};
}

std::string conf_touch(const std::vector<std::string>& args)
{
    constexpr std::int64_t most[] = {0xFF, 0xFFFF, 0xFFFF, 0xFFFFFFFF};
    std::int64_t values[4];
    for (std::size_t i = 0; i < 4; i++) {
        const auto value = args.size() == 4 ? number(args[i]) : std::nullopt;
        if (!value || *value < 0 || *value > most[i])
            return "touch wants vendor, chip id, configuration id and firmware";
        values[i] = *value;
    }
    vendor = static_cast<std::uint8_t>(values[0]);
    chip_id = static_cast<std::uint16_t>(values[1]);
    config_id = static_cast<std::uint16_t>(values[2]);
    firmware = static_cast<std::uint32_t>(values[3]);
    return {};
}

} // namespace

void touch_panel_attach()
{
    module_add("max1187x.ko", load_module);
    node_add(ctrl_path, &ctrl_node);
    input_device_add(2, &panel);
    word_add("touch", "X Y down|move|up|tap", "a finger on the panel, in panel pixels", word_touch);
    word_add("touchtest", "KIND R1 R2 R3|fail|ok", "what the touch controller's self test gives",
             word_touchtest);
    conf_add("touch", conf_touch);
}

// The glass lies on the whole panel.
void touch_panel_start()
{
    const auto [width, height] = framebuffer_panel_size();
    const std::lock_guard lock(panel.mutex);
    panel.abs_max[abs_x] = static_cast<std::int32_t>(width) - 1;
    panel.abs_max[abs_y] = static_cast<std::int32_t>(height) - 1;
}

void touch_panel_seed()
{
    home_seed("/system/modules/max1187x.ko", "the virtual phone's touch driver\n");
    home_seed(std::string(firmware_dir) + "touch_chip_id_0x74_config_id_0x0460.bin",
              std::string_view("\x04\x02\x01\x00max1187x", 12));
}

} // namespace phone
