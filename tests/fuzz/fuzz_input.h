// What the targets share: the input as a file gives its bytes, and the end of a run that shows a fault.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "plat/plat.h"
#include "plat_linux/plat_linux.h"

constexpr int the_fd = 1000;

inline const std::uint8_t* input;
inline std::size_t input_size;
inline std::size_t position;

// Aborts, so that the fuzzer keeps the input.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

inline void take_input(const std::uint8_t* data, std::size_t size)
{
    input = data;
    input_size = size;
    position = 0;
}

// The next bytes, at most `most` of them; 0 at the end.
inline std::size_t give(void* buf, std::size_t size, std::size_t most)
{
    const std::size_t n = std::min({size, input_size - std::min(position, input_size), most});
    if (n > 0)
        std::memcpy(buf, input + position, n);
    position += n;
    return n;
}

// The host's calls, with every path a file that can be opened again and again, and takes what is written.
// A target says what its reads give.
inline plat_callouts file_callouts()
{
    plat_callouts co = plat_linux_co;
    co.open = [](const char*, int, mode_t) {
        position = 0;
        return the_fd;
    };
    co.close = [](int) { return 0; };
    co.write = [](int, const void*, std::size_t size) { return static_cast<ssize_t>(size); };
    co.nanosleep = [](const timespec*, timespec*) { return 0; };
    return co;
}
