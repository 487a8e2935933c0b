// What the files of the vibrator share.
#pragma once

#include "vibrator/vibrator.h"

// The table of the driver that is attached.
const vibrator_co& vibrator_attached();

// The analysis of samples that stand in the buffer. `n` of them behind the first `s`.
struct vibm_samples {
    const vibrator_co* p_co;
    void* p_buf;
    int n;
    int s;
};

// The swing on each axis; gives the axis with the largest.
int vibr_measure_ampl(const vibm_samples& samples, double amplitude[3]);

struct transform_value;

// The frequency of the main axis, by `p_cmplx` with room for twice VIBM_SAMPLES. Spends the samples, and
// writes all to the data file. 1, or 0 when that can't be written.
int vibr_measure_freq(const vibm_samples& samples, int main_axis, const vibm_cfg& cfg,
                      transform_value* p_cmplx, double* p_frequency);
