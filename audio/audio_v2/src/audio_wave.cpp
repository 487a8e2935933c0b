// The buffers of both directions, and the text dumps of samples.
#include <charconv>
#include <cstdio>

#include "audio_inner.h"
#include "plat/plat.h"

namespace {

constexpr unsigned DEFAULT_FREQUENCY = 1000;
constexpr std::size_t LINE_SIZE = 400; // a double has at most 309 digits before its point

// Samples of one wave, whole; 0 when there is no such wave.
unsigned whole_wave(const alsa_pcm_config& config)
{
    return config.frequency != 0 ? static_cast<unsigned>(config.rate * (1.0 / config.frequency)) : 0;
}

template <typename Value, typename... Format>
void add_lines(std::string& text, const Value* p_values, unsigned long count, Format... format)
{
    char line[LINE_SIZE];
    for (unsigned long i = 0; i < count; i++) {
        text.append(line, std::to_chars(line, line + sizeof line, p_values[i], format...).ptr);
        text += '\n';
    }
}

int write_text(const char* path, const std::string& text)
{
    FILE* const file = plat_fopen(path, "w+");
    if (file == nullptr)
        return 0;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written ? 1 : 0;
}

} // namespace

int pcm_generate_wavebuf(alsa_pcm_config* p_config)
{
    p_config->period_samples = whole_wave(*p_config);
    p_config->period_size = p_config->period_samples * 2UL;
    if (p_config->period_size == 0 || p_config->period_size > p_config->buffer_size)
        return 0;
    p_config->periods = static_cast<unsigned>(p_config->buffer_size / p_config->period_size);
    if (alsa_wave_get(*p_config) != nullptr)
        return 0;
    auto wave = alsa_wave_make(p_config->period_samples, p_config->amplitude,
                               alsa_wave_reach(*p_config, p_config->period_samples));
    if (wave == nullptr)
        return 0;
    alsa_wave_set(p_config, std::move(wave));
    return 1;
}

int pcm_allocate_input_buf(alsa_pcm_config* p_config)
{
    if (p_config->frequency == 0)
        p_config->frequency = DEFAULT_FREQUENCY;
    p_config->period_samples = whole_wave(*p_config);
    p_config->period_size = p_config->period_samples * 2UL;
    p_config->buffer_size =
        2UL * p_config->period_samples * p_config->periods * p_config->channels; // in bytes
    p_config->transfer_frames = p_config->period_samples * p_config->analysis_periods;
    p_config->buffer.reset();
    if (p_config->buffer_size == 0)
        return 0;
    p_config->buffer.reset(static_cast<std::int16_t*>(std::calloc(p_config->buffer_size, 1)));
    return p_config->buffer != nullptr ? 1 : 0;
}

int pcm_write_samples(const char* path, unsigned long count, const std::int16_t* p_samples)
{
    if (path == nullptr || p_samples == nullptr)
        return 0;
    std::string text;
    add_lines(text, p_samples, count);
    return write_text(path, text);
}

int pcm_write_samples_fft(const char* path, unsigned long count, const double* p_values)
{
    if (path == nullptr || p_values == nullptr)
        return 0;
    std::string text;
    add_lines(text, p_values, count, std::chars_format::fixed, 6);
    return write_text(path, text);
}
