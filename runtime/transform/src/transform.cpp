#include "transform/transform.h"

#include <algorithm>

#include "transform_tables.h"

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

// The first `count` pairs of one block of a stage.
void butterflies(int count, int m, transform_value* p_x, const double* p_wr, const double* p_wi, double sign)
{
    for (int k = 0; k < count; k++) {
        const transform_value q = p_x[k + m];
        const double wi = sign * p_wi[k];
        const double tr = p_wr[k] * q.re - wi * q.im;
        const double ti = p_wr[k] * q.im + wi * q.re;
        p_x[k + m] = {p_x[k].re - tr, p_x[k].im - ti};
        p_x[k] = {p_x[k].re + tr, p_x[k].im + ti};
    }
}

} // namespace

void transform_fft(int n, transform_value* p_x, double sign, double scale)
{
    const auto p_tables = transform_tables_of(n);
    const double* p_wr = p_tables->stage.re.data();
    const double* p_wi = p_tables->stage.im.data();
    reverse_bits(n, p_x, scale);
    for (int m = 1; m < n; m *= 2) {
        for (int block = 0; block < n; block += 2 * m)
            butterflies(std::min(m, n - block), m, p_x + block, p_wr, p_wi, sign);
        p_wr += m;
        p_wi += m;
    }
}
