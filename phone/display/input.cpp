#include "display/input.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <string>
#include <unistd.h>

#include "core/clock.h"
#include "core/control.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr unsigned most_devices = 16;
constexpr int reader_bytes = 4096; // 256 events; what comes on top of them is lost
constexpr std::size_t event_size = 16;
constexpr std::int64_t highest_code = 0xFFFF;

// _IOC('E'): the types of events that a device has, and the state of an axis.
constexpr unsigned long request_types = 0x80044520;
constexpr unsigned long request_axis = 0x80144540; // to 0x8014457F
constexpr unsigned long axes = 0x40;

std::array<input_device*, most_devices> devices;

// event0, the keys of the case: power, volume up and down, camera and its first stage.
input_device case_keys{.types = 1u << ev_syn | 1u << ev_key};
const std::set<std::int64_t> case_codes = {116, 115, 114, 212, 528};
// event1, a node for whatever else a test wants to press.
input_device test_keys{.types = 1u << ev_syn | 1u << ev_key};

input_device& device_of(std::string_view path)
{
    constexpr std::string_view prefix = "/dev/input/event";
    return *devices[static_cast<std::size_t>(*number(path.substr(prefix.size())))];
}

bool input_present(std::string_view path)
{
    input_device& device = device_of(path);
    const std::lock_guard lock(device.mutex);
    return device.present;
}

int input_open(open_file& file, int flags)
{
    input_device& device = device_of(file.path);
    const std::lock_guard lock(device.mutex);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return -1;
    fcntl(ends[0], F_SETFL, flags & O_NONBLOCK);
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    fcntl(ends[1], F_SETPIPE_SZ, reader_bytes);
    auto reader = std::make_shared<input_reader>();
    reader->write_end = ends[1];
    std::erase_if(device.readers, [](const auto& weak) { return weak.expired(); });
    device.readers.push_back(reader);
    file.data = std::move(reader);
    return ends[0];
}

ssize_t input_read(open_file& file, void* buf, std::size_t size)
{
    if (size < event_size) {
        errno = EINVAL;
        return -1;
    }
    const ssize_t n = read(file.fd, buf, size / event_size * event_size);
    if (n > 0)
        static_cast<input_reader*>(file.data.get())->waiting -= n;
    return n;
}

bool input_readable(open_file& file)
{
    return static_cast<const input_reader*>(file.data.get())->waiting > 0;
}

int tell_axis(input_device& device, int axis, void* arg)
{
    const auto max = device.abs_max.find(axis);
    if (max == device.abs_max.end()) {
        errno = EINVAL;
        return -1;
    }
    // value, minimum, maximum, fuzz, flat
    const std::int32_t info[5] = {device.abs[axis], 0, max->second, 0, 0};
    std::memcpy(arg, info, sizeof info);
    return 0;
}

int input_ioctl(open_file& file, unsigned long request, void* arg)
{
    input_device& device = device_of(file.path);
    const std::lock_guard lock(device.mutex);
    if (request == request_types) {
        std::memcpy(arg, &device.types, sizeof device.types);
        return sizeof device.types;
    }
    if (request >= request_axis && request < request_axis + axes)
        return tell_axis(device, static_cast<int>(request - request_axis), arg);
    strange("ioctl " + file.path + " request " + std::to_string(request));
    errno = EINVAL;
    return -1;
}

constexpr node input_node = {.present = input_present,
                             .open = input_open,
                             .read = input_read,
                             .ioctl = input_ioctl,
                             .readable = input_readable};

void put(std::uint8_t* p, std::uint32_t value, std::size_t size)
{
    std::memcpy(p, &value, size);
}

void send_locked(input_device& device, int type, int code, std::int32_t value)
{
    std::uint8_t event[event_size];
    const nanoseconds now = clock_now(CLOCK_REALTIME);
    put(event, static_cast<std::uint32_t>(now / 1'000'000'000), 4);
    put(event + 4, static_cast<std::uint32_t>(now % 1'000'000'000 / 1000), 4);
    put(event + 8, static_cast<std::uint32_t>(type), 2);
    put(event + 10, static_cast<std::uint32_t>(code), 2);
    put(event + 12, static_cast<std::uint32_t>(value), 4);
    for (const auto& weak : device.readers)
        if (const auto reader = weak.lock())
            if (write(reader->write_end, event, sizeof event) == sizeof event)
                reader->waiting += sizeof event;
}

void report_key(input_device& device, int code, std::int32_t value)
{
    input_report(device, ev_key, code, value);
    input_report(device, ev_syn, 0, 0);
}

std::string word_key(request& rq)
{
    const auto code = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (rq.args.size() != 2 || !code || *code < 1 || *code > highest_code)
        return "a key code from 1 to 65535, and down, repeat, up or tap are wanted";
    input_device& device = case_codes.contains(*code) ? case_keys : test_keys;
    const int key = static_cast<int>(*code);
    const std::string& what = rq.args[1];
    if (what == "down" || what == "tap")
        report_key(device, key, 1);
    if (what == "repeat")
        report_key(device, key, 2);
    if (what == "up" || what == "tap")
        report_key(device, key, 0);
    const bool known = what == "down" || what == "tap" || what == "repeat" || what == "up";
    return known ? "" : "down, repeat, up or tap is wanted, not \"" + what + "\"";
}

} // namespace

input_reader::~input_reader()
{
    close(write_end);
}

void input_device_add(unsigned number, input_device* p_device)
{
    devices[number] = p_device;
    node_add("/dev/input/event" + std::to_string(number), &input_node);
}

void input_report(input_device& device, int type, int code, std::int32_t value)
{
    const std::lock_guard lock(device.mutex);
    if (type == ev_key) {
        std::int32_t& state = device.keys[code];
        if (value == 2 ? state == 0 : state == value)
            return;
        state = value == 2 ? 1 : value;
    } else if (type == ev_abs) {
        const auto [at, is_new] = device.abs.try_emplace(code, 0);
        if (at->second == value)
            return;
        at->second = value;
    }
    send_locked(device, type, code, value);
}

void input_attach()
{
    for (unsigned i = 0; i < most_devices; i++)
        path_optional("/dev/input/event" + std::to_string(i));
    input_device_add(0, &case_keys);
    input_device_add(1, &test_keys);
    word_add("key", "CODE down|repeat|up|tap", "a key, by its Linux code; 116 is the power key", word_key);
}

} // namespace phone
