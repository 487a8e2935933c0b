// The SIM slot, as the modem sees it: with no card in it the test of the contacts ends badly.
#pragma once

namespace phone {

void sim_attach();

} // namespace phone
