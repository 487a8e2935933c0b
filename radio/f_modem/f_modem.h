// The station's commands for the modem's processor: mdmb, mdsw, mdmr, mdmf, mdmid.
#pragma once

// Adds the command table.
void f_modem_init();
