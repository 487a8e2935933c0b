#include "exchange.h"

#include <algorithm>

#include "check/check.h"
#include "line.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "tmr/tmr.h"

namespace qxr5170jvk {

chip_state state;

namespace {

constexpr std::uint32_t BEFORE_ACK_US = 10000;
constexpr std::uint32_t ROUND_US = 1000;
constexpr std::uint32_t NATIVE_ROUND_US = 10000;
constexpr std::uint32_t BETWEEN_ROWS_US = 100;
constexpr int ACK_ROUNDS = 100;
constexpr int ENVELOPE_ROUNDS = 100;
constexpr int NATIVE_ROUNDS = 100;
constexpr int GROUP_F8_ROUNDS = 10;
constexpr int HANDSHAKE_ROUNDS = 1000;
constexpr int HANDSHAKE_TOO_MANY = 100; // rounds

constexpr std::uint8_t ENVELOPE = 0x53;
constexpr std::size_t ENVELOPE_ACK = 3;
constexpr std::size_t ENVELOPE_HEAD = 4;
constexpr std::size_t ENVELOPE_EXTRA = 2; // what its length counts beside the HCI bytes
constexpr std::size_t NATIVE_ACK = 4;
constexpr std::size_t NATIVE_HEAD = 3;
constexpr std::size_t NATIVE_EXTRA = 1;
constexpr std::size_t NATIVE_FRAME = 6; // bytes around the command
constexpr std::size_t LENGTH_AT = 2;
constexpr std::uint8_t GROUP_F8 = 0xF8;

constexpr std::size_t ROW_ROOM = 33;

struct hci_row {
    int index;
    std::size_t size;
    std::uint8_t bytes[ROW_ROOM];
};

// Pipe, instruction, values; instructions and gates of ETSI TS 102 622.
// clang-format off
constexpr hci_row nfc_hci_tab[] = {
    {  0,  2, { 0x81, 0x03 } },                                     // open the administration pipe
    {  1,  2, { 0x80, 0x03 } },                                     // open the link management pipe
    {  2,  5, { 0x81, 0x10, 0x05, 0x00, 0x05 } },                   // create the identity pipe
    {  3,  2, { 0x80, 0x03 } },                                     // open a created pipe
    {  4,  5, { 0x81, 0x10, 0x17, 0x00, 0x15 } },                   // create the polling pipe
    {  5,  3, { 0x81, 0x11, 0x00 } },                               // delete a pipe, the third byte
    {  6,  2, { 0x85, 0x03 } },                                     // open the polling pipe
    {  7,  2, { 0x85, 0x04 } },                                     // close it
    {  8,  8, { 0x85, 0x61, 0x81, 0x01, 0x1F, 0x82, 0x01, 0x01 } }, // one round of polling
    {  9,  2, { 0x85, 0x62 } },                                     // end of polling
    { 10,  3, { 0x80, 0x02, 0x01 } },                               // identity parameters 1 to 6
    { 11,  3, { 0x80, 0x02, 0x02 } },
    { 12,  3, { 0x80, 0x02, 0x03 } },
    { 13,  3, { 0x80, 0x02, 0x04 } },
    { 14,  3, { 0x80, 0x02, 0x05 } },
    { 15,  3, { 0x80, 0x02, 0x06 } },
    { 16,  2, { 0x82, 0x01 } },                                     // identity of pipe 2
    { 17,  7, { 0x80, 0x82, 0x3F, 0x00, 0x00, 0x00, 0x00 } },       // not used, as 18
    { 18,  6, { 0x80, 0x82, 0x3E, 0x00, 0x00, 0x00 } },
    { 19,  3, { 0x82, 0x09, 0x03 } },                               // single-wire test
    { 20, 10, { 0x82, 0x4B, 0x02, 0x0E, 0x00, 0x34, 0x60, 0x00, 0x00, 0x00 } }, // RF setting on
    { 21, 10, { 0x82, 0x4B, 0x02, 0x0E, 0x00, 0x34, 0x40, 0x00, 0x00, 0x00 } }, // and off
};
// clang-format on

consteval bool in_order()
{
    for (std::size_t i = 0; i < std::size(nfc_hci_tab); i++)
        if (nfc_hci_tab[i].index != static_cast<int>(i))
            return false;
    return true;
}
static_assert(in_order());

// What the bytes between the first and the checksum add up to, folded into one byte and turned round.
std::uint8_t checksum(std::span<const std::uint8_t> bytes)
{
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes)
        sum += byte;
    sum = (sum & 0xFF) + (sum >> 8);
    sum = (sum & 0xFF) + (sum >> 8);
    return static_cast<std::uint8_t>(~sum);
}

// CRC-16 of polynomial 0x1021, from 0, most significant bit first.
std::uint16_t nfc_crc(std::span<const std::uint8_t> bytes)
{
    unsigned crc = 0;
    for (const std::uint8_t byte : bytes) {
        crc ^= static_cast<unsigned>(byte) << 8;
        for (int bit = 0; bit < 8; bit++)
            crc = (crc & 0x8000) != 0 ? crc << 1 ^ 0x1021 : crc << 1;
    }
    return static_cast<std::uint16_t>(crc);
}

void empty_line()
{
    std::array<std::uint8_t, BUFFER_ROOM> dropped;
    Tamiro_read(dropped.data(), dropped.size());
}

// Whatever the chip says within the time is its acknowledgement.
bool await_ack(std::size_t size)
{
    std::array<std::uint8_t, NATIVE_ACK> ack;
    tmr_usleep(BEFORE_ACK_US);
    for (int i = 0; i < ACK_ROUNDS; i++) {
        if (Tamiro_read(ack.data(), size) > 0)
            return true;
        tmr_usleep(ROUND_US);
    }
    return false;
}

bool await_interrupt(int wanted)
{
    int rounds = 0;
    while (rounds < HANDSHAKE_ROUNDS && pin_in_get(PIN_IN_NFC2_IRQ) != wanted) {
        tmr_usleep(ROUND_US);
        rounds++;
    }
    return rounds < HANDSHAKE_TOO_MANY;
}

// The chip follows the control line with its interrupt line, down and up again.
bool handshake()
{
    if (!Tamiro_set_hsel(false) || !await_interrupt(PIN_INACTIVE)) {
        Tamiro_set_hsel(true);
        return false;
    }
    return Tamiro_set_hsel(true) && await_interrupt(PIN_ACTIVE);
}

// Takes the payload out of what was read: `extra` of what the length byte counts isn't payload.
bool unwrap(std::span<const std::uint8_t> read, std::size_t head, std::size_t extra, reply& r)
{
    if (read.size() <= LENGTH_AT || read[LENGTH_AT] < extra)
        return false;
    const std::size_t length = read[LENGTH_AT] - extra;
    if (head + length > read.size())
        return false;
    std::ranges::copy(read.subspan(head, length), r.bytes.begin());
    r.length = static_cast<std::uint8_t>(length);
    return true;
}

} // namespace

std::span<const std::uint8_t> nfc_tamiro_qxr5170jvk_brenk_hci_cmd_get(int row)
{
    HVT_CHECK(row >= 0 && static_cast<std::size_t>(row) < std::size(nfc_hci_tab));
    return std::span(nfc_hci_tab[row].bytes).first(nfc_hci_tab[row].size);
}

bool qxr5170jvk_nfc_send(std::span<const std::uint8_t> bytes, reply& r)
{
    r = {};
    if (!state.started || bytes.size() > MOST_HCI)
        return false;
    std::array<std::uint8_t, BUFFER_ROOM> buf{};
    const std::size_t n = bytes.size();
    buf[0] = ENVELOPE;
    buf[LENGTH_AT] = static_cast<std::uint8_t>(n + ENVELOPE_EXTRA);
    std::ranges::copy(bytes, buf.begin() + ENVELOPE_HEAD);
    buf[ENVELOPE_HEAD + n] = checksum(std::span(buf).subspan(1, ENVELOPE_HEAD - 1 + n));
    empty_line();
    if (!Tamiro_write(buf.data(), ENVELOPE_HEAD + n + 1) || !await_ack(ENVELOPE_ACK))
        return false;
    if (state.int_handshake && !handshake())
        return false;
    for (int i = 0; i < ENVELOPE_ROUNDS; i++) {
        tmr_usleep(ROUND_US);
        const ssize_t got = Tamiro_read(buf.data(), buf.size());
        if (got > 0)
            return unwrap(std::span(buf).first(static_cast<std::size_t>(got)), ENVELOPE_HEAD, ENVELOPE_EXTRA,
                          r);
    }
    return false;
}

bool qxr5170jvk_tamiro_send(std::span<const std::uint8_t> bytes, reply& r)
{
    r = {};
    if (!state.started || !state.pon || bytes.empty() || bytes.size() > MOST_NATIVE)
        return false;
    std::array<std::uint8_t, BUFFER_ROOM> buf{};
    const std::size_t n = bytes.size();
    buf[1] = 0xFA;
    buf[LENGTH_AT] = static_cast<std::uint8_t>(n + NATIVE_EXTRA);
    std::ranges::copy(bytes, buf.begin() + NATIVE_HEAD);
    const std::uint16_t crc = nfc_crc(std::span(buf).subspan(LENGTH_AT, 1 + n));
    buf[NATIVE_HEAD + n] = static_cast<std::uint8_t>(crc >> 8);
    buf[NATIVE_HEAD + n + 1] = static_cast<std::uint8_t>(crc);
    if (!Tamiro_set_hsel(false))
        return false;
    empty_line();
    if (!Tamiro_write(buf.data(), n + NATIVE_FRAME) || !await_ack(NATIVE_ACK))
        return false;
    const int limit = bytes[0] == GROUP_F8 ? GROUP_F8_ROUNDS : NATIVE_ROUNDS;
    ssize_t got = 0;
    int rounds = 0;
    while (rounds < limit && got <= 0) {
        tmr_usleep(NATIVE_ROUND_US);
        got = Tamiro_read(buf.data(), buf.size());
        rounds++;
    }
    // What comes in the last round comes too late.
    return rounds < limit &&
           unwrap(std::span(buf).first(static_cast<std::size_t>(got)), NATIVE_HEAD, NATIVE_EXTRA, r);
}

bool qxr5170jvk_nfc_sf(int row, unsigned pipe, reply& r)
{
    const auto bytes = nfc_tamiro_qxr5170jvk_brenk_hci_cmd_get(row);
    std::array<std::uint8_t, ROW_ROOM> copy{};
    std::ranges::copy(bytes, copy.begin());
    if (pipe != 0)
        copy[0] = static_cast<std::uint8_t>(0x80 | pipe);
    const bool good = qxr5170jvk_nfc_send(std::span(copy).first(bytes.size()), r);
    tmr_usleep(BETWEEN_ROWS_US);
    return good;
}

} // namespace qxr5170jvk
