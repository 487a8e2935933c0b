// A framebuffer for unit tests, on the fake platform: memory of any size and layout behind /dev/graphics/fb0.
#pragma once

#include <cstdint>
#include <linux/fb.h>
#include <vector>

struct panel_shape {
    unsigned width, height, bits = 32, pages = 1;
    unsigned line_padding = 0; // bytes between two rows
    fb_bitfield red = {16, 8, 0}, green = {8, 8, 0}, blue = {0, 8, 0};
};

extern std::vector<fb_var_screeninfo> panel_fake_modes; // which were set, since the start

// A new fake platform with this panel, started as the main screen without the start screen.
void panel_fake_start(const panel_shape& shape);

// The word of pixel (x, y) of the page that is drawn on, as bytes of the layout's depth, low byte first.
std::uint32_t panel_fake_pixel(unsigned x, unsigned y);

// The whole page that is drawn on, row by row.
std::vector<std::uint32_t> panel_fake_picture();

// True when memory outside the pixels of the panel is as it was at the start.
bool panel_fake_rest_untouched();
