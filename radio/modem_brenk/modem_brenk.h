// The modem of the board "brenk": how long to wait until its processor is up, and the proof that it answers.
// Attaches itself to modem; call that.
#pragma once

void modem_brenk_init();
