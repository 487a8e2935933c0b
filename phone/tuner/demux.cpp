#include "tuner/demux.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <sys/eventfd.h>

#include "board/i2c_bus.h"
#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"
#include "tuner/mn88552.h"
#include "tuner/packets.h"

namespace phone {

namespace {

constexpr const char* path = "/dev/dvb/adapter0/demux0";
constexpr nanoseconds read_patience = 1'000'000'000;
constexpr unsigned long stop_request = 0x6F2A;
constexpr unsigned long event_request = 0x80506F3C;

// The requests that set it going, in their order. An argument is a number, or words behind a pointer.
struct setup_step {
    unsigned long request;
    std::size_t count; // of words; 0 for a plain number
    std::uint32_t words[7];
};

// clang-format off
constexpr setup_step setup_steps[] = {
    { 0x40046F31, 1, { 0 } },                               // source
    { 0x40046F3D, 1, { 0 } },
    { 0x00006F2D, 0, { 37600 } },                           // buffer
    { 0x40046F35, 1, { 0 } },
    { 0x401C6F2C, 7, { 0x2000, 0, 3, 20, 0, 18800, 0 } },   // filter
    { 0x400C6F41, 3, { 0, 0x2000, 0 } },
    { 0x00006F29, 0, { 0 } },                               // start
};
// clang-format on
constexpr std::size_t step_source = 0;
constexpr std::size_t step_buffer = 2;
constexpr std::size_t step_filter = 4;
constexpr std::size_t steps = std::size(setup_steps);

// One opening of the node.
struct user {
    int fd = -1;
    std::size_t step = 0; // the next request; `steps` while it runs
    std::uint32_t source = 0;
    std::uint32_t buffer = 0;
    std::uint32_t filter[7] = {};
    unsigned starts = 0;
    unsigned stops = 0;
    unsigned packets = 0;
    packet_source stream;
};

// What is queued: a kind of packet, what a reading does, or the kind of an event.
struct queued {
    std::string kind;
    std::uint32_t event = 0;
    std::int64_t count = 1; // -1: for good
};

std::mutex demux_mutex; // guards all below; the bus may be locked before it, never behind it
std::shared_ptr<user> last_user;
std::deque<queued> packet_queue;
std::deque<queued> event_queue;

stream_source source_now()
{
    stream_source source{};
    i2c_locked([&source] { source = mn88552_stream(); });
    return source;
}

// The descriptor is readable exactly while packets can be had.
void show_readable(const user& u, const stream_source& source)
{
    eventfd_t value;
    if (u.fd < 0)
        return;
    eventfd_read(u.fd, &value);
    if (u.step == steps && source.kind != stream_source::nothing)
        eventfd_write(u.fd, 1);
    clock_kick();
}

std::shared_ptr<user> user_of(open_file& file)
{
    return std::static_pointer_cast<user>(file.data);
}

// Takes one off the front of a queue.
bool take(std::deque<queued>& queue, queued& found)
{
    if (queue.empty())
        return false;
    found = queue.front();
    if (queue.front().count > 0 && --queue.front().count == 0)
        queue.pop_front();
    return true;
}

int demux_open(open_file& file, int)
{
    file.fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (file.fd < 0)
        return -1;
    const auto p = std::make_shared<user>();
    p->fd = file.fd;
    file.data = p;
    const std::lock_guard lock(demux_mutex);
    last_user = p;
    return file.fd;
}

void demux_close(open_file& file)
{
    const std::lock_guard lock(demux_mutex);
    user_of(file)->fd = -1;
}

int refuse(unsigned long request)
{
    strange(std::string("ioctl ") + path + " request " + std::to_string(request));
    errno = EINVAL;
    return -1;
}

bool fits(const setup_step& wanted, unsigned long request, const void* arg)
{
    if (request != wanted.request)
        return false;
    if (wanted.count == 0)
        return reinterpret_cast<std::uintptr_t>(arg) == wanted.words[0];
    return arg != nullptr && std::memcmp(arg, wanted.words, wanted.count * sizeof *wanted.words) == 0;
}

void note(user& u, std::size_t step, const void* arg)
{
    if (step == step_source)
        std::memcpy(&u.source, arg, sizeof u.source);
    if (step == step_buffer)
        u.buffer = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(arg));
    if (step == step_filter)
        std::memcpy(u.filter, arg, sizeof u.filter);
    if (step + 1 == steps)
        u.starts++;
}

int fetch_event(const user& u, const stream_source& source, void* arg)
{
    if (u.step != steps || arg == nullptr)
        return refuse(event_request);
    if (source.kind == stream_source::nothing) {
        errno = ETIMEDOUT;
        return -1;
    }
    std::uint32_t record[20] = {4};
    if (queued q; take(event_queue, q))
        record[0] = q.event;
    std::memcpy(arg, record, sizeof record);
    return 0;
}

int demux_ioctl(open_file& file, unsigned long request, void* arg)
{
    const stream_source source = source_now();
    const std::lock_guard lock(demux_mutex);
    user& u = *user_of(file);
    if (request == event_request)
        return fetch_event(u, source, arg);
    if (request == stop_request && u.step == steps) {
        u.step = 0;
        u.stops++;
    } else if (u.step < steps && fits(setup_steps[u.step], request, arg)) {
        note(u, u.step, arg);
        u.step++;
    } else {
        return refuse(request);
    }
    show_readable(u, source);
    return 0;
}

// The packet as the queue wants it.
void spoil(ts_packet& packet, const std::string& kind, packet_source& stream)
{
    if (kind == "error")
        packet[1] |= 0x80;
    else if (kind == "nosync")
        packet[0] = 0x46;
    else if (kind == "gap")
        stream.leave_gap(packet);
    else if (kind == "differ")
        packet[100] = static_cast<std::uint8_t>(~packet[100]);
    else if (kind == "filler")
        packet[4] = 0xFF;
}

ssize_t fail(int error)
{
    errno = error;
    return -1;
}

ssize_t give(user& u, const stream_source& source, void* buf)
{
    queued q;
    take(packet_queue, q);
    if (q.kind == "overflow")
        return fail(EOVERFLOW);
    if (q.kind == "broken")
        return fail(EIO);
    ts_packet packet = source.kind == stream_source::pattern ? u.stream.next_of_pattern(source.code)
                                                             : u.stream.next_of_broadcast();
    spoil(packet, q.kind, u.stream);
    const std::size_t size = q.kind == "short" ? 100 : packet.size();
    std::memcpy(buf, packet.data(), size);
    u.packets += size == packet.size() ? 1 : 0;
    return static_cast<ssize_t>(size);
}

ssize_t demux_read(open_file& file, void* buf, std::size_t size)
{
    const stream_source source = source_now();
    {
        const std::lock_guard lock(demux_mutex);
        user& u = *user_of(file);
        if (u.step != steps || size != sizeof(ts_packet)) {
            strange(std::string("read ") + path + " of " + std::to_string(size) + " bytes");
            return fail(EINVAL);
        }
        if (source.kind != stream_source::nothing)
            return give(u, source, buf);
    }
    clock_sleep_until(clock_now(CLOCK_MONOTONIC) + read_patience);
    return fail(ETIMEDOUT);
}

constexpr node demux_node = {
    .open = demux_open, .read = demux_read, .ioctl = demux_ioctl, .close = demux_close};

std::string describe_last_user()
{
    if (last_user == nullptr)
        return "none";
    const user& u = *last_user;
    const std::uint32_t* const f = u.filter;
    char text[160];
    std::snprintf(text, sizeof text,
                  "source %u buffer %u filter 0x%X %u %u %u %u %u starts %u stops %u packets %u", u.source,
                  u.buffer, f[0], f[1], f[2], f[3], f[4], f[5], u.starts, u.stops, u.packets);
    return text;
}

constexpr const char* kinds[] = {"good",   "error",    "nosync", "gap",   "differ",
                                 "filler", "overflow", "short",  "broken"};

// COUNT or `all` as the last word, 1 without it.
std::optional<std::int64_t> count_of(const std::vector<std::string>& args, std::size_t at)
{
    if (args.size() <= at)
        return 1;
    if (args[at] == "all")
        return -1;
    const auto count = number(args[at]);
    return args.size() == at + 1 && count && *count > 0 ? count : std::nullopt;
}

std::string word_stream(request& rq)
{
    const std::lock_guard lock(demux_mutex);
    if (rq.args.empty()) {
        rq.answer = describe_last_user();
        return {};
    }
    const std::string& kind = rq.args[0];
    const bool event = kind == "event";
    const auto count = count_of(rq.args, event ? 2 : 1);
    const auto number_of_event = event && rq.args.size() > 1 ? number(rq.args[1]) : std::nullopt;
    if (!count || (event && (!number_of_event || *number_of_event < 0 || *number_of_event > UINT32_MAX)))
        return "KIND [COUNT|all] or event N [COUNT|all] is wanted";
    if (event) {
        event_queue.push_back({kind, static_cast<std::uint32_t>(*number_of_event), *count});
        return {};
    }
    if (std::ranges::find(kinds, kind) == std::end(kinds))
        return "good, error, nosync, gap, differ, filler, overflow, short, broken or event is wanted, not "
               "\"" +
               kind + "\"";
    if (kind == "good" && *count < 0) {
        packet_queue.clear();
        event_queue.clear();
    } else {
        packet_queue.push_back({kind, 0, *count});
    }
    return {};
}

} // namespace

void demux_source_changed()
{
    const stream_source source = mn88552_stream();
    const std::lock_guard lock(demux_mutex);
    if (last_user != nullptr)
        show_readable(*last_user, source);
}

void demux_attach()
{
    node_add(path, &demux_node);
    word_add(
        "stream", "[KIND [COUNT|all]]",
        "what the next packets are (good, error, nosync, gap, differ, filler), what the next readings do "
        "(overflow, short, broken), or what events tell (event N); alone, the last user",
        word_stream);
    conf_add_word("stream");
}

} // namespace phone
