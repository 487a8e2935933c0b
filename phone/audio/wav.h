// WAV files of 16-bit samples: what desk players play, and what the phone's own tools record and play.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

struct wav {
    unsigned channels = 1;
    unsigned rate = 0;
    std::vector<std::int16_t> samples; // interleaved
};

std::string wav_bytes(const wav& w);

// Reads a file's bytes, whatever they are; the result is empty, or what is wrong with them.
std::string wav_read(std::string_view bytes, wav& w);

// The first channel alone.
std::vector<std::int16_t> wav_channel(const wav& w);

} // namespace phone
