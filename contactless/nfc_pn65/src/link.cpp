#include "link.h"

#include <algorithm>

#include "i2c/i2c.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "tmr/tmr.h"

namespace pn65 {

namespace {

constexpr std::size_t LEAST_REFUSED = 30; // bytes of a frame
constexpr std::size_t CRC_SIZE = 2;
constexpr std::size_t WIRE_ROOM = 1 + LEAST_REFUSED + CRC_SIZE;
constexpr std::uint32_t BEFORE_SEND_US = 3000;
constexpr std::uint32_t FRAME_READY_US = 20;
constexpr std::uint32_t IRQ_POLLING_INTERVAL_US = 2000;
constexpr std::uint64_t IRQ_POLLING_LOOP = 1000;

constexpr std::uint8_t KIND_BITS = 0xE0;
constexpr std::uint8_t KIND_S = 0xC0;
constexpr std::uint8_t KIND_U = 0xE0;
constexpr std::array<std::uint8_t, 3> POLL = {0x80, 0x83, 0x50};

enum class kind { none, i, s, u };

// Numbers are modulo 8: the frames sent, the frames expected, and what is left out of the acknowledgement
// because the chip acknowledged a poll and never answered it.
struct link_state {
    i2c_handle hnd = {0, 0, -1};
    bool started = false;
    std::uint8_t n_s = 0;
    std::uint8_t n_r = 0;
    std::uint8_t only_ack = 0;
    std::uint64_t poll_rounds = IRQ_POLLING_LOOP;
};

link_state link;

// CRC-16/X-25.
std::uint16_t nfc_crc(const std::uint8_t* p, std::size_t size)
{
    unsigned crc = 0xFFFF;
    for (std::size_t i = 0; i < size; i++) {
        const unsigned c = (crc & 0xFF) ^ p[i];
        const unsigned t = (c ^ c << 4) & 0xFF;
        crc = (crc >> 8 ^ t << 8 ^ t << 3 ^ t >> 4) & 0xFFFF;
    }
    return static_cast<std::uint16_t>(~crc);
}

kind kind_of(std::uint8_t control)
{
    switch (control & KIND_BITS) {
    case KIND_S:
        return kind::s;
    case KIND_U:
        return kind::u;
    default:
        return kind::i;
    }
}

// A frame without a control byte is of no kind.
kind kind_of(const answer& a)
{
    return a.length > 0 ? kind_of(a.at(1)) : kind::none;
}

bool write_frame(const std::uint8_t* frame, std::size_t len)
{
    std::array<std::uint8_t, WIRE_ROOM> wire{};
    wire[0] = static_cast<std::uint8_t>(len + CRC_SIZE);
    std::copy_n(frame, len, wire.begin() + 1);
    const std::uint16_t crc = nfc_crc(wire.data(), 1 + len);
    wire[1 + len] = static_cast<std::uint8_t>(crc);
    wire[2 + len] = static_cast<std::uint8_t>(crc >> 8);
    return i2c_write(&link.hnd, wire.data(), 1 + len + CRC_SIZE) >= 0;
}

bool acknowledge()
{
    const auto control = static_cast<std::uint8_t>(KIND_S | link.n_r);
    return write_frame(&control, 1);
}

bool wait_for_frame(std::uint64_t rounds)
{
    for (std::uint64_t i = 0; i < rounds; i++) {
        if (pin_in_get(PIN_IN_NFC_IRQ) == PIN_ACTIVE) {
            tmr_usleep(FRAME_READY_US);
            return true;
        }
        tmr_usleep(IRQ_POLLING_INTERVAL_US);
    }
    return false;
}

bool read_frame(answer& a)
{
    a = {};
    std::uint8_t length;
    if (i2c_read(&link.hnd, &length, 1) < 0)
        return false;
    if (length >= MOST_LENGTH)
        length = MOST_LENGTH;
    a.bytes[0] = length;
    if (length > 0 && i2c_read(&link.hnd, &a.bytes[1], length) < 0)
        return false;
    a.length = length;
    return true;
}

bool wait_and_read(answer& a)
{
    return wait_for_frame(IRQ_POLLING_LOOP) && read_frame(a);
}

bool is_due(const answer& a)
{
    return (a.at(1) >> 3 & 7) == ((link.n_r + 7) & 7);
}

// Writes the request. An I frame gets the numbers, which move on if it could be written.
bool write_request(const std::uint8_t* frame, std::size_t len)
{
    if (kind_of(frame[0]) != kind::i)
        return write_frame(frame, len);
    std::array<std::uint8_t, LEAST_REFUSED> numbered{};
    std::copy_n(frame, len, numbered.begin());
    numbered[0] = static_cast<std::uint8_t>((frame[0] & KIND_BITS) | link.n_s << 3 | link.n_r);
    if (!write_frame(numbered.data(), len))
        return false;
    link.n_s = (link.n_s + 1) & 7;
    link.n_r = (link.n_s - link.only_ack + 8) & 7;
    return true;
}

enum class step { go_on, done, failed };

// The chip has only acknowledged: its answer follows. A poll without one found no card, and that is told by
// the acknowledgement itself.
step await_answer(bool poll, answer& a)
{
    if (wait_for_frame(poll ? link.poll_rounds : IRQ_POLLING_LOOP))
        return read_frame(a) ? step::go_on : step::failed;
    if (!poll)
        return step::failed;
    link.only_ack = (link.only_ack + 1) & 7;
    link.n_r = (link.n_r - link.only_ack + 8) & 7;
    return step::done;
}

} // namespace

bool link_open()
{
    link_close();
    link.n_s = link.n_r = link.only_ack = 0;
    link.started = i2c_open(&link.hnd, "pn65", 0, 0) == 0;
    return link.started;
}

void link_close()
{
    i2c_close(&link.hnd);
}

bool link_started()
{
    return link.started;
}

void link_set_started(bool started)
{
    link.started = started;
}

void link_set_poll_rounds(std::uint64_t rounds)
{
    link.poll_rounds = rounds;
}

bool link_send(const std::uint8_t* frame, std::size_t len, answer& a)
{
    a = {};
    if (!link.started || len == 0 || len >= LEAST_REFUSED)
        return false;
    tmr_usleep(BEFORE_SEND_US);
    if (!write_request(frame, len) || !wait_and_read(a))
        return false;
    if (kind_of(a) == kind::i) {
        if (is_due(a))
            return acknowledge();
        if (!wait_and_read(a))
            return false;
    }
    if (kind_of(a) == kind::s) {
        const bool poll = len >= POLL.size() && std::equal(POLL.begin(), POLL.end(), frame);
        const step next = await_answer(poll, a);
        if (next != step::go_on)
            return next == step::done;
    }
    if (kind_of(a) != kind::i)
        return true;
    if (!is_due(a) && !wait_and_read(a))
        return false;
    return acknowledge();
}

} // namespace pn65
