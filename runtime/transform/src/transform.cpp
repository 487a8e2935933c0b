#include "transform/transform.h"

#include <cmath>
#include <numbers>

namespace {

transform_value scaled(const transform_value& x, double scale)
{
    return {x.re * scale, x.im * scale};
}

void reverse_bits(int n, transform_value* p_x, double scale)
{
    int j = 0;
    for (int i = 0; i < n; i++) {
        if (i <= j) {
            const transform_value moved = scaled(p_x[i], scale);
            p_x[i] = scaled(p_x[j], scale);
            p_x[j] = moved;
        }
        int m = n / 2;
        while (m > 0 && j > m - 1) {
            j -= m;
            m /= 2;
        }
        j += m;
    }
}

// All pairs of one stage that share a factor.
void butterflies(int n, transform_value* p_x, int first, int m, double wr, double wi)
{
    for (int i = first; i < n; i += 2 * m) {
        const transform_value q = p_x[i + m];
        const double tr = wr * q.re - wi * q.im;
        const double ti = wi * q.re + wr * q.im;
        p_x[i + m] = {p_x[i].re - tr, p_x[i].im - ti};
        p_x[i] = {p_x[i].re + tr, p_x[i].im + ti};
    }
}

} // namespace

void transform_fft(int n, transform_value* p_x, double sign, double scale)
{
    reverse_bits(n, p_x, scale);
    for (int m = 1; m < n; m *= 2) {
        for (int k = 0; k < m; k++) {
            const double a = std::numbers::pi * sign * k / m;
            butterflies(n, p_x, k, m, std::cos(a), std::sin(a));
        }
    }
}
