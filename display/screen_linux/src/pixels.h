// The inner loops of drawing: runs of pixels in memory. The best form for this processor is chosen once.
#pragma once

#include <cstddef>
#include <cstdint>

struct pixel_loops {
    // `n` words of one value.
    void (*fill)(std::uint32_t* p, std::size_t n, std::uint32_t word);
    // The low 24 bits of each word, OR-ed with `tint`.
    void (*copy)(std::uint32_t* p, const std::uint32_t* p_src, std::size_t n, std::uint32_t tint);
    // Word i takes the value where bit i % 8 of byte i / 8 is set; whole groups of 8 bytes are read.
    void (*mask)(std::uint32_t* p, std::size_t n, const std::uint8_t* p_bits, std::uint32_t word);
    // Blue, green, red bytes to words 0x00RRGGBB.
    void (*bgr)(std::uint32_t* p, const std::uint8_t* p_src, std::size_t n);
};

extern const pixel_loops pixel_loops_plain;

// The loops to use.
const pixel_loops& pixel_loops_get();
