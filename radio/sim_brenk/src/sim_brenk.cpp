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
constexpr std::uint8_t KIND_CONNECTION = 1;

constexpr std::uint32_t ANSWER_SIZE = 16;
constexpr std::uint32_t ANSWER_ROOM = 80; // more than an answer has, or a longer one would pass for one
constexpr int AT_STATE = 10;              // 16 bits, low byte first

constexpr unsigned STATE_FIRST_END = 3; // below it the test still runs
constexpr unsigned STATE_GOOD = 4;
constexpr unsigned STATE_REFUSED = 5;

constexpr std::uint32_t START_PAUSE_US = 2000;
constexpr std::uint32_t POLL_PAUSE_US = 100000;
constexpr int MOST_POLLS = 40;

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
    std::uint8_t answer[ANSWER_ROOM];
    std::uint32_t size = 0;
    const auto packet_size = static_cast<std::uint32_t>(packet.size());
    if (ftm_cmd(packet.data(), packet_size, answer, sizeof answer, &size) != 1 || size != ANSWER_SIZE)
        return false;
    *p_state = answer[AT_STATE] | static_cast<unsigned>(answer[AT_STATE + 1]) << 8;
    return true;
}

int sim_brenk_ct(std::uint8_t kind, std::uint8_t* p_result)
{
    if (kind != KIND_CONNECTION)
        return SIM_NO_SUCH_TEST;
    *p_result = 1;
    unsigned state;
    if (!ask(test_start, &state) || state == STATE_REFUSED)
        return SIM_FAILED;
    tmr_usleep(START_PAUSE_US);
    for (int polls = 0; state < STATE_FIRST_END && polls < MOST_POLLS; polls++) {
        tmr_usleep(POLL_PAUSE_US);
        if (!ask(test_poll, &state))
            return SIM_FAILED;
    }
    if (state == STATE_GOOD)
        *p_result = 0;
    return SIM_OK;
}

constexpr sim_co sim_brenk_co = {.detect = sim_brenk_detect, .ct = sim_brenk_ct};

} // namespace

void sim_brenk_init()
{
    sim_co_attach(&sim_brenk_co);
}
