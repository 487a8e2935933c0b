// The discrete Fourier transform of the tone analysis and of the vibration measurement: in place, with the
// same loops whatever the length is. No window, no scaling of the result; of its own it has only the tables
// that a length needs, made when it is first asked for.
#pragma once

struct transform_value {
    double re;
    double im;
};

// Transforms `n` values; `sign`, 1.0 or -1.0, is that of the exponent, `scale` multiplies the values that the
// bit reversal moves. For a length that isn't a power of two the result isn't the exact spectrum: the loops
// work up to the next power of two, so `p_x` needs room for so many, and what stands behind `n` takes part
// (zeros, if the caller has cleared them).
void transform_fft(int n, transform_value* p_x, double sign, double scale);

// The same of `n` real values, with zeros behind them, for sign and scale 1.0, and several times as fast for
// most lengths. `p_x` needs room for the next power of two; of the result, entries 0 to n/2 are there, or
// with `whole` all n. They are those of transform_fft but for the last bits.
void transform_reals(int n, const double* p_in, transform_value* p_x, bool whole);
