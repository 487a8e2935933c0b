#include "radio/sim.h"

#include "board/gpio.h"
#include "diag/modem.h"

namespace phone {

namespace {

constexpr unsigned card_line = 100; // high while a card is in

bool card_is_in()
{
    return gpio_level(card_line) == 1;
}

} // namespace

void sim_attach()
{
    modem_set_sim(card_is_in);
}

} // namespace phone
