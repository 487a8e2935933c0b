// The tone: a wave in memory that a thread plays over and over, without a seam.
#include <algorithm>
#include <cmath>
#include <mutex>
#include <numbers>
#include <pthread.h>
#include <utility>

#include "alsa_inner.h"
#include "tmr/tmr.h"

namespace {

std::atomic<int> tgen_running;

// What runs: the thread's own but for the routes and the thread's handle, until it is joined.
struct {
    alsa_ctl_entry* p_route;
    alsa_ctl_entry* p_gain;
    pthread_t thread;
    alsa_pcm_config* p_config;
    snd_pcm_t* pcm;
    std::shared_ptr<const alsa_wave> wave;
    unsigned transfer_frames;
    unsigned long position; // in samples: where the next write begins
} tone;

std::mutex wave_mutex; // guards the waves of all records

// Positions are kept within two waves.
unsigned long wave_unit(const alsa_wave& wave)
{
    return wave.period_samples * 2UL;
}

// Where a wave goes on behind a ring that was filled from its start: the whole waves of the record end at W.
unsigned long first_position(const alsa_pcm_config& config, const alsa_wave& wave)
{
    const unsigned long w = config.periods * wave_unit(wave);
    return config.buffer_size <= w ? 0 : (config.buffer_size - w) % wave_unit(wave);
}

// A suspended stream, while it is asked for.
void resume()
{
    int result;
    while ((result = snd_pcm_resume(tone.pcm)) == -EAGAIN && tgen_running == 1)
        tmr_msleep(1);
    if (result < 0)
        snd_pcm_prepare(tone.pcm);
}

void recover(long error)
{
    tmr_msleep(1);
    if (error == -ESTRPIPE)
        resume();
    else
        snd_pcm_prepare(tone.pcm);
}

// The tone's wave as it is now; false when there is none any more.
bool take_wave()
{
    std::shared_ptr<const alsa_wave> wave = alsa_wave_get(*tone.p_config);
    if (wave != tone.wave) {
        tone.wave = std::move(wave);
        tone.position = 0;
    }
    return tone.wave != nullptr;
}

long write_once()
{
    const unsigned long frames = tone.transfer_frames;
    const snd_pcm_sframes_t written =
        snd_pcm_writei(tone.pcm, tone.wave->samples.get() + tone.position, frames);
    const unsigned long unit = wave_unit(*tone.wave);
    if (written == static_cast<snd_pcm_sframes_t>(frames) && frames % unit != 0)
        tone.position = (tone.position + frames) % unit;
    snd_pcm_avail_update(tone.pcm);
    return written;
}

void* alsa_pcm_write_thread(void*)
{
    snd_pcm_nonblock(tone.pcm, 0);
    while (tgen_running == 1 && take_wave()) {
        const long available = snd_pcm_avail_update(tone.pcm);
        if (available >= 0 && available < static_cast<long>(tone.transfer_frames)) {
            tmr_msleep(1);
            continue;
        }
        const long result = available < 0 ? available : write_once();
        if (result < 0)
            recover(result);
    }
    snd_pcm_nonblock(tone.pcm, 1);
    snd_pcm_drain(tone.pcm);
    snd_pcm_hw_free(tone.pcm);
    snd_pcm_close(tone.pcm);
    return nullptr;
}

// The wave as long as the card's ring wants it, which may be longer than was asked.
std::shared_ptr<const alsa_wave> grown_wave(alsa_pcm_config* p_config)
{
    std::shared_ptr<const alsa_wave> wave = alsa_wave_get(*p_config);
    const unsigned long wanted = alsa_wave_reach(*p_config, wave->period_samples);
    if (wave->count >= wanted)
        return wave;
    wave = alsa_wave_make(wave->period_samples, p_config->amplitude, wanted);
    if (wave != nullptr)
        alsa_wave_set(p_config, wave);
    return wave;
}

bool tgen_setup(alsa_pcm_config* p_config)
{
    if (alsa_wave_get(*p_config) == nullptr)
        return false;
    alsa_pcm_guard pcm = alsa_pcm_open(p_config);
    if (pcm == nullptr)
        return false;
    std::shared_ptr<const alsa_wave> wave = grown_wave(p_config);
    if (wave == nullptr || snd_pcm_writei(pcm.get(), wave->samples.get(), p_config->buffer_size) !=
                               static_cast<long>(p_config->buffer_size))
        return false;
    tone.p_config = p_config;
    tone.pcm = pcm.get();
    tone.position = first_position(*p_config, *wave);
    tone.wave = std::move(wave);
    tone.transfer_frames = p_config->transfer_frames;
    if (pthread_create(&tone.thread, nullptr, alsa_pcm_write_thread, nullptr) != 0)
        return false;
    p_config->pcm = pcm.release(); // the thread closes it
    return true;
}

} // namespace

std::shared_ptr<const alsa_wave> alsa_wave_make(unsigned period_samples, std::int16_t amplitude,
                                                unsigned long count)
{
    if (period_samples == 0)
        return nullptr;
    alsa_samples samples(static_cast<std::int16_t*>(std::malloc(count * sizeof(std::int16_t))));
    if (samples == nullptr)
        return nullptr;
    for (unsigned long i = 0; i < count; i++)
        samples[i] = static_cast<std::int16_t>(
            amplitude * std::sin(static_cast<double>(i) * 2 * std::numbers::pi / period_samples));
    return std::make_shared<const alsa_wave>(alsa_wave{std::move(samples), count, period_samples});
}

unsigned long alsa_wave_reach(const alsa_pcm_config& config, unsigned period_samples)
{
    return std::max(config.buffer_size, 2UL * period_samples - 1 + config.transfer_frames);
}

std::shared_ptr<const alsa_wave> alsa_wave_get(const alsa_pcm_config& config)
{
    const std::lock_guard lock(wave_mutex);
    return config.wave;
}

void alsa_wave_set(alsa_pcm_config* p_config, std::shared_ptr<const alsa_wave> wave)
{
    const std::lock_guard lock(wave_mutex);
    p_config->wave.swap(wave);
}

int alsa_tgen_start(alsa_pcm_config* p_config, alsa_ctl_entry* p_route, alsa_ctl_entry* p_gain)
{
    if (tgen_running == 1)
        return 0;
    if (alsa_ctl_set_on(p_route) < 0 || alsa_ctl_set_no_change(p_gain) < 0)
        return ALSA_FAILED;
    tgen_running = 1; // before the thread looks at it
    if (!tgen_setup(p_config)) {
        tgen_running = 0;
        return ALSA_FAILED;
    }
    tone.p_route = p_route;
    tone.p_gain = p_gain;
    // A running stream makes no click when the gain goes down and up again; a step that fails costs only
    // that.
    alsa_ctl_set_gain_no_save(p_gain, ALSA_VALUE_SHORT_STEP);
    alsa_ctl_set_gain(p_gain, ALSA_VALUE_WORKING);
    return 0;
}

int alsa_tgen_stop()
{
    if (tgen_running == 0)
        return 0;
    tgen_running = 0;
    pthread_join(tone.thread, nullptr);
    tone.wave.reset();
    tone.p_config->pcm = nullptr;
    alsa_ctl_entry* const routes[] = {std::exchange(tone.p_route, nullptr),
                                      std::exchange(tone.p_gain, nullptr)};
    int result = 0;
    for (const alsa_ctl_entry* p_route : routes)
        if (alsa_ctl_set_off(p_route) < 0)
            result = ALSA_FAILED;
    return result;
}

alsa_ctl_entry* get_tgen_cfg()
{
    return tone.p_route;
}

alsa_ctl_entry* get_tgen_gain_cfg()
{
    return tone.p_gain;
}
