#include "sim_brenk/sim_brenk.h"

#include <cstdint>
#include <span>

#include "ftm_linux/ftm_linux.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "sim/sim.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint8_t test_start[] = {0x4B, 0x0B, 0x00, 0x80, 0x02, 0x00, 0x00, 0x00};
constexpr std::uint8_t test_poll[] = {0x4B, 0x0B, 0x00, 0x80, 0x03, 0x00, 0x00, 0x00};
constexpr std::uint8_t kind_connection = 1;

constexpr std::uint32_t answer_size = 16;
constexpr std::uint32_t answer_room = 80; // more than an answer has, or a longer one would pass for one
constexpr int at_state = 10;              // 16 bits, low byte first

constexpr unsigned state_first_end = 3; // below it the test still runs
constexpr unsigned state_good = 4;
constexpr unsigned state_refused = 5;

constexpr std::uint32_t start_pause_us = 2000;
constexpr std::uint32_t poll_pause_us = 100000;
constexpr int most_polls = 40;

int sim_brenk_detect(std::uint8_t* p_present)
{
    if (p_present == nullptr)
        return SIM_FAILED;
    *p_present = pin_in_get(PIN_IN_SIM_DETECT) == PIN_ACTIVE ? 1 : 0;
    return SIM_OK;
}

// Sends a packet of the test and takes the state out of the answer; false when there is no right one.
bool ask(std::span<const std::uint8_t> packet, unsigned* p_state)
{
    std::uint8_t answer[answer_room];
    std::uint32_t size = 0;
    const auto packet_size = static_cast<std::uint32_t>(packet.size());
    if (ftm_cmd(packet.data(), packet_size, answer, sizeof answer, &size) != 1 || size != answer_size)
        return false;
    *p_state = answer[at_state] | static_cast<unsigned>(answer[at_state + 1]) << 8;
    return true;
}

int sim_brenk_ct(std::uint8_t kind, std::uint8_t* p_result)
{
    if (kind != kind_connection)
        return SIM_NO_SUCH_TEST;
    *p_result = 1;
    unsigned state;
    if (!ask(test_start, &state) || state == state_refused)
        return SIM_FAILED;
    tmr_usleep(start_pause_us);
    for (int polls = 0; state < state_first_end && polls < most_polls; polls++) {
        tmr_usleep(poll_pause_us);
        if (!ask(test_poll, &state))
            return SIM_FAILED;
    }
    if (state == state_good)
        *p_result = 0;
    return SIM_OK;
}

constexpr sim_co sim_brenk_co = {.detect = sim_brenk_detect, .ct = sim_brenk_ct};

} // namespace

void sim_brenk_init()
{
    sim_co_attach(&sim_brenk_co);
}
