// The sums of a measurement: turning points, window, spectrum, peak.
#include "vibr_inner.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "plat/plat.h"
#include "transform/transform.h"

namespace {

constexpr const char* DATA_PATH = "/system/hvtdebug/vibt_data.txt";
constexpr int AXES = 3;
constexpr int AXIS_W = 3; // a fourth value that goes into the file alone

float value_at(const vibm_samples& m, int i, int axis)
{
    return m.p_co->sample_get(m.p_buf, i, axis);
}

// -1 in a valley, 1 on a peak, else 0.
int extrema(const vibm_samples& m, int i, int axis)
{
    const float p = value_at(m, i - 1, axis);
    const float q = value_at(m, i, axis);
    const float r = value_at(m, i + 1, axis);
    if (r > q && p > q)
        return -1;
    return r < q && p < q ? 1 : 0;
}

// The largest way between two turning points that follow each other, in whole steps.
float swing(const vibm_samples& m, int axis)
{
    constexpr float MOST = 1e9F;
    float largest = 0;
    float last = value_at(m, m.s, axis);
    for (int i = m.s; i <= m.s + m.n - 2; i++) {
        if (extrema(m, i, axis) == 0)
            continue;
        const float now = value_at(m, i, axis);
        const float way = std::fabs(last - now);
        largest = std::max(largest, std::trunc(way < MOST ? way : MOST));
        last = now;
    }
    return largest;
}

void differentiate(const vibm_samples& m)
{
    for (int i = m.s; i < m.s + m.n; i++)
        for (int axis = 0; axis < AXES; axis++)
            m.p_co->sample_set(m.p_buf, i, axis, value_at(m, i + 1, axis) - value_at(m, i, axis));
}

void hanning(const vibm_samples& m, int main_axis, transform_value* p_x)
{
    for (int i = 0; i < m.n; i++) {
        const double x = value_at(m, m.s + i, main_axis);
        p_x[i] = {2 * x * ((1.0 - std::cos(i * 2 * std::numbers::pi / (m.n - 1))) * 0.5), 0};
    }
}

// From here on the real parts are the magnitudes. The transform reaches behind `n`, where it wants zeros.
void spectrum(int n, transform_value* p_x)
{
    std::fill(p_x + n, p_x + 2 * VIBM_SAMPLES, transform_value{});
    transform_fft(n, p_x, 1.0, 1.0);
    for (int i = 0; i < n; i++)
        p_x[i].re = std::sqrt(p_x[i].re * p_x[i].re + p_x[i].im * p_x[i].im);
}

int save_data(const vibm_samples& m, const transform_value* p_x)
{
    FILE* const file = plat_fopen(DATA_PATH, "wt");
    if (file == nullptr)
        return 0;
    bool written = true;
    for (int i = 0; i < m.n && written; i++) {
        const auto value = [&](int axis) { return static_cast<double>(value_at(m, m.s + i, axis)); };
        written = std::fprintf(file, "%d   %f   %f   %f   %f   %f\n", i + 1, value(0), value(1), value(2),
                               value(AXIS_W), p_x[i].re) > 0;
    }
    return std::fclose(file) == 0 && written ? 1 : 0;
}

struct peak {
    double height;
    int index; // the bin plus 1
};

peak first_peak(int n, const transform_value* p_x)
{
    peak first = {0, 0};
    for (int i = 0; 2 * i < n; i++)
        if (p_x[i].re > first.height)
            first = {p_x[i].re, i + 1};
    return first;
}

peak second_peak(int n, const transform_value* p_x, const peak& first)
{
    peak second = {0, 0};
    for (int i = 1; i <= n / 2 - 2; i++)
        if (p_x[i].re > second.height && i != first.index - 1 && p_x[i].re > p_x[i - 1].re &&
            p_x[i].re > p_x[i + 1].re)
            second = {p_x[i].re, i + 1};
    return second;
}

double vibr_compute_freq(int n, const transform_value* p_x, const vibm_cfg& cfg)
{
    const peak first = first_peak(n, p_x);
    const peak second = second_peak(n, p_x, first);
    const bool close = first.height * 0.7 < second.height;
    const bool first_fits = cfg.prefer_higher == (first.index > second.index ? 1U : 0U);
    const int index = !close || first_fits ? first.index : second.index;
    return index * 1000000.0 / n / cfg.sample_period;
}

} // namespace

int vibr_measure_ampl(const vibm_samples& samples, double amplitude[3])
{
    float amp[AXES];
    for (int axis = 0; axis < AXES; axis++) {
        amp[axis] = swing(samples, axis);
        amplitude[axis] = std::sqrt(amp[axis] / 200.0);
    }
    const int larger = amp[0] > amp[1] ? 0 : 1;
    return amp[larger] > amp[2] ? larger : 2;
}

int vibr_measure_freq(const vibm_samples& samples, int main_axis, const vibm_cfg& cfg,
                      transform_value* p_cmplx, double* p_frequency)
{
    differentiate(samples);
    hanning(samples, main_axis, p_cmplx);
    spectrum(samples.n, p_cmplx);
    if (save_data(samples, p_cmplx) == 0)
        return 0;
    *p_frequency = vibr_compute_freq(samples.n, p_cmplx, cfg);
    return 1;
}
