// The PN65's link: frames with numbers, a CRC and acknowledgements, one request and its answer at a time.
// It gives up, but it doesn't repair: the chip itself repeats what wasn't acknowledged.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "frames.h"

namespace pn65 {

// A frame from the chip. The length byte counts the bytes behind it: control byte, payload, CRC.
constexpr std::size_t MOST_LENGTH = 33;
constexpr std::size_t ANSWER_ROOM = 1 + MOST_LENGTH;

struct answer {
    std::array<std::uint8_t, ANSWER_ROOM> bytes{};
    std::uint8_t length = 0; // the length byte; 0 when there is no frame

    std::uint8_t at(std::size_t i) const { return bytes[i]; }
};

// Opens the bus, what is open before being closed, and puts the numbers to their beginning. False if it can't
// be opened. Frames can be sent from now on.
bool link_open();
void link_close();

// Whether frames may be sent; stays as it is when the bus is closed.
bool link_started();
void link_set_started(bool started);

// Rounds of 2 ms that a poll waits for a card, from now on.
void link_set_poll_rounds(std::uint64_t rounds);

// Sends `len` bytes, control byte and payload, and takes the answer. False: not sent, or no answer.
bool link_send(const std::uint8_t* frame, std::size_t len, answer& a);

} // namespace pn65
