// The discrete Fourier transform of the tone analysis and of the vibration measurement: in place, with the
// same loops whatever the length is. No window, no scaling of the result, no memory of its own.
#pragma once

struct transform_value {
    double re;
    double im;
};

// Transforms `n` values; `sign` is that of the exponent, `scale` multiplies the values that the bit reversal
// moves. For a length that isn't a power of two the result isn't the exact spectrum: the loops work up to the
// next power of two, so `p_x` needs room for so many, and what stands behind `n` takes part (zeros, if the
// caller has cleared them).
void transform_fft(int n, transform_value* p_x, double sign, double scale);
