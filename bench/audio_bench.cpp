// What sound costs: the measurement of a captured block beside the same numbers by FFTW, a phone that plays
// and records beside two bare threads, and the time from the line that stops a capture to its answer.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fftw3.h>
#include <numbers>
#include <thread>
#include <vector>

#include "audio_inner.h"
#include "bench_phone.h"
#include "row.h"

namespace {

using namespace std::chrono;

constexpr int samples = 3840;
constexpr int transformed = 4096;
constexpr int repetitions = 4000;
constexpr auto span = 5s;
constexpr int stops = 12;
constexpr double block_ms = 80;
constexpr double beside_block_ms = 8;

double time_of(auto body)
{
    const auto from = steady_clock::now();
    body();
    return duration<double, std::nano>(steady_clock::now() - from).count();
}

std::int16_t sample(int i)
{
    return static_cast<std::int16_t>(6000 * std::sin(2 * std::numbers::pi * (i / 2) / 48.0));
}

// The same three numbers of a real transform that FFTW has planned by measuring.
class yardstick {
public:
    yardstick()
        : in(fftw_alloc_real(transformed)), out(fftw_alloc_complex(transformed / 2 + 1)), window(samples)
    {
        plan = fftw_plan_dft_r2c_1d(transformed, in, out, FFTW_MEASURE);
        std::fill(in, in + transformed, 0.0);
        for (int i = 0; i < samples; i++)
            window[static_cast<std::size_t>(i)] = 1 - std::cos(i * 2 * std::numbers::pi / (samples - 1));
    }
    ~yardstick()
    {
        fftw_destroy_plan(plan);
        fftw_free(in);
        fftw_free(out);
    }
    yardstick(const yardstick&) = delete;
    yardstick& operator=(const yardstick&) = delete;

    void measure(const std::int16_t* p_samples, audio_result* p_result)
    {
        for (int i = 0; i < samples; i++)
            in[i] = p_samples[i] * window[static_cast<std::size_t>(i)];
        fftw_execute(plan);
        audio_auan_calc(samples, reinterpret_cast<const transform_value*>(out), 48000, 2, p_result);
    }

private:
    double* in;
    fftw_complex* out;
    fftw_plan plan;
    std::vector<double> window;
};

int analysis()
{
    alsa_pcm_config config = {"default", 1,       2,       48000,   2, 80, 80,      1000, 0,
                              0,         nullptr, nullptr, nullptr, 0, 0,  samples, 48};
    config.buffer.reset(static_cast<std::int16_t*>(std::malloc(2 * samples * sizeof(std::int16_t))));
    for (int i = 0; i < 2 * samples; i++)
        config.buffer[static_cast<std::size_t>(i)] = sample(i);
    yardstick fftw;
    audio_result result{};
    audio_result others{}; // of another spectrum, and so not the same
    double own = 1e18;
    double other = 1e18;
    for (int i = 0; i < repetitions; i++) { // in turns
        own = std::min(own, time_of([&] { audio_analyze(config, &result); }));
        other = std::min(other, time_of([&] { fftw.measure(config.buffer.get(), &others); }));
    }
    if (result.frequency != 1000)
        std::exit(1);
    return bench_row("tone analysis of 3840 samples", own, other, 2);
}

double processor_over_span(pid_t pid)
{
    const double from = bench_processor_ns(pid);
    std::this_thread::sleep_for(span);
    return bench_processor_ns(pid) - from;
}

int both_streams()
{
    const bench_phone p;
    p.trip("aloop=1,1,1\r");
    p.trip("aloop=2,1,1\r");
    const pid_t bare = bench_start(bench_beside("bare_audio"));
    std::this_thread::sleep_for(200ms);
    const double other = processor_over_span(bare);
    bench_stop(bare);
    const double own = processor_over_span(p.pid);
    return bench_row("tone and capture for 5 s, processor time", own, other, 2);
}

int stop_of_a_capture()
{
    const bench_phone p;
    double worst = 0;
    for (int i = 0; i < stops; i++) {
        p.trip("aloop=1,1,1\r");
        p.trip("aloop=2,1,1\r");
        std::this_thread::sleep_for(milliseconds(100 + 7 * i)); // each time elsewhere in a block
        worst = std::max(worst, time_of([&] { p.trip("aloop=2,1,0\r"); }) / 1e6);
    }
    return bench_figure("a capture's stop to its answer, at the worst", worst, block_ms + beside_block_ms,
                        "ms");
}

} // namespace

int main()
{
    int over = analysis();
    over += both_streams();
    over += stop_of_a_capture();
    return over > 0 ? 1 : 0;
}
