// One measurement: the motor, the capture, and what follows from it.
#include "vibr_inner.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "tmr/tmr.h"
#include "transform/transform.h"

namespace {

struct memory_free {
    void operator()(void* p) const { std::free(p); }
};

const vibm_cfg* p_vibm_cfg;
std::unique_ptr<void, memory_free> vibm_buf;
std::unique_ptr<transform_value, memory_free> cmplx_arr;

bool table_is_whole(const vibrator_co& co)
{
    return co.sample_size != nullptr && co.sample_get != nullptr && co.sample_set != nullptr &&
           co.capture != nullptr;
}

// Whether the buffers hold all that the analysis touches: one sample before those to analyse, one behind
// them.
bool fits(const vibm_cfg& cfg)
{
    return cfg.skip >= 1 && cfg.sample_period >= 1 && std::uint64_t{cfg.samples} + cfg.skip < VIBM_SAMPLES;
}

// Fills the buffer; false when there is nothing to capture with, or nothing came.
bool capture(const vibrator_co& co)
{
    if (!table_is_whole(co) || p_vibm_cfg == nullptr || !fits(*p_vibm_cfg))
        return false;
    const vibm_cfg& cfg = *p_vibm_cfg;
    return co.capture(static_cast<int>(cfg.samples + cfg.skip), cfg.sample_period, cfg.mode,
                      vibm_buf.get()) != 0;
}

} // namespace

void vibr_measure_set_cfg(const vibm_cfg* p_cfg)
{
    p_vibm_cfg = p_cfg;
}

int vibr_measure_init()
{
    const vibrator_co& co = vibrator_attached();
    const int size = co.sample_size != nullptr ? co.sample_size() : 0;
    // A driver that has no samples still has its motor: what it lacks shows when there is nothing to capture.
    vibm_buf.reset(std::calloc(VIBM_SAMPLES, size > 0 ? static_cast<std::size_t>(size) : 1));
    cmplx_arr.reset(static_cast<transform_value*>(std::calloc(2 * VIBM_SAMPLES, sizeof(transform_value))));
    if (vibm_buf != nullptr && cmplx_arr != nullptr)
        return 1;
    vibr_measure_exit();
    return 0;
}

void vibr_measure_exit()
{
    vibm_buf.reset();
    cmplx_arr.reset();
}

int vibr_measure(vibr_result* p_result, int level)
{
    const vibrator_co& co = vibrator_attached();
    if (level != 0 && vibrator_start_with_level(0, level) != 0)
        return 0;
    tmr_msleep(10);
    if (!capture(co)) {
        vibrator_stop();
        return 0;
    }
    if (level != 0)
        vibrator_stop();
    const vibm_cfg& cfg = *p_vibm_cfg;
    if (cfg.samples < VIBM_LEAST_SAMPLES)
        return 0;
    const vibm_samples samples = {&co, vibm_buf.get(), static_cast<int>(cfg.samples),
                                  static_cast<int>(cfg.skip)};
    const int main_axis = vibr_measure_ampl(samples, p_result->amplitude);
    return vibr_measure_freq(samples, main_axis, cfg, cmplx_arr.get(), &p_result->frequency);
}
