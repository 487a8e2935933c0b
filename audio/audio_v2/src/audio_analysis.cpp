// The measurement of a captured block: window, transform, and three numbers. The samples of both channels are
// taken as one row, in which a tone lies at its frequency divided by the number of channels.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "audio_inner.h"

namespace {

constexpr int HALF_WIDTH = 8; // of a peak, in bins
constexpr const char* PATH_HANNING = "/data/hanning.txt";
constexpr const char* PATH_FFT = "/data/fft.txt";

template <typename Value>
using memory = std::unique_ptr<Value[], alsa_free>;

template <typename Value>
memory<Value> allocate(std::size_t count)
{
    return memory<Value>(static_cast<Value*>(std::malloc(count * sizeof(Value))));
}

// What a block of n samples needs, kept for the next one of that length.
struct workplace {
    int n = 0;
    memory<double> window; // 1 - cos: twice the window
    memory<double> values;
    memory<transform_value> x;
};

bool make_workplace(int n, workplace& w)
{
    const auto count = static_cast<std::size_t>(n);
    w.n = 0;
    w.window = allocate<double>(count);
    w.values = allocate<double>(count);
    w.x = allocate<transform_value>(2 * count);
    if (w.window == nullptr || w.values == nullptr || w.x == nullptr)
        return false;
    for (int i = 0; i < n; i++)
        w.window[static_cast<std::size_t>(i)] = 1.0 - std::cos(i * 2 * std::numbers::pi / (n - 1));
    w.n = n;
    return true;
}

// Twice the samples under a Hann window.
void audio_hanning(int n, const std::int16_t* p_samples, const double* p_window, double* p_values)
{
    for (int i = 0; i < n; i++)
        p_values[i] = p_samples[i] * p_window[i];
}

void dump_real_parts(int n, const transform_value* p_x, double* p_values)
{
    for (int i = 0; i < n; i++)
        p_values[i] = p_x[i].re;
    pcm_write_samples_fft(PATH_FFT, static_cast<unsigned long>(n), p_values);
}

double square(const transform_value& x)
{
    return x.re * x.re + x.im * x.im;
}

std::int32_t rounded(double value)
{
    return static_cast<std::int32_t>(std::min(value + 0.5, 2147483647.0));
}

// The squares of all bins between the first and the middle one: their sum and the greatest.
struct bins {
    double sum;
    double greatest;
};

bins look_at_bins(int n, const transform_value* p_x)
{
    constexpr int lanes = 4; // sums of their own, so that they needn't wait for one another
    double sum[lanes] = {};
    double greatest[lanes] = {};
    int i = 1;
    for (; i + lanes <= n / 2; i += lanes)
        for (int lane = 0; lane < lanes; lane++) {
            const double s = square(p_x[i + lane]);
            sum[lane] += s;
            greatest[lane] = std::max(greatest[lane], s);
        }
    for (; i < n / 2; i++) {
        sum[0] += square(p_x[i]);
        greatest[0] = std::max(greatest[0], square(p_x[i]));
    }
    return {(sum[0] + sum[1]) + (sum[2] + sum[3]), *std::max_element(greatest, greatest + lanes)};
}

// The first bin of the greatest magnitude; 0 in silence. Squares that differ in the last bits may have one
// root.
int peak_bin(int n, const transform_value* p_x, double greatest)
{
    if (greatest == 0)
        return 0;
    const double magnitude = std::sqrt(greatest);
    const double near = greatest * (1 - 1e-14);
    int i = 1;
    while (i < n / 2 - 1 && (square(p_x[i]) < near || std::sqrt(square(p_x[i])) != magnitude))
        i++;
    return i;
}

} // namespace

int audio_auan_calc(int n, const transform_value* p_x, unsigned rate, unsigned channels,
                    audio_result* p_result)
{
    const bins all = look_at_bins(n, p_x);
    const int peak = peak_bin(n, p_x, all.greatest);
    *p_result = {0, 0, rounded(2 * all.sum / n / n / 1.5)};
    if (peak < HALF_WIDTH || peak > n / 2 - HALF_WIDTH)
        return 0;
    const double width = static_cast<double>(rate) / n;
    double sum = 0;
    double weighted = 0;
    for (int i = peak - (HALF_WIDTH - 1); i < peak + HALF_WIDTH; i++) {
        const double a = std::sqrt(square(p_x[i])) / n;
        const double power = 2 * a * a;
        sum += power;
        weighted += i * power * width;
    }
    p_result->frequency = rounded(channels * weighted / sum);
    p_result->level = rounded(std::sqrt(sum / 1.5));
    return 1;
}

int audio_analyze(const alsa_pcm_config& config, audio_result* p_result)
{
    static workplace work;
    const int n = static_cast<int>(config.transfer_frames);
    if (work.n != n && !make_workplace(n, work))
        return 0;
    const bool dumps = audio_dumps(config);
    audio_hanning(n, config.buffer.get(), work.window.get(), work.values.get());
    if (dumps)
        pcm_write_samples_fft(PATH_HANNING, config.transfer_frames, work.values.get());
    transform_reals(n, work.values.get(), work.x.get(), dumps);
    if (dumps)
        dump_real_parts(n, work.x.get(), work.values.get());
    return audio_auan_calc(n, work.x.get(), config.rate, config.channels, p_result);
}
