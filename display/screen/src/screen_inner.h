// What the parts of the screen core share.
#pragma once

#include <array>

#include "screen/screen.h"

// Glyphs of the codes 32 to 131: 16 x 16 pixels, by column. Byte c of the 32 is the upper half of column c,
// byte 16 + c its lower half, bit 0 being the top.
constexpr unsigned FONT_FIRST = 32;
constexpr unsigned FONT_GLYPHS = 100;
constexpr unsigned FONT_CELL = 16;
constexpr unsigned FONT_GLYPH_BYTES = 32;
extern const std::array<std::uint8_t, FONT_GLYPHS * FONT_GLYPH_BYTES> screen_font_16x16;

// The same glyphs by row, bit 0 being the left.
extern const std::array<std::array<std::uint16_t, FONT_CELL>, FONT_GLYPHS> screen_font_rows;

extern screen_callouts screen_pf_co;
extern std::uint32_t active_screen;
extern std::uint32_t font_scale_factor;

inline bool screen_is_active()
{
    return active_screen != SCREEN_NONE;
}

// Many pixels at once, clipped to the screen.
void screen_fill(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h, std::uint32_t colour);
void screen_mask(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h,
                 const std::uint8_t* p_bits, std::uint32_t colour);
void screen_bgr(std::uint32_t x, std::uint32_t y, std::uint32_t w, const std::uint8_t* p_bgr);
