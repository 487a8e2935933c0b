// Pixels in the memory of the selected framebuffer. No write leaves the mapping, whatever a change of the
// video mode has made of the frame's size.
#include "screen_linux_inner.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "pixels.h"

namespace {

using std::uint32_t;
using std::uint64_t;
using std::uint8_t;

void (*put_rgb)(uint8_t* p, uint32_t colour);
const pixel_loops* loops = &pixel_loops_plain;
uint32_t last_rgb; // the colour converted last, and what it came to
uint32_t color;

uint32_t component(uint32_t value, const fb_bitfield& field)
{
    const uint32_t length = std::min(field.length, 8u);
    const uint32_t mask = ((1u << length) - 1) << (8 - length);
    return field.offset < 32 ? (value & 0xFF & mask) << field.offset : 0;
}

uint32_t convert(uint32_t rgb)
{
    if (rgb != last_rgb) {
        const fb_var_screeninfo& var = p_si->var;
        color = component(rgb >> 16, var.red) | component(rgb >> 8, var.green) | component(rgb, var.blue);
        last_rgb = rgb;
    }
    return color;
}

uint32_t rgb8888_to_rgb565(uint32_t rgb)
{
    return (rgb >> 8 & 0xF800) | (rgb >> 5 & 0x07E0) | (rgb >> 3 & 0x001F);
}

void put_rgb_generic(uint8_t* p, uint32_t rgb)
{
    switch (p_si->var.bits_per_pixel) {
    case 32: {
        const uint32_t word = convert(rgb);
        std::memcpy(p, &word, 4);
        break;
    }
    case 24: {
        const uint32_t word = convert(rgb);
        std::memcpy(p, &word, 3);
        break;
    }
    case 16: {
        const auto word = static_cast<std::uint16_t>(rgb8888_to_rgb565(rgb));
        std::memcpy(p, &word, 2);
        break;
    }
    default:
        break;
    }
}

void put_rgb_32(uint8_t* p, uint32_t rgb)
{
    const uint32_t word = convert(rgb);
    std::memcpy(p, &word, 4);
}

uint64_t offset_of(uint32_t x, uint32_t y)
{
    return static_cast<uint64_t>(y) * p_si->fix.line_length + uint64_t{p_si->var.bits_per_pixel} * x / 8;
}

uint64_t room()
{
    return p_si->fix.smem_len - static_cast<uint64_t>(p_si->draw_base - p_si->map_base);
}

// How many of `h` rows from `y` on have their pixels below column `x_end` in memory.
uint32_t rows_in_memory(uint32_t x_end, uint32_t y, uint32_t h)
{
    const uint64_t all = room();
    if (h == 0 || offset_of(x_end, y + h - 1) <= all)
        return h;
    const uint64_t first = offset_of(x_end, y);
    return first > all ? 0 : static_cast<uint32_t>((all - first) / p_si->fix.line_length + 1);
}

uint8_t* pixel_at(uint32_t x, uint32_t y)
{
    return p_si->draw_base + offset_of(x, y);
}

uint32_t* word_at(uint32_t x, uint32_t y)
{
    return reinterpret_cast<uint32_t*>(pixel_at(x, y));
}

void platform_screen_put_pixel(uint32_t x, uint32_t y, uint32_t colour)
{
    if (x < p_si->var.xres && y < p_si->var.yres && offset_of(x + 1, y) <= room())
        put_rgb(pixel_at(x, y), colour);
}

void platform_screen_hline_generic(uint32_t x0, uint32_t x1, uint32_t y, uint32_t colour)
{
    if (x0 > x1)
        std::swap(x0, x1);
    if (rows_in_memory(x1 + 1, y, 1) == 0)
        return;
    for (uint32_t x = x0; x <= x1; x++)
        put_rgb(pixel_at(x, y), colour);
}

void platform_screen_vline_generic(uint32_t y0, uint32_t y1, uint32_t x, uint32_t colour)
{
    if (y0 > y1)
        std::swap(y0, y1);
    const uint32_t rows = rows_in_memory(x + 1, y0, y1 - y0 + 1);
    for (uint32_t y = y0; y < y0 + rows; y++)
        put_rgb(pixel_at(x, y), colour);
}

void platform_screen_clear_generic(uint32_t colour)
{
    for (uint32_t x = 0; x < p_si->var.xres; x++)
        platform_screen_vline_generic(0, p_si->var.yres - 1, x, colour);
}

void platform_screen_fill_32(uint32_t x, uint32_t y, uint32_t w, uint32_t h, uint32_t colour)
{
    const uint32_t word = convert(colour), line = p_si->fix.line_length;
    const auto fill = loops->fill;
    h = rows_in_memory(x + w, y, h);
    uint8_t* p = pixel_at(x, y);
    for (uint32_t j = 0; j < h; j++, p += line)
        fill(reinterpret_cast<uint32_t*>(p), w, word);
}

void platform_screen_hline_32(uint32_t x0, uint32_t x1, uint32_t y, uint32_t colour)
{
    if (x0 > x1)
        std::swap(x0, x1);
    if (rows_in_memory(x1 + 1, y, 1) != 0)
        loops->fill(word_at(x0, y), x1 - x0 + 1, convert(colour));
}

void platform_screen_vline_32(uint32_t y0, uint32_t y1, uint32_t x, uint32_t colour)
{
    if (y0 > y1)
        std::swap(y0, y1);
    const uint32_t rows = rows_in_memory(x + 1, y0, y1 - y0 + 1), line = p_si->fix.line_length;
    const uint32_t word = convert(colour);
    uint8_t* p = pixel_at(x, y0);
    for (uint32_t j = 0; j < rows; j++, p += line)
        std::memcpy(p, &word, sizeof word);
}

// From the first word up to the end of the last row, what lies between the rows included.
void platform_screen_clear_32(uint32_t colour)
{
    const uint32_t rows = rows_in_memory(p_si->var.xres, 0, p_si->var.yres);
    if (rows > 0)
        loops->fill(word_at(0, 0), offset_of(p_si->var.xres, rows - 1) / 4, convert(colour));
}

void platform_screen_mask_32(uint32_t x, uint32_t y, uint32_t w, uint32_t h, const uint8_t* p_bits,
                             uint32_t colour)
{
    const uint32_t word = convert(colour), line = p_si->fix.line_length;
    const auto mask = loops->mask;
    h = rows_in_memory(x + w, y, h);
    uint8_t* p = pixel_at(x, y);
    for (uint32_t j = 0; j < h; j++, p += line)
        mask(reinterpret_cast<uint32_t*>(p), w, p_bits, word);
}

// The next two are for the one layout that needs no conversion.
void platform_screen_rows_rgb(uint32_t x, uint32_t y, uint32_t w, uint32_t h, const screen_row_set& rows)
{
    const uint32_t line = p_si->fix.line_length;
    const auto copy = loops->copy;
    h = rows_in_memory(x + w, y, h);
    uint8_t* p = pixel_at(x, y);
    uint32_t at = 0, times = 0; // the row of the set, and how often it has been drawn
    for (uint32_t j = 0; j < h; j++, p += line) {
        const uint32_t tint = rows.p_tints != nullptr ? rows.p_tints[j] & 0xFFFFFF : 0;
        copy(reinterpret_cast<uint32_t*>(p), rows.p_colours + std::size_t{rows.pitch} * at, w, tint);
        if (++times == rows.repeat) {
            times = 0;
            at = at + 1 < rows.count ? at + 1 : 0;
        }
    }
}

void platform_screen_bgr_rgb(uint32_t x, uint32_t y, uint32_t w, const uint8_t* p_bgr)
{
    if (rows_in_memory(x + w, y, 1) != 0)
        loops->bgr(word_at(x, y), p_bgr, w);
}

bool is_byte_at(const fb_bitfield& field, uint32_t offset)
{
    return field.length == 8 && field.offset == offset;
}

bool is_plain_rgb(const fb_var_screeninfo& var)
{
    return is_byte_at(var.red, 16) && is_byte_at(var.green, 8) && is_byte_at(var.blue, 0);
}

// A slot can be made the active one without a framebuffer behind it: what is drawn there is lost.
void draw_nowhere(screen_callouts* p_co)
{
    p_co->put_pixel = [](uint32_t, uint32_t, uint32_t) {};
    p_co->hline = [](uint32_t, uint32_t, uint32_t, uint32_t) {};
    p_co->vline = [](uint32_t, uint32_t, uint32_t, uint32_t) {};
    p_co->clear = [](uint32_t) {};
    p_co->fill = nullptr;
    p_co->mask = nullptr;
    p_co->rows = nullptr;
    p_co->bgr = nullptr;
}

} // namespace

void draw_select(screen_callouts* p_co)
{
    if (p_si == nullptr) {
        draw_nowhere(p_co);
        return;
    }
    const bool words = p_si->var.bits_per_pixel == 32;
    const bool plain = words && is_plain_rgb(p_si->var);
    loops = &pixel_loops_get();
    last_rgb = color = 0; // black is 0 in every layout
    put_rgb = words ? put_rgb_32 : put_rgb_generic;
    p_co->put_pixel = platform_screen_put_pixel;
    p_co->hline = words ? platform_screen_hline_32 : platform_screen_hline_generic;
    p_co->vline = words ? platform_screen_vline_32 : platform_screen_vline_generic;
    p_co->clear = words ? platform_screen_clear_32 : platform_screen_clear_generic;
    p_co->fill = words ? platform_screen_fill_32 : nullptr;
    p_co->mask = words ? platform_screen_mask_32 : nullptr;
    p_co->rows = plain ? platform_screen_rows_rgb : nullptr;
    p_co->bgr = plain ? platform_screen_bgr_rgb : nullptr;
}

bool draw_two_pages(const screen_linux_info& info)
{
    return uint64_t{2} * info.fix.line_length * info.var.yres <= info.fix.smem_len;
}
