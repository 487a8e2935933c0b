#include "contactless/pn65.h"

#include <algorithm>
#include <deque>

#include "board/chips.h"
#include "board/gpio.h"
#include "board/i2c_bus.h"
#include "contactless/cards.h"
#include "contactless/frame_rules.h"
#include "contactless/pn65_hci.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr int bus = 2;
constexpr int addr = 0x28;
constexpr unsigned ready_line = 59;

constexpr nanoseconds answer_time = 600'000;
constexpr nanoseconds repeat_time = 20'000'000;
constexpr nanoseconds card_time = 40'000'000;
constexpr int most_repetitions = 5;
constexpr std::size_t frame_room = 33; // the longest that a length byte may tell; what is longer is cut to it

enum : int { timer_due, timer_repeat, timer_card };

constexpr supply_line supply[] = {{558, 0}}; // the enable line of the power chip, inverted on its way

// A frame on its way to the program.
struct out_frame {
    std::vector<std::uint8_t> bytes; // length byte to CRC
    nanoseconds due;
    bool repeated;  // when it isn't acknowledged
    int repetition; // 0 for the first time
};

struct link_side {
    std::uint8_t own = 0;    // the number of the next I frame
    std::uint8_t wanted = 0; // the number that the program's next one must have
    std::deque<out_frame> out;
    std::size_t given = 0; // bytes of the first of them
    out_frame unacknowledged;
    bool polls = false;
    std::uint8_t poll_pipe = 0;
};

// All with the bus locked.
link_side link;
frame_rules rules({.ack = true, .old = true, .raw = true, .several = true});
bool ready_sides[2];

// CRC-16/X-25, bit by bit.
std::uint16_t crc_of(std::span<const std::uint8_t> bytes)
{
    std::uint16_t crc = 0xFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; bit++)
            crc = static_cast<std::uint16_t>((crc & 1) != 0 ? crc >> 1 ^ 0x8408 : crc >> 1);
    }
    return static_cast<std::uint16_t>(~crc);
}

std::vector<std::uint8_t> frame_of(std::uint8_t control, std::span<const std::uint8_t> payload)
{
    std::vector<std::uint8_t> bytes = {static_cast<std::uint8_t>(payload.size() + 3), control};
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    const std::uint16_t crc = crc_of(bytes);
    bytes.push_back(static_cast<std::uint8_t>(crc));
    bytes.push_back(static_cast<std::uint8_t>(crc >> 8));
    return bytes;
}

std::vector<std::uint8_t> i_frame(std::uint8_t number, std::span<const std::uint8_t> payload)
{
    return frame_of(static_cast<std::uint8_t>(0x80 | (number & 7) << 3 | link.wanted), payload);
}

std::vector<std::uint8_t> s_frame()
{
    return frame_of(static_cast<std::uint8_t>(0xC0 | link.wanted), {});
}

// Shows whether the first frame is there, or waits until it is due.
void show(chip& c)
{
    chip_timer_stop(c, timer_due);
    const nanoseconds now = clock_now(CLOCK_MONOTONIC);
    const bool ready = !link.out.empty() && link.out.front().due <= now;
    if (!link.out.empty() && !ready)
        chip_timer_set(c, timer_due, link.out.front().due - now);
    pn65_ready(pn65_side::link, ready);
}

void say(chip& c, std::vector<std::uint8_t> bytes, nanoseconds after, bool repeated)
{
    link.out.push_back({std::move(bytes), clock_now(CLOCK_MONOTONIC) + after, repeated, 0});
    show(c);
}

void say_next_i(chip& c, std::span<const std::uint8_t> payload, nanoseconds after)
{
    say(c, i_frame(link.own, payload), after, true);
    link.own = (link.own + 1) & 7;
}

// The program has acknowledged something: a repetition ends, also one of which a part was read.
void acknowledged(chip& c)
{
    chip_timer_stop(c, timer_repeat);
    link.unacknowledged = {};
    if (!link.out.empty() && link.out.front().repetition > 0) {
        link.out.pop_front();
        link.given = 0;
    }
    show(c);
}

void wait_for_card(chip& c)
{
    if (!link.polls || pn65_hci_card_event(link.poll_pipe).empty())
        chip_timer_stop(c, timer_card);
    else if (c.timers[timer_card].deadline == forever)
        chip_timer_set(c, timer_card, card_time);
}

void answer_request(chip& c, std::span<const std::uint8_t> payload)
{
    const hci_answer answer = pn65_hci_request(payload);
    if (answer.bytes.empty() || answer.after > 0)
        say(c, s_frame(), answer_time, false);
    if (!answer.bytes.empty())
        say_next_i(c, answer.bytes, answer_time + answer.after);
    link.polls = answer.polls;
    link.poll_pipe = answer.pipe;
    wait_for_card(c);
}

// A frame as the bench gives it has FF behind it, as far as its length byte lets a reader go.
std::vector<std::uint8_t> raw_frame(std::vector<std::uint8_t> bytes)
{
    const std::size_t told = 1 + std::min<std::size_t>(bytes[0], frame_room);
    bytes.resize(std::max(bytes.size(), told), 0xFF);
    return bytes;
}

std::vector<std::uint8_t> frame_by_rule(const answer_frame& frame)
{
    switch (frame.kind) {
    case answer_kind::ack:
        return s_frame();
    case answer_kind::old:
        return i_frame(static_cast<std::uint8_t>(link.own + 7), frame.bytes);
    case answer_kind::raw:
        return raw_frame(frame.bytes);
    default:
        return i_frame(link.own, frame.bytes);
    }
}

void answer_by_rule(chip& c, const answer_frames& frames)
{
    bool numbered = false;
    for (std::size_t i = 0; i < frames.size(); i++) {
        const bool is_i = frames[i].kind == answer_kind::bytes || frames[i].kind == answer_kind::old;
        numbered = numbered || is_i;
        say(c, frame_by_rule(frames[i]), answer_time, is_i && i + 1 == frames.size());
    }
    if (numbered)
        link.own = (link.own + 1) & 7;
}

void take_u(chip& c, std::uint8_t control, std::span<const std::uint8_t> payload)
{
    if (control != 0xF9) {
        strange("pn65 U frame " + hex_digits(control, 2));
        return;
    }
    link.own = link.wanted = 0;
    if (const auto frames = rules.take(payload))
        answer_by_rule(c, *frames);
    else
        say(c, frame_of(0xE6, {}), answer_time, false);
}

void take_i(chip& c, std::uint8_t control, std::span<const std::uint8_t> payload)
{
    if ((control >> 3 & 7) != link.wanted) {
        strange("pn65 I frame of number " + std::to_string(control >> 3 & 7) + ", not " +
                std::to_string(link.wanted));
        return;
    }
    link.wanted = (link.wanted + 1) & 7;
    if (const auto frames = rules.take(payload))
        answer_by_rule(c, *frames);
    else
        answer_request(c, payload);
}

bool take(chip& c, std::span<const std::uint8_t> message)
{
    rules.keep(message);
    if (message.size() < 4 || message[0] != message.size() - 1 ||
        crc_of(message.first(message.size() - 2)) != (message.end()[-2] | message.end()[-1] << 8)) {
        strange("pn65 frame " + to_hex(message.data(), message.size()));
        return true;
    }
    link.polls = false;
    chip_timer_stop(c, timer_card);
    const std::uint8_t control = message[1];
    const auto payload = message.subspan(2, message.size() - 4);
    if ((control & 0xE0) == 0xC0)
        acknowledged(c);
    else if ((control & 0xE0) == 0xE0)
        take_u(c, control, payload);
    else
        take_i(c, control, payload);
    return true;
}

// The first frame has been read to its end.
void given_whole(chip& c)
{
    out_frame frame = std::move(link.out.front());
    link.out.pop_front();
    link.given = 0;
    if (frame.repeated && frame.repetition < most_repetitions) {
        link.unacknowledged = std::move(frame);
        chip_timer_set(c, timer_repeat, repeat_time);
    }
    show(c);
}

bool give(chip& c, std::span<std::uint8_t> message)
{
    if (link.out.empty() || link.out.front().due > clock_now(CLOCK_MONOTONIC))
        return false;
    const auto& bytes = link.out.front().bytes;
    const std::size_t n = std::min(message.size(), bytes.size() - link.given);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(link.given), n, message.begin());
    std::fill(message.begin() + static_cast<std::ptrdiff_t>(n), message.end(), 0xFF);
    link.given += n;
    if (link.given == bytes.size())
        given_whole(c);
    return true;
}

void timer(chip& c, int which)
{
    if (which == timer_due) {
        show(c);
    } else if (which == timer_repeat) {
        out_frame again = std::move(link.unacknowledged);
        link.unacknowledged = {};
        again.repetition++;
        again.due = 0;
        link.out.push_back(std::move(again));
        show(c);
    } else if (const auto event = pn65_hci_card_event(link.poll_pipe); link.polls && !event.empty()) {
        link.polls = false;
        say_next_i(c, event, 0);
    }
}

void reset(chip&)
{
    link = {};
    pn65_hci_reset();
    pn65_ready(pn65_side::link, false);
}

void supply_changed(chip& c, bool on)
{
    if (!on)
        chip_reset(c);
}

void cards_changed()
{
    i2c_locked([] { wait_for_card(*i2c_chip(bus, addr)); });
}

std::string word_pn65(request& rq)
{
    std::string failure;
    i2c_locked(
        [&] { failure = !rq.args.empty() && rq.args[0] == "reg" ? pn65_hci_word_reg(rq) : rules.word(rq); });
    return failure;
}

} // namespace

constinit const chip_model pn65 = {.name = "pn65",
                                   .bus = bus,
                                   .addr = addr,
                                   .regs = {},
                                   .supply = supply,
                                   .supply_changed = supply_changed,
                                   .take = take,
                                   .give = give,
                                   .reset = reset,
                                   .timer = timer};

void pn65_ready(pn65_side side, bool ready)
{
    ready_sides[static_cast<int>(side)] = ready;
    gpio_drive(ready_line, ready_sides[0] || ready_sides[1] ? 1 : 0);
}

void pn65_attach()
{
    cards_listen(cards_changed);
    word_add("pn65", "PREFIX ANSWER [COUNT]|off|recent [N]|reg REG [VAL]",
             "what the first contactless chip answers to frames, what it was sent, and its registers",
             word_pn65);
}

} // namespace phone
