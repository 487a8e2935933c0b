// The RF band variant of this phone: found once from a voltage and a pin, kept in a unit from then on. A
// driver does the work (rfbv_cmd_co_attach). All operations give 1 on success and 0 on failure.
#pragma once

#include <cstddef>

struct rfbv_co {
    int (*read)(unsigned* p_pin, int* p_val);
    int (*setup)();
    int (*get_config)(char* p_buf, std::size_t room);
};

void rfbv_init();
void rfbv_cmd_co_attach(const rfbv_co* p_co);

// Reads the pin (1 if active) and the voltage in mV, and stores the variant that they mean if none is stored.
int rfbv_read(unsigned* p_pin, int* p_val);

// Sees to it that the variant is stored.
int rfbv_setup();

// The stored variant, with NUL; a failure when it has no room.
int rfbv_get_config(char* p_buf, std::size_t room);
