// One exchange with the chip: a native frame, or HCI bytes in an envelope. What came back is in `reply` only
// when the exchange succeeded; a length that can't be is a failed exchange.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace qxr5170jvk {

constexpr std::size_t BUFFER_ROOM = 64;
constexpr std::size_t MOST_HCI = 29;    // bytes that an envelope takes
constexpr std::size_t MOST_NATIVE = 58; // command bytes of a native frame

struct reply {
    std::array<std::uint8_t, BUFFER_ROOM> bytes{};
    std::uint8_t length = 0;

    std::uint8_t at(std::size_t i) const { return bytes[i]; }
};

// What the chip must be for an exchange.
struct chip_state {
    bool started = false;
    bool pon = false;           // the last value given through power_ctrl, as the next
    bool tvdd = false;          // kept for the record
    bool int_handshake = false; // envelopes: the chip confirms by its interrupt line
};

extern chip_state state;

// Needs `started`; who calls it sees to the personality, hsel.
bool qxr5170jvk_nfc_send(std::span<const std::uint8_t> bytes, reply& r);

// Needs `started` and `pon`; leaves the chip in its native personality.
bool qxr5170jvk_tamiro_send(std::span<const std::uint8_t> bytes, reply& r);

// Sends a row of the HCI table; a pipe that isn't 0 takes the place of the row's own.
bool qxr5170jvk_nfc_sf(int row, unsigned pipe, reply& r);

// A row of the table, its bytes.
std::span<const std::uint8_t> nfc_tamiro_qxr5170jvk_brenk_hci_cmd_get(int row);

} // namespace qxr5170jvk
