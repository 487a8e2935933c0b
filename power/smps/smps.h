// Switching of the processor's supply rails. A driver does the work (smps_co_attach), and must be there
// before the first call.
#pragma once

#include <cstdint>

struct smps_co {
    int (*regulator_switch)(std::uint32_t rail, std::uint32_t on);
};

void smps_init();
void smps_co_attach(const smps_co* p_co);

// Switches a rail, which has a processor's number, off (0) or on (1); any other `on` does nothing. 1, or 0
// on failure.
int smps_regulator_switch(std::uint32_t rail, std::uint32_t on);
