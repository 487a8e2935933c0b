// The reader of BMP files: uncompressed, 24 bits a pixel, rows bottom-up or top-down. Anything else, and any
// file that doesn't hold the rows that its header promises, is refused before a pixel is handed out.
#pragma once

#include <cstdint>

#include "heap/heap.h"

// A picture: top row first, rows without padding, a pixel as the bytes blue, green, red.
struct bmp_image {
    std::uint32_t width;
    std::uint32_t height;
    std::uint16_t bits; // a pixel; always 24
    heap_ptr<std::uint8_t> pixels;
};

void bmp_init();

// Loads the file into `*p_result`: 1, or 0 with `*p_result` unchanged. Only a regular file is opened; a
// picture of more than 256 MiB is refused like a malformed one.
int bmp_load(const char* path, bmp_image* p_result);
