// The PN65's firmware download: frames of a command, a length and a payload to its memory, which keeps what
// was written without supply.
#include "contactless/pn65.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <map>
#include <optional>

#include "board/chips.h"
#include "board/i2c_bus.h"
#include "contactless/frame_rules.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr nanoseconds reply_time = 1'000'000;
constexpr int timer_reply = 0;
constexpr std::uint32_t memory_end = 0x1000000;
constexpr std::size_t header_size = 3;
constexpr std::size_t target_size = 5; // address and count
constexpr std::uint8_t bad_command = 0x20;
constexpr std::size_t page_size = 4096;
constexpr std::size_t word_bytes = 16;
constexpr std::size_t most_set = 4096; // bytes that the bench sets at once

enum : std::uint8_t {
    reset_command = 0x01,
    write_6 = 0x06,
    read_command = 0x07,
    write_command = 0x08,
    command_9 = 0x09,
    preparation = 0x0A,
    check_values = 0x0B,
    write_12 = 0x0C,
    piece = 0x0D,
    second_reset = 0x42,
};

constexpr supply_line supply[] = {{558, 0}};

struct page {
    std::array<std::uint8_t, page_size> bytes;
    std::bitset<page_size> fresh; // written since the chip was switched on

    page() { bytes.fill(0xFF); }
};

using bytes_of = std::vector<std::uint8_t>;
using frame_bytes = std::span<const std::uint8_t>;

// All with the bus locked.
std::map<std::uint32_t, page> pages; // by address / page_size
frame_rules rules({.ack = false, .old = false, .raw = false, .several = false});
bytes_of pieces;               // of a long frame
std::optional<bytes_of> reply; // not read yet
bool reply_is_ready;

std::uint8_t byte_at(std::uint32_t at)
{
    const auto found = pages.find(at / page_size);
    return found != pages.end() ? found->second.bytes[at % page_size] : 0xFF;
}

bool is_fresh(std::uint32_t at)
{
    const auto found = at < memory_end ? pages.find(at / page_size) : pages.end();
    return found != pages.end() && found->second.fresh[at % page_size];
}

void set_byte(std::uint32_t at, std::uint8_t value, bool fresh)
{
    page& p = pages[at / page_size];
    p.bytes[at % page_size] = value;
    if (fresh)
        p.fresh.set(at % page_size);
}

// A reflected CRC whose start and last exclusive-or are all ones.
std::uint32_t crc_of(frame_bytes bytes, std::uint32_t polynomial, std::uint32_t ones)
{
    std::uint32_t crc = ones;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; bit++)
            crc = (crc & 1) != 0 ? crc >> 1 ^ polynomial : crc >> 1;
    }
    return crc ^ ones;
}

// Over what was written from `at` on without a gap, less the check value that stands at its end.
std::uint32_t check_value(std::uint32_t at, std::size_t size)
{
    bytes_of bytes;
    for (; is_fresh(at); at++)
        bytes.push_back(byte_at(at));
    if (bytes.size() < size)
        return 0;
    bytes.resize(bytes.size() - size);
    return size == 2 ? crc_of(bytes, 0x8408, 0xFFFF) : crc_of(bytes, 0xEDB88320, 0xFFFFFFFF);
}

void put(bytes_of& bytes, std::uint32_t value, std::size_t size)
{
    bytes.push_back(0); // good
    for (std::size_t i = 0; i < size; i++)
        bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

// The four pairs of a status and a value, or one of them.
bytes_of check_pairs(std::optional<std::uint8_t> kind)
{
    bytes_of bytes;
    if (!kind || *kind == 0)
        put(bytes, 0xA55A, 2);
    if (!kind || *kind == 1)
        put(bytes, check_value(0x8200, 2), 2);
    if (!kind || *kind == 2)
        put(bytes, check_value(0x800000, 4), 4);
    if (!kind || *kind == 3)
        put(bytes, check_value(0x18800, 4), 4);
    return bytes;
}

bytes_of with_header(const bytes_of& data)
{
    bytes_of bytes = {0, static_cast<std::uint8_t>(data.size() >> 8), static_cast<std::uint8_t>(data.size())};
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

bytes_of refusal()
{
    return {bad_command, 0, 0};
}

struct target {
    std::uint32_t addr;
    std::uint32_t count;
};

std::optional<target> target_of(frame_bytes payload)
{
    if (payload.size() < target_size)
        return {};
    const auto addr = static_cast<std::uint32_t>(payload[0] << 16 | payload[1] << 8 | payload[2]);
    const auto count = static_cast<std::uint32_t>(payload[3] << 8 | payload[4]);
    if (addr + count > memory_end)
        return {};
    return target{addr, count};
}

bytes_of read_memory(frame_bytes payload)
{
    const auto t = target_of(payload);
    if (!t || payload.size() != target_size)
        return refusal();
    bytes_of data;
    for (std::uint32_t i = 0; i < t->count; i++)
        data.push_back(byte_at(t->addr + i));
    return with_header(data);
}

bytes_of write_memory(frame_bytes payload)
{
    const auto t = target_of(payload);
    if (!t || payload.size() != target_size + t->count)
        return refusal();
    for (std::uint32_t i = 0; i < t->count; i++)
        set_byte(t->addr + i, payload[target_size + i], true);
    return with_header({});
}

// Pieces of a long frame; behind its last byte it is carried out as if it had come whole.
bytes_of take_piece(frame_bytes payload)
{
    pieces.insert(pieces.end(), payload.begin(), payload.end());
    if (pieces.size() < header_size)
        return with_header({});
    const std::size_t size = header_size + static_cast<std::size_t>(pieces[1] << 8 | pieces[2]);
    if (pieces.size() < size)
        return with_header({});
    const bytes_of whole = std::move(pieces);
    pieces.clear();
    write_memory(frame_bytes(whole).subspan(header_size));
    return with_header({});
}

bytes_of answer(std::uint8_t command, frame_bytes payload)
{
    if (command != piece)
        pieces.clear();
    switch (command) {
    case reset_command:
    case command_9:
    case second_reset:
        return {};
    case read_command:
        return read_memory(payload);
    case write_command:
    case write_12:
        return write_memory(payload);
    case write_6:
    case preparation:
        return with_header({});
    case piece:
        return take_piece(payload);
    case check_values:
        if (payload.size() <= 1 && (payload.empty() || payload[0] <= 3)) {
            bytes_of pairs = check_pairs(payload.empty() ? std::nullopt : std::optional(payload[0]));
            return with_header(pairs);
        }
        return refusal();
    default:
        return refusal();
    }
}

bytes_of answer_to(frame_bytes frame)
{
    if (const auto frames = rules.take(frame))
        return frames->empty() ? bytes_of{} : frames->front().bytes;
    if (frame.size() < header_size ||
        frame.size() != header_size + static_cast<std::size_t>(frame[1] << 8 | frame[2])) {
        strange("pn65 download frame " + to_hex(frame.data(), std::min<std::size_t>(frame.size(), 16)));
        return refusal();
    }
    return answer(frame[0], frame.subspan(header_size));
}

void forget_reply(chip& c)
{
    chip_timer_stop(c, timer_reply);
    reply.reset();
    reply_is_ready = false;
    pn65_ready(pn65_side::download, false);
}

bool take(chip& c, frame_bytes message)
{
    rules.keep(message);
    forget_reply(c);
    bytes_of bytes = answer_to(message);
    if (bytes.empty())
        return true;
    reply = std::move(bytes);
    chip_timer_set(c, timer_reply, reply_time);
    return true;
}

bool give(chip& c, std::span<std::uint8_t> message)
{
    if (!reply_is_ready)
        return false;
    std::ranges::fill(message, 0);
    std::copy_n(reply->begin(), std::min(reply->size(), message.size()), message.begin());
    forget_reply(c);
    return true;
}

void timer(chip&, int)
{
    reply_is_ready = true;
    pn65_ready(pn65_side::download, true);
}

void reset(chip& c)
{
    forget_reply(c);
    pieces.clear();
    for (auto& [number, p] : pages)
        p.fresh.reset();
}

void supply_changed(chip& c, bool on)
{
    if (!on)
        chip_reset(c);
}

std::string word_mem(request& rq)
{
    const auto addr = rq.args.size() > 1 ? hex_number(rq.args[1]) : std::nullopt;
    if (rq.args.size() > 3 || !addr || *addr >= memory_end)
        return "mem, an address of at most six hexadecimal digits and perhaps bytes are wanted";
    const auto at = static_cast<std::uint32_t>(*addr);
    if (rq.args.size() == 2) {
        for (std::uint32_t i = at; i < std::min<std::uint32_t>(at + word_bytes, memory_end); i++)
            rq.answer += hex_digits(byte_at(i), 2);
        return {};
    }
    const auto bytes = hex_bytes(rq.args[2]);
    if (!bytes || bytes->empty() || bytes->size() > most_set || at + bytes->size() > memory_end)
        return "1 to 4096 bytes in hexadecimal, within the memory, are wanted";
    for (std::size_t i = 0; i < bytes->size(); i++)
        set_byte(at + static_cast<std::uint32_t>(i), (*bytes)[i], false);
    return {};
}

std::string word_pn65dl(request& rq)
{
    std::string failure;
    i2c_locked([&] { failure = !rq.args.empty() && rq.args[0] == "mem" ? word_mem(rq) : rules.word(rq); });
    return failure;
}

} // namespace

constinit const chip_model pn65_download = {.name = "pn65 download",
                                            .bus = 10,
                                            .addr = 0x28,
                                            .regs = {},
                                            .supply = supply,
                                            .supply_changed = supply_changed,
                                            .take = take,
                                            .give = give,
                                            .reset = reset,
                                            .timer = timer};

void pn65_download_attach()
{
    word_add(
        "pn65dl", "PREFIX REPLY [COUNT]|off|recent [N]|mem ADDR [BYTES]",
        "what the first contactless chip replies to a firmware download, what it was sent, and its memory",
        word_pn65dl);
}

} // namespace phone
