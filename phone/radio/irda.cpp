#include "radio/irda.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "board/serial_line.h"
#include "core/clock.h"
#include "core/control.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr const char* control_path = "/dev/irda";
constexpr const char* line_path = "/dev/ttyHSL2";

constexpr nanoseconds ns_per_ms = 1'000'000;
constexpr nanoseconds silence = 4 * ns_per_ms; // between two packets
constexpr nanoseconds echo_time = 50 * ns_per_ms;
constexpr std::size_t longest_packet = 4096;
constexpr const char* wanted_words = "bytes in hexadecimal, last, or echo on|off is wanted";

using bytes = std::vector<std::uint8_t>;

struct transceiver {
    bool select = false;
    bool uart = false;
    bool receiver = false;
    bool mode = false;
};

struct packet_sent {
    bytes content;
    nanoseconds end; // of its last bit, so far
};

struct request_row {
    unsigned long request;
    bool transceiver::*what;
    bool on;
};

// clang-format off
constexpr request_row requests[] = {
    { 0xCC0B, &transceiver::select,   true  },
    { 0xCC0F, &transceiver::receiver, true  },
    { 0xCC10, &transceiver::receiver, false },
    { 0xCC11, &transceiver::mode,     true  },
    { 0xCC12, &transceiver::mode,     false },
    { 0xCC13, &transceiver::select,   false },
    { 0xCC14, &transceiver::uart,     true  },
    { 0xCC15, &transceiver::uart,     false },
};
// clang-format on

std::mutex irda_mutex; // guards all below
transceiver state;
bool echo;
int echo_timer;
std::uint64_t finished;            // packets whose last bit is out
std::optional<packet_sent> last;   // the newest of them
std::optional<packet_sent> newest; // perhaps still under way
std::deque<packet_sent> to_echo;   // in the order of their ends

// The newest packet can't grow any more, or nothing of it is on its way now.
void finish_newest_locked()
{
    if (!newest)
        return;
    finished++;
    last = newest;
    newest.reset();
}

void arm_echo_locked()
{
    if (!to_echo.empty())
        clock_timer_set(
            echo_timer,
            std::max<nanoseconds>(to_echo.front().end + echo_time - clock_now(CLOCK_MONOTONIC), 1), 0);
}

// More of a packet that went on, or the beginning of the next.
void add_locked(packet_sent& packet, const serial_burst& burst)
{
    packet.content.insert(packet.content.end(), burst.bytes.begin(), burst.bytes.end());
    packet.end = burst.end;
}

void irda_sent(const serial_burst& burst)
{
    const std::lock_guard lock(irda_mutex);
    if (!state.select || !state.uart)
        return;
    const nanoseconds start = burst.end - burst.byte * static_cast<nanoseconds>(burst.bytes.size());
    const packet_sent* const p_before = newest ? &*newest : last ? &*last : nullptr;
    if (p_before != nullptr && start - p_before->end < silence) {
        if (!newest) { // it seemed to be over
            finished--;
            newest = last;
        }
        add_locked(*newest, burst);
        if (echo && !to_echo.empty())
            add_locked(to_echo.back(), burst);
    } else {
        finish_newest_locked();
        newest = packet_sent{{}, 0};
        add_locked(*newest, burst);
        if (echo)
            to_echo.push_back(*newest);
    }
    arm_echo_locked();
}

// Whether the phone hears what comes now.
bool hears()
{
    const std::lock_guard lock(irda_mutex);
    return state.select && state.uart && state.receiver;
}

void send_echo()
{
    bytes packet;
    {
        const std::lock_guard lock(irda_mutex);
        if (to_echo.empty())
            return;
        if (to_echo.front().end + echo_time > clock_now(CLOCK_MONOTONIC))
            return arm_echo_locked();
        packet = std::move(to_echo.front().content);
        to_echo.pop_front();
        arm_echo_locked();
    }
    if (hears())
        serial_receive(line_path, packet);
}

int irda_ioctl(open_file&, unsigned long request, void*)
{
    char name[16];
    std::snprintf(name, sizeof name, "%lX", request);
    const auto row = std::find_if(std::begin(requests), std::end(requests),
                                  [request](const request_row& r) { return r.request == request; });
    if (row == std::end(requests)) {
        strange("ioctl " + std::string(control_path) + " request " + name);
        errno = ENOTTY;
        return -1;
    }
    if (watch_target("irda " + std::string(name))) {
        errno = EIO;
        return -1;
    }
    serial_update(line_path); // what went out until now went out under the old setting
    const std::lock_guard lock(irda_mutex);
    state.*row->what = row->on;
    return 0;
}

std::string tell_state()
{
    const auto number_of = [](bool on) { return on ? "1" : "0"; };
    return std::string("select ") + number_of(state.select) + " uart " + number_of(state.uart) +
           " receiver " + number_of(state.receiver) + " mode " + number_of(state.mode) + " speed " +
           std::to_string(serial_speed(line_path)) + " sent " + std::to_string(finished);
}

std::string set_echo(bool on)
{
    echo = on;
    to_echo.clear();
    return {};
}

std::string word_irda(request& rq)
{
    serial_update(line_path);
    const bool under_way = serial_sending(line_path);
    std::unique_lock lock(irda_mutex);
    if (!under_way || (newest && clock_now(CLOCK_MONOTONIC) - newest->end >= silence))
        finish_newest_locked();
    const auto& args = rq.args;
    if (args.empty()) {
        rq.answer = tell_state();
        return {};
    }
    if (args.size() == 2 && args[0] == "echo" && (args[1] == "on" || args[1] == "off"))
        return set_echo(args[1] == "on");
    if (args.size() != 1)
        return wanted_words;
    if (args[0] == "last") {
        rq.answer = last ? to_hex(last->content.data(), last->content.size()) : "none";
        return {};
    }
    const auto packet = hex_bytes(args[0]);
    if (!packet || packet->empty() || packet->size() > longest_packet)
        return wanted_words;
    lock.unlock();
    const bool heard = hears();
    if (heard)
        serial_receive(line_path, *packet);
    rq.answer = heard ? "heard" : "lost";
    return {};
}

constexpr node irda_node = {.ioctl = irda_ioctl};
constexpr serial_model line_model = {.sent = irda_sent};

} // namespace

void irda_attach()
{
    node_add(control_path, &irda_node);
    serial_add(line_path, &line_model);
    echo_timer = clock_timer_create(send_echo);
    watch_target_add("irda", {target_number::hex});
    word_add(
        "irda", "[HEX|last|echo on|off]",
        "sends bytes to the infrared port; the last packet that it has sent; a partner that sends all back; "
        "alone, its state",
        word_irda);
}

} // namespace phone
