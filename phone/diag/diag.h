// /dev/diag: the driver between the program and the modem, with its log store, and the control word `diag`.
#pragma once

#include "core/clock.h"

namespace phone {

// For the modem: modem_measured is to be called when this time is over.
void diag_measure_for(nanoseconds time);

void diag_attach();

} // namespace phone
