// What the modem answers to diag packets, and what it logs. It measures, transfers and tests in the phone's
// time. How packets travel is the diag driver's affair (diag/diag.cpp). The driver calls one at a time.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace phone {

using packet = std::vector<std::uint8_t>;

// The answer to one request, bare. A request that the modem doesn't know gets an error packet.
packet modem_answer(std::span<const std::uint8_t> request);

// Who knows whether a SIM is in; without that there is one. Only while devices attach.
void modem_set_sim(bool (*is_in)());

// A measurement has ended: its log record, or an empty one when nothing is to be logged. Called when the time
// that modem_answer has asked for with diag_measure_for is over.
packet modem_measured();

} // namespace phone
