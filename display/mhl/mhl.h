// The MHL bridge, which brings HDMI out of the USB socket, by its tests: a person's verdict on the picture,
// and what the chip finds out by itself. Passes them on to the driver that is attached, and keeps no state.
#pragma once

// All give 1 when the test could run and 0 otherwise; what was found goes to `*p_result`: 1 good, 0 bad.
struct mhl_co {
    int (*switch_mode)(int on);
    int (*read_result)(int* p_result);
    int (*run_bist)(int* p_result);
    int (*run_hpd_test)(int* p_result);
    int (*run_ddc_test)(int* p_result);
};

void mhl_init();
void mhl_co_attach(const mhl_co* p_co);

// 1: waits up to 26 seconds for a person to press a key for good or bad, and keeps the verdict. 0 does
// nothing.
int mhl_switch(int on);

// The verdict that was kept.
int mhl_read(int* p_result);

// The chip's self test; whether a monitor is plugged in; whether the monitor's data line works.
int mhl_run_bist(int* p_result);
int mhl_run_hpd_test(int* p_result);
int mhl_run_ddc_test(int* p_result);
