// The microphone bias, which a driver switches (mpvc_cmd_co_attach comes before the first call), and the
// values of the plug detection, which the kernel has in files.
#pragma once

struct mpvc_co {
    int (*set)(int on);
};

void mpvc_init();
void mpvc_cmd_co_attach(const mpvc_co* p_co);

// Switches the bias of the headset's microphone off (0) or on (1). 0, or 1 on failure.
int mpvc_set(int on);

// Results of vadet_read.
constexpr int VADET_OK = 0;
constexpr int VADET_FAILED = 1;

// A value of the plug detection: function 1 the microphone contact, in format 0 as the converter has it, in 1
// in millivolts; function 2 the kind of plug when that is a headset, else 0.
int vadet_read(int function, int format, int* p_value);
