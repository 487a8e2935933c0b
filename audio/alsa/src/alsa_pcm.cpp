// What both streams need: opening one with its parameters.
#include "alsa_inner.h"

std::atomic<int> alsa_state = ALSA_STATE_NO_CONTROL;

namespace {

struct params_free {
    void operator()(snd_pcm_hw_params_t* p) const { snd_pcm_hw_params_free(p); }
};

int set_hwparams(alsa_pcm_config* p_config, snd_pcm_t* pcm, snd_pcm_hw_params_t* params)
{
    int result = snd_pcm_hw_params_any(pcm, params);
    if (result >= 0)
        result = snd_pcm_hw_params_set_access(pcm, params, SND_PCM_ACCESS_RW_INTERLEAVED);
    if (result >= 0)
        result = snd_pcm_hw_params_set_format(pcm, params, static_cast<snd_pcm_format_t>(p_config->format));
    if (result >= 0)
        result = snd_pcm_hw_params_set_rate_near(pcm, params, &p_config->rate, nullptr);
    if (result >= 0)
        result = snd_pcm_hw_params_set_channels(pcm, params, p_config->channels);
    if (result >= 0)
        result = snd_pcm_hw_params_set_buffer_size_near(pcm, params, &p_config->buffer_size);
    if (result >= 0)
        result = snd_pcm_hw_params_set_period_size_near(pcm, params, &p_config->period_size, nullptr);
    return result >= 0 ? snd_pcm_hw_params(pcm, params) : result;
}

int set_up(alsa_pcm_config* p_config, snd_pcm_t* pcm)
{
    snd_pcm_hw_params_t* params = nullptr;
    const int result = snd_pcm_hw_params_malloc(&params);
    if (result < 0)
        return result;
    const std::unique_ptr<snd_pcm_hw_params_t, params_free> guard(params);
    return set_hwparams(p_config, pcm, params);
}

} // namespace

void alsa_init() {}

alsa_pcm_guard alsa_pcm_open(alsa_pcm_config* p_config)
{
    snd_pcm_t* opened = nullptr;
    if (snd_pcm_open(&opened, p_config->device, static_cast<snd_pcm_stream_t>(p_config->stream), 0) < 0)
        return nullptr;
    alsa_pcm_guard pcm(opened);
    if (p_config->stream == SND_PCM_STREAM_PLAYBACK)
        snd_pcm_hw_free(pcm.get());
    if (set_up(p_config, pcm.get()) < 0 || snd_pcm_prepare(pcm.get()) < 0)
        return nullptr;
    return pcm;
}

int get_alsa_state()
{
    return alsa_state;
}
