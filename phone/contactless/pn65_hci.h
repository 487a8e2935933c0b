// The PN65 above its link: pipes and gates of ETSI TS 102 622, the registers and the chip's own requests.
// Knows no frames and no time of its own; everything is called with the bus locked.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "core/clock.h"
#include "core/control.h"

namespace phone {

// What the chip says to a request.
struct hci_answer {
    std::vector<std::uint8_t> bytes; // empty: nothing but the acknowledgement
    nanoseconds after = 0;           // for an answer that takes its time, behind the acknowledgement
    bool polls = false;              // a poll on the pipe has begun
    std::uint8_t pipe = 0;
};

// Forgets all pipes but the first two.
void pn65_hci_reset();

hci_answer pn65_hci_request(std::span<const std::uint8_t> bytes);

// The event that tells of the cards before the antenna, on the pipe of a poll; empty when none is there of a
// kind whose reader gate has a pipe.
std::vector<std::uint8_t> pn65_hci_card_event(std::uint8_t pipe);

// The word `pn65 reg REG [VAL]`.
std::string pn65_hci_word_reg(request& rq);

} // namespace phone
