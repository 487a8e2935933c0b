#include "audio/wav.h"

#include <algorithm>

namespace phone {

namespace {

constexpr std::size_t riff_size = 12;
constexpr std::size_t chunk_head = 8;
constexpr std::size_t format_size = 16;
constexpr unsigned format_pcm = 1;
constexpr unsigned sample_bytes = 2;

void add(std::string& text, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; i++)
        text += static_cast<char>(value >> (8 * i));
}

std::uint32_t number_at(std::string_view bytes, std::size_t at, int count)
{
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; i--)
        value = value << 8 | static_cast<std::uint8_t>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

std::string read_format(std::string_view chunk, wav& w)
{
    if (chunk.size() < format_size)
        return "its format is cut short";
    w.channels = number_at(chunk, 2, 2);
    w.rate = number_at(chunk, 4, 4);
    if (number_at(chunk, 0, 2) != format_pcm || number_at(chunk, 14, 2) != 8 * sample_bytes)
        return "only samples of 16 bits, not compressed, are understood";
    if (w.channels < 1 || w.channels > 2 || w.rate < 1 || w.rate > 384'000)
        return "one or two channels at up to 384000 Hz are wanted";
    return {};
}

} // namespace

std::string wav_bytes(const wav& w)
{
    const auto size = static_cast<std::uint32_t>(w.samples.size() * sample_bytes);
    const std::uint32_t frame = w.channels * sample_bytes;
    std::string text = "RIFF";
    add(text, size + 36, 4);
    text += "WAVEfmt ";
    add(text, format_size, 4);
    add(text, format_pcm, 2);
    add(text, w.channels, 2);
    add(text, w.rate, 4);
    add(text, w.rate * frame, 4);
    add(text, frame, 2);
    add(text, 8 * sample_bytes, 2);
    text += "data";
    add(text, size, 4);
    for (const std::int16_t sample : w.samples)
        add(text, static_cast<std::uint16_t>(sample), sample_bytes);
    return text;
}

std::string wav_read(std::string_view bytes, wav& w)
{
    w = {1, 0, {}};
    if (bytes.size() < riff_size || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE")
        return "it is no WAV file";
    std::size_t at = riff_size;
    while (bytes.size() - at >= chunk_head) {
        const std::string_view name = bytes.substr(at, 4);
        const std::string_view chunk = bytes.substr(at + chunk_head, number_at(bytes, at + 4, 4));
        if (name == "fmt ") {
            if (std::string wrong = read_format(chunk, w); !wrong.empty())
                return wrong;
        } else if (name == "data" && w.rate != 0) {
            w.samples.resize(chunk.size() / sample_bytes / w.channels * w.channels);
            for (std::size_t i = 0; i < w.samples.size(); i++)
                w.samples[i] = static_cast<std::int16_t>(number_at(chunk, i * sample_bytes, sample_bytes));
            return w.samples.empty() ? "it has no samples" : "";
        }
        at += std::min(chunk_head + chunk.size() + chunk.size() % 2, bytes.size() - at);
    }
    return "it has no samples";
}

std::vector<std::int16_t> wav_channel(const wav& w)
{
    std::vector<std::int16_t> channel;
    for (std::size_t i = 0; i < w.samples.size(); i += w.channels)
        channel.push_back(w.samples[i]);
    return channel;
}

} // namespace phone
