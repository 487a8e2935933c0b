// Charging of the backup capacitor, which keeps the real-time clock going without a battery. A driver does
// the work (backcap_co_attach), and must be there before the first call.
#pragma once

struct backcap_co {
    int (*set_mode)(int mode);
};

void backcap_init();
void backcap_co_attach(const backcap_co* p_co);

// 0 off, 1 charging. 1, or 0 on failure and for any other mode.
int backcap_set_mode(int mode);
