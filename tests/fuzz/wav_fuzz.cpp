// WAV files as a bench or a recording may give them to the phone: what is read from any bytes is whole
// frames, and what is written of it is read the same.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "audio/wav.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<char> exact(data, data + size); // a block of its own, so that one byte too many shows
    phone::wav first;
    if (!phone::wav_read({exact.data(), size}, first).empty())
        return 0;
    phone::wav second;
    if (first.samples.size() % first.channels != 0 ||
        !phone::wav_read(phone::wav_bytes(first), second).empty() || second.samples != first.samples ||
        second.rate != first.rate ||
        phone::wav_channel(first).size() * first.channels != first.samples.size())
        std::abort();
    return 0;
}
