// The transform's loops as they were first written down, for tests to hold the quick ones against.
#pragma once

#include <cmath>
#include <numbers>

#include "transform/transform.h"

inline void transform_loops(int n, transform_value* x, double sign, double scale)
{
    int j = 0;
    for (int i = 0; i < n; i++) {
        if (i <= j) {
            const transform_value moved = {x[i].re * scale, x[i].im * scale};
            x[i] = {x[j].re * scale, x[j].im * scale};
            x[j] = moved;
        }
        int m = n / 2;
        while (m > 0 && j > m - 1) {
            j = j - m;
            m = m / 2;
        }
        j = j + m;
    }
    for (int m = 1; m < n; m = 2 * m)
        for (int k = 0; k < m; k++) {
            const double a = std::numbers::pi * sign * k / m;
            const double wr = std::cos(a);
            const double wi = std::sin(a);
            for (int i = k; i < n; i = i + 2 * m) {
                const int q = i + m;
                const double tr = wr * x[q].re - wi * x[q].im;
                const double ti = wr * x[q].im + wi * x[q].re;
                x[q] = {x[i].re - tr, x[i].im - ti};
                x[i] = {x[i].re + tr, x[i].im + ti};
            }
        }
}
