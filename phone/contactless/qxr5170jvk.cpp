#include "contactless/qxr5170jvk.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <mutex>

#include "board/gpio.h"
#include "board/serial_line.h"
#include "contactless/cards.h"
#include "contactless/frame_rules.h"
#include "contactless/qxr5170jvk_brain.h"
#include "core/clock.h"
#include "core/files.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr const char* line_path = "/dev/ttyHSL1";
constexpr const char* ctrl_path = "/dev/tamiro_ctrl";
constexpr unsigned interrupt_line = 78;
constexpr unsigned sim_supply_line = 97;

constexpr nanoseconds ns_per_ms = 1'000'000;
constexpr nanoseconds power_up_time = 2 * ns_per_ms;
constexpr nanoseconds ack_time = 1 * ns_per_ms;
constexpr nanoseconds native_time = 12 * ns_per_ms;
constexpr nanoseconds envelope_time = 3 * ns_per_ms;
constexpr nanoseconds frame_pause = 5 * ns_per_ms; // behind which a frame that isn't whole never will be

constexpr int start_speed = 460800;
constexpr std::size_t length_at = 2;

using bytes_of = std::vector<std::uint8_t>;

// Something that the chip will say, and the speed that it takes up behind it.
struct saying {
    nanoseconds due;
    bytes_of bytes;
    int speed; // 0: no other
};

struct chip_lines {
    bool cen = false, pon = false, tvdd = false, hsel = false;

    bool on() const { return cen && pon; }
};

std::mutex tamiro_mutex; // guards all below
chip_lines lines;
int speed = start_speed;
bytes_of heard; // of a frame that isn't whole
std::deque<saying> sayings;
frame_rules rules({.ack = true, .old = false, .raw = true, .several = false});
int say_timer, pause_timer;

// CRC-16/XMODEM: the sum from 0, high bit first.
std::uint16_t crc_of(std::span<const std::uint8_t> bytes)
{
    std::uint16_t crc = 0;
    for (const std::uint8_t byte : bytes)
        for (int bit = 7; bit >= 0; bit--) {
            const bool carry = ((crc >> 15 ^ byte >> bit) & 1) != 0;
            crc = static_cast<std::uint16_t>(crc << 1 ^ (carry ? 0x1021 : 0));
        }
    return crc;
}

// The one's complement of the one's complement sum of the bytes.
std::uint8_t checksum_of(std::span<const std::uint8_t> bytes)
{
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum += byte;
        if (sum > 0xFF)
            sum -= 0xFF;
    }
    return static_cast<std::uint8_t>(~sum);
}

bytes_of native_frame(const bytes_of& command)
{
    bytes_of frame = {0x00, 0xFA, static_cast<std::uint8_t>(command.size() + 1)};
    frame.insert(frame.end(), command.begin(), command.end());
    const std::uint16_t crc = crc_of(std::span(frame).subspan(length_at));
    frame.insert(frame.end(), {static_cast<std::uint8_t>(crc >> 8), static_cast<std::uint8_t>(crc), 0x00});
    return frame;
}

bytes_of envelope(const bytes_of& hci)
{
    bytes_of frame = {0x53, 0x00, static_cast<std::uint8_t>(hci.size() + 2), 0x00};
    frame.insert(frame.end(), hci.begin(), hci.end());
    frame.push_back(checksum_of(std::span(frame).subspan(1)));
    return frame;
}

void arrange_locked()
{
    nanoseconds first = forever;
    for (const saying& s : sayings)
        first = std::min(first, s.due);
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    clock_timer_set(say_timer, first == forever ? 0 : std::max<nanoseconds>(first - now, 1), 0);
}

void say_locked(nanoseconds from, nanoseconds after, bytes_of bytes, int then_speed = 0)
{
    sayings.push_back({from + after, std::move(bytes), then_speed});
    arrange_locked();
}

// Who listens at another speed hears nothing.
void say_due()
{
    const std::lock_guard lock(tamiro_mutex);
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    while (!sayings.empty() && sayings.front().due <= now) {
        if (serial_speed(line_path) == speed)
            serial_receive(line_path, sayings.front().bytes);
        if (sayings.front().speed != 0)
            speed = sayings.front().speed;
        sayings.pop_front();
    }
    arrange_locked();
}

// What a frame's payload is answered with; its acknowledgement comes before.
struct frame_kind {
    bytes_of ack;
    nanoseconds answer_after;
    bytes_of (*wrap)(const bytes_of& payload);
};

const frame_kind native_kind = {{0x00, 0xF5, 0x05, 0x00}, native_time, native_frame};
const frame_kind envelope_kind = {{0x53, 0x00, 0x00}, envelope_time, envelope};

void answer_by_rule_locked(const frame_kind& kind, const answer_frames& frames, nanoseconds end)
{
    if (frames.empty())
        return;
    say_locked(end, ack_time, kind.ack);
    const answer_frame& frame = frames.front();
    if (frame.kind != answer_kind::ack)
        say_locked(end, kind.answer_after,
                   frame.kind == answer_kind::raw ? frame.bytes : kind.wrap(frame.bytes));
}

void answer_locked(bool hci, std::span<const std::uint8_t> payload, nanoseconds end)
{
    const frame_kind& kind = hci ? envelope_kind : native_kind;
    if (const auto frames = rules.take(payload)) {
        answer_by_rule_locked(kind, *frames, end);
        return;
    }
    native_answer answer;
    if (hci)
        answer.bytes = qxr5170jvk_hci(payload);
    else
        answer = qxr5170jvk_native(payload, speed);
    say_locked(end, ack_time, kind.ack);
    if (answer.bytes)
        say_locked(end, kind.answer_after, kind.wrap(*answer.bytes), answer.speed);
}

bool begins_envelope(const bytes_of& bytes)
{
    return bytes[0] == 0x53;
}

// The size of the frame that `heard` begins with, 0 when that can't be told yet, and -1 when it is none.
int frame_size_locked()
{
    if (!begins_envelope(heard) && (heard[0] != 0x00 || (heard.size() > 1 && heard[1] != 0xFA)))
        return -1;
    if (heard.size() <= length_at)
        return 0;
    return heard[length_at] + (begins_envelope(heard) ? 3 : 5);
}

bool is_good(std::span<const std::uint8_t> frame, bool hci)
{
    const std::size_t n = frame.size();
    if (hci)
        return frame[length_at] >= 2 && checksum_of(frame.subspan(1, n - 2)) == frame[n - 1];
    return frame[length_at] >= 1 && frame[n - 1] == 0 &&
           crc_of(frame.subspan(length_at, n - 3 - length_at)) == (frame[n - 3] << 8 | frame[n - 2]);
}

void take_frame_locked(std::span<const std::uint8_t> frame, nanoseconds end)
{
    rules.keep(frame);
    const bool hci = frame[0] == 0x53;
    if (hci != lines.hsel || !is_good(frame, hci)) {
        strange("tamiro frame " + to_hex(frame.data(), frame.size()));
        return;
    }
    const std::size_t head = hci ? 4 : 3;
    const std::size_t tail = hci ? 1 : 3;
    answer_locked(hci, frame.subspan(head, frame.size() - head - tail), end);
}

void drop_heard_locked()
{
    if (!heard.empty())
        strange("tamiro bytes " + to_hex(heard.data(), heard.size()));
    heard.clear();
}

void pause_is_over()
{
    const std::lock_guard lock(tamiro_mutex);
    drop_heard_locked();
}

void take_heard_locked(nanoseconds end)
{
    while (!heard.empty()) {
        const int size = frame_size_locked();
        if (size < 0)
            drop_heard_locked();
        if (size <= 0 || heard.size() < static_cast<std::size_t>(size))
            break;
        const bytes_of frame(heard.begin(), heard.begin() + size);
        heard.erase(heard.begin(), heard.begin() + size);
        take_frame_locked(frame, end);
    }
    clock_timer_set(pause_timer, heard.empty() ? 0 : frame_pause, 0);
}

// At another speed than its own the chip hears nothing that it could make out.
void sent(const serial_burst& burst)
{
    const std::lock_guard lock(tamiro_mutex);
    if (!lines.on() || burst.speed != speed)
        return;
    heard.insert(heard.end(), burst.bytes.begin(), burst.bytes.end());
    take_heard_locked(burst.end);
}

void set_supply_locked(bool& line, bool level)
{
    const bool was_on = lines.on();
    line = level;
    if (!lines.cen)
        speed = start_speed;
    if (lines.on() == was_on)
        return;
    heard.clear();
    sayings.clear();
    qxr5170jvk_forget_pipes();
    arrange_locked();
    if (lines.on())
        say_locked(clock_now(CLOCK_MONOTONIC), power_up_time, {0x00, 0xF5, 0x55, 0x00});
}

int set_hsel_locked(const void* arg)
{
    const std::uint8_t level = *static_cast<const std::uint8_t*>(arg);
    if (level > 1) {
        errno = EINVAL;
        return -1;
    }
    lines.hsel = level == 1;
    gpio_drive(interrupt_line, level);
    return 0;
}

int ctrl_ioctl(open_file&, unsigned long number, void* arg)
{
    serial_update(line_path);
    const std::lock_guard lock(tamiro_mutex);
    switch (number) {
    case 0xCC01:
    case 0xCC02:
        set_supply_locked(lines.cen, number == 0xCC01);
        return 0;
    case 0xCC03:
    case 0xCC04:
        set_supply_locked(lines.pon, number == 0xCC03);
        return 0;
    case 0xCC09:
    case 0xCC0A:
        lines.tvdd = number == 0xCC09;
        return 0;
    case 0x8004CC06:
        return set_hsel_locked(arg);
    case 0xCC16:
        gpio_drive(sim_supply_line, secure_element_there() ? 1 : 0);
        return 0;
    case 0xCC17:
        gpio_drive(sim_supply_line, 0);
        return 0;
    default:
        strange("ioctl " + std::string(ctrl_path) + " request " + std::to_string(number));
        errno = ENOTTY;
        return -1;
    }
}

std::string lines_text()
{
    const auto level = [](const char* name, bool on) { return std::string(name) + (on ? " 1 " : " 0 "); };
    return level("cen", lines.cen) + level("pon", lines.pon) + level("tvdd", lines.tvdd) +
           level("hsel", lines.hsel) + "speed " + std::to_string(speed);
}

std::string word_tamiro(request& rq)
{
    serial_update(line_path);
    const std::lock_guard lock(tamiro_mutex);
    const std::string what = rq.args.empty() ? "" : rq.args[0];
    if (what == "reg")
        return qxr5170jvk_word_reg(rq);
    if (what == "block")
        return qxr5170jvk_word_block(rq);
    if (what == "lines" && rq.args.size() == 1) {
        rq.answer = lines_text();
        return {};
    }
    return rules.word(rq);
}

constexpr serial_model line_model = {.sent = sent, .before_read = say_due};
constexpr node ctrl_node = {.ioctl = ctrl_ioctl};

} // namespace

void qxr5170jvk_attach()
{
    serial_add(line_path, &line_model);
    node_add(ctrl_path, &ctrl_node);
    say_timer = clock_timer_create(say_due);
    pause_timer = clock_timer_create(pause_is_over);
    word_add(
        "tamiro", "PREFIX ANSWER [COUNT]|off|recent [N]|reg REG [VAL]|block [BYTES]|lines",
        "what the second contactless chip answers to frames, what it heard, and its registers, parameters "
        "and lines",
        word_tamiro);
}

} // namespace phone
