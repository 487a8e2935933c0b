// What the files of the module share.
#pragma once

#include <string>

#include "audio_v2/audio.h"
#include "transform/transform.h"

extern const audio_co* p_audio_co;

// Carries out an operation: the driver's, or the one of this module. Without a driver's table, `without`.
template <typename... Args>
int audio_run(int (*audio_co::*entry)(Args...), int (*generic)(Args...), int without, Args... args)
{
    if (p_audio_co == nullptr)
        return without;
    const auto own = p_audio_co->*entry;
    return own != nullptr ? own(args...) : generic(args...);
}

// The route of a slot; slot 0 is no route.
constexpr int SLOT_NONE = 0;
alsa_ctl_entry* audio_slot(const alsa_cfg& cfg, int slot);

constexpr unsigned audio_byte(audio_path path, int n)
{
    return path >> (8 * n) & 0xFF;
}

inline bool audio_dumps(const alsa_pcm_config& config)
{
    return (config.dump_samples & 0xFF) != 0;
}

constexpr const char* PATH_SAMPLES_OUT = "/system/samples_out.txt";
constexpr const char* PATH_SAMPLES_IN = "/system/samples_in.txt";

// Make a capture's buffer from its rate and frequency, cleared. 1, or 0.
int pcm_allocate_input_buf(alsa_pcm_config* p_config);

// Dumps: a line for each sample; 1, or 0 for a null argument or a file that can't be written whole. The
// second gives the real parts of `count` values.
int pcm_write_samples(const char* path, unsigned long count, const std::int16_t* p_samples);
int pcm_write_samples_fft(const char* path, unsigned long count, const double* p_values);

// Measures the newest block of a capture. 1; 0 without a tone in the measurable range, then frequency and
// level are 0; 0 too without memory, then the result stays as it is.
int audio_analyze(const alsa_pcm_config& config, audio_result* p_result);

// From a transform of `n` values; `channels` lie interleaved at `rate` Hz.
int audio_auan_calc(int n, const transform_value* p_x, unsigned rate, unsigned channels,
                    audio_result* p_result);
