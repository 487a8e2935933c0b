#include "kbd_qpnp/kbd_qpnp.h"

#include <cstdint>

#include "kbd/kbd.h"
#include "spmi/spmi.h"

namespace {

constexpr unsigned BUS = 0;

// PM8941, power-on block, reset by the power key.
constexpr std::uint32_t S1_TIMER = 0x844; // until the warning
constexpr std::uint32_t S2_TIMER = 0x845; // from the warning to the reset
constexpr std::uint32_t RESET_CTRL = 0x847;
constexpr std::uint8_t RESET_ENABLE = 0x80;

constexpr std::uint8_t S1_TEST = 0x04;
constexpr std::uint8_t S2_TEST = 0x07;

std::uint8_t s1_saved;
std::uint8_t s2_saved;

int write_timers(std::uint8_t s1, std::uint8_t s2)
{
    const int first = spmi_write(BUS, S1_TIMER, &s1, 1);
    return spmi_write(BUS, S2_TIMER, &s2, 1) & first;
}

int kbd_qpnp_stop()
{
    const int enabled = spmi_masked_write(BUS, RESET_ENABLE, RESET_CTRL, RESET_ENABLE, 1);
    return write_timers(s1_saved, s2_saved) & enabled;
}

int kbd_qpnp_start()
{
    if (spmi_read(BUS, S1_TIMER, &s1_saved, 1) == 0 || spmi_read(BUS, S2_TIMER, &s2_saved, 1) == 0)
        return 0;
    if (write_timers(S1_TEST, S2_TEST) != 0 && spmi_masked_write(BUS, RESET_ENABLE, RESET_CTRL, 0, 1) != 0)
        return 1;
    kbd_qpnp_stop(); // half set is worse than not at all
    return 0;
}

constexpr kbd_co kbd_qpnp_co = {.start = kbd_qpnp_start, .stop = kbd_qpnp_stop};

} // namespace

void kbd_qpnp_init()
{
    kbd_co_attach(&kbd_qpnp_co);
}
