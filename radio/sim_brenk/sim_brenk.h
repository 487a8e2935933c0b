// The SIM of the board "brenk": a pin tells of the card, the modem tests its contacts. Attaches itself to
// sim; call that.
#pragma once

void sim_brenk_init();
