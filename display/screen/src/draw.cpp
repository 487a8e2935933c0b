// Figures. Each is what its plain rule of single pixels gives, to the pixel, but drawn by rows and boxes.
#include "screen_inner.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "check/check.h"

namespace {

using std::uint32_t;

// Cuts [at, at + count) to [0, limit). Nothing wraps: what lies beyond 32 bits lies beyond the screen.
bool clip(uint32_t at, uint32_t* p_count, uint32_t limit)
{
    if (at >= limit || *p_count == 0)
        return false;
    *p_count = std::min(*p_count, limit - at);
    return true;
}

bool clip_box(uint32_t x, uint32_t y, uint32_t* p_w, uint32_t* p_h)
{
    return screen_is_active() && clip(x, p_w, screen_pf_co.width()) && clip(y, p_h, screen_pf_co.height());
}

} // namespace

void screen_fill(uint32_t x, uint32_t y, uint32_t w, uint32_t h, uint32_t colour)
{
    if (!clip_box(x, y, &w, &h))
        return;
    if (screen_pf_co.fill != nullptr) {
        screen_pf_co.fill(x, y, w, h, colour);
        return;
    }
    for (uint32_t j = 0; j < h; j++) {
        if (screen_pf_co.hline != nullptr) {
            screen_pf_co.hline(x, x + w - 1, y + j, colour);
            continue;
        }
        for (uint32_t i = 0; i < w; i++)
            screen_put_pixel(x + i, y + j, colour);
    }
}

void screen_rows(uint32_t x, uint32_t y, uint32_t w, uint32_t h, const screen_row_set& rows)
{
    if (!clip_box(x, y, &w, &h))
        return;
    if (screen_pf_co.rows != nullptr) {
        screen_pf_co.rows(x, y, w, h, rows);
        return;
    }
    for (uint32_t j = 0; j < h; j++) {
        const uint32_t* p_colours = rows.p_colours + std::size_t{rows.pitch} * (j / rows.repeat % rows.count);
        const uint32_t tint = rows.p_tints != nullptr ? rows.p_tints[j] : 0;
        for (uint32_t i = 0; i < w; i++)
            screen_put_pixel(x + i, y + j, p_colours[i] | tint);
    }
}

void screen_mask(uint32_t x, uint32_t y, uint32_t w, uint32_t h, const std::uint8_t* p_bits, uint32_t colour)
{
    if (!clip_box(x, y, &w, &h))
        return;
    if (screen_pf_co.mask != nullptr) {
        screen_pf_co.mask(x, y, w, h, p_bits, colour);
        return;
    }
    for (uint32_t j = 0; j < h; j++)
        for (uint32_t i = 0; i < w; i++)
            if ((p_bits[i / 8] >> (i % 8) & 1) != 0)
                screen_put_pixel(x + i, y + j, colour);
}

void screen_bgr(uint32_t x, uint32_t y, uint32_t w, const std::uint8_t* p_bgr)
{
    uint32_t one_row = 1;
    if (!clip_box(x, y, &w, &one_row))
        return;
    if (screen_pf_co.bgr != nullptr) {
        screen_pf_co.bgr(x, y, w, p_bgr);
        return;
    }
    for (uint32_t i = 0; i < w; i++, p_bgr += 3)
        screen_put_pixel(x + i, y, static_cast<uint32_t>(p_bgr[2] << 16 | p_bgr[1] << 8 | p_bgr[0]));
}

namespace {

uint32_t distance(uint32_t a, uint32_t b)
{
    return a > b ? a - b : b - a;
}

// The walk from pixel to pixel, in 16-bit working values. The minor axis steps at the first pixel already.
void walk(uint32_t x0, uint32_t y0, uint32_t x1, uint32_t y1, bool steep, uint32_t colour)
{
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const auto dx = static_cast<std::uint16_t>(x1 - x0);
    const auto dy = static_cast<std::uint16_t>(y0 < y1 ? y1 - y0 : y0 - y1);
    std::int16_t err = 0;
    uint32_t y = y0;
    HVT_CHECK(screen_pf_co.put_pixel != nullptr);
    for (uint32_t x = x0; x <= x1; x++) {
        screen_pf_co.put_pixel(steep ? y : x, steep ? x : y, colour);
        err = static_cast<std::int16_t>(err + dy);
        if (err > 0) {
            y += y0 < y1 ? 1 : -1u;
            err = static_cast<std::int16_t>(err - dx);
        }
    }
}

} // namespace

void screen_line(uint32_t x0, uint32_t y0, uint32_t x1, uint32_t y1, uint32_t colour)
{
    const bool steep = distance(y0, y1) > distance(x0, x1); // before anything is moved to the edge
    const uint32_t width = screen_width(), height = screen_height();
    if (width == 0 || height == 0)
        return;
    x0 = std::min(x0, width - 1);
    x1 = std::min(x1, width - 1);
    y0 = std::min(y0, height - 1);
    y1 = std::min(y1, height - 1);
    if (y0 == y1 && screen_pf_co.hline != nullptr)
        screen_pf_co.hline(x0, x1, y0, colour);
    else if (x0 == x1 && screen_pf_co.vline != nullptr)
        screen_pf_co.vline(y0, y1, x0, colour);
    else
        walk(x0, y0, x1, y1, steep, colour);
}

void screen_rectangle(uint32_t x, uint32_t y, uint32_t w, uint32_t h, uint32_t border, uint32_t fill,
                      int filled)
{
    const uint32_t width = screen_width(), height = screen_height();
    if (width == 0 || height == 0)
        return;
    const uint32_t right = x + w - 1, bottom = y + h - 1;
    const uint32_t x0 = std::min(x, width - 1), x1 = std::min(right, width - 1);
    const uint32_t y0 = std::min(y, height - 1), y1 = std::min(bottom, height - 1);
    if (filled != 0 && border == fill && w > 0 && h > 0 && x <= right &&
        y <= bottom) { // one box, at the edge too
        screen_fill(x0, y0, x1 - x0 + 1, y1 - y0 + 1, fill);
        return;
    }
    screen_line(x, y, right, y, border);
    screen_line(x, bottom, right, bottom, border);
    screen_line(x, y, x, bottom, border);
    screen_line(right, y, right, bottom, border);
    if (filled == 0 || w < 3 || h < 3 || y + 1 > bottom - 1)
        return;
    const uint32_t left_in = std::min(x + 1, width - 1), right_in = std::min(right - 1, width - 1);
    const uint32_t top_in = std::min(y + 1, height - 1), bottom_in = std::min(bottom - 1, height - 1);
    const auto [from, to] = std::minmax(left_in, right_in);
    screen_fill(from, top_in, to - from + 1, bottom_in - top_in + 1, fill);
}

namespace {

// One axis of an ellipse in the floats of its rule: the steps of 1 from centre - radius up to centre + radius
// that are on the screen. Step i is at i + fraction, and its pixel is that without the fraction; so -1 is on
// the screen too if there is a fraction.
struct ellipse_axis {
    ellipse_axis(uint32_t position, uint32_t size, uint32_t limit)
        : centre(static_cast<float>(position) - 1), radius(static_cast<float>(size) / 2)
    {
        const float from = centre - radius, to = centre + radius;
        fraction = from - std::floor(from);
        const float start = std::max(std::floor(from), fraction > 0 ? -1.0f : 0.0f);
        first = static_cast<int>(std::min<double>(start, limit)); // beyond the last when off the screen
        last = static_cast<int>(std::min(std::ceil(static_cast<double>(to) - fraction) - 1, limit - 1.0));
    }

    // The square of the distance of step i from the centre, in radii.
    float term(int i) const
    {
        const float d = static_cast<float>(i) + fraction - centre;
        return d * d / (radius * radius);
    }

    int nearest() const
    {
        const float i = std::floor(centre - fraction + 0.5f);
        return i <= static_cast<float>(first)  ? first
               : i >= static_cast<float>(last) ? last
                                               : static_cast<int>(i);
    }

    float centre, radius, fraction;
    int first, last;
};

} // namespace

void screen_ellipse(uint32_t cx, uint32_t cy, uint32_t w, uint32_t h, uint32_t colour, int filled)
{
    const uint32_t width = screen_width(), height = screen_height();
    if (filled == 0 || w == 0 || h == 0 || width == 0 || height == 0)
        return;
    const ellipse_axis x(cx, w, width), y(cy, h, height);
    if (x.first > x.last || y.first > y.last)
        return;
    const int middle = x.nearest();
    const float middle_term = x.term(middle);
    int left = middle, right = middle; // of the row before; the next row's ends are close by
    for (int row = y.first; row <= y.last; row++) {
        const float row_term = y.term(row);
        if (!(middle_term + row_term < 1))
            continue;
        while (left > x.first && x.term(left - 1) + row_term < 1)
            left--;
        while (!(x.term(left) + row_term < 1))
            left++;
        while (right < x.last && x.term(right + 1) + row_term < 1)
            right++;
        while (!(x.term(right) + row_term < 1))
            right--;
        const int column = std::max(left, 0);
        screen_fill(static_cast<uint32_t>(column), static_cast<uint32_t>(std::max(row, 0)),
                    static_cast<uint32_t>(std::max(right, 0) - column + 1), 1, colour);
    }
}

namespace {

// Font bits spread to two and three screen pixels each, by byte.
template <unsigned scale>
constexpr auto spread_table()
{
    struct {
        uint32_t row[256];
    } table{};
    for (unsigned byte = 0; byte < 256; byte++)
        for (unsigned bit = 0; bit < 8 * scale; bit++)
            table.row[byte] |= (byte >> (bit / scale) & 1) << bit;
    return table;
}
constexpr auto spread_1 = spread_table<1>();
constexpr auto spread_2 = spread_table<2>();
constexpr auto spread_3 = spread_table<3>();

constexpr unsigned MAX_SCALE = 3;
constexpr unsigned CHARS_A_STRIP = 32;

// The set pixels of some characters side by side, in one row of the font.
struct text_strip {
    std::uint8_t bits[CHARS_A_STRIP * MAX_SCALE * FONT_CELL / 8 + 8];

    // False when the row is empty.
    bool form(const char* text, std::size_t count, unsigned font_row)
    {
        const uint32_t* spread = font_scale_factor == 3   ? spread_3.row
                                 : font_scale_factor == 2 ? spread_2.row
                                                          : spread_1.row;
        const unsigned half = 8 * font_scale_factor;
        std::uint64_t any = 0;
        std::uint8_t* p = bits;
        for (std::size_t i = 0; i < count; i++, p += 2 * font_scale_factor) {
            const auto code = static_cast<unsigned char>(text[i]);
            const unsigned row =
                code < FONT_FIRST ? 0 : screen_font_rows[(code - FONT_FIRST) % FONT_GLYPHS][font_row];
            const std::uint64_t cell = spread[row & 0xFF] | static_cast<std::uint64_t>(spread[row >> 8])
                                                                << half;
            any |= cell;
            std::memcpy(p, &cell, sizeof cell); // what is too much is overwritten by the next one
        }
        return any != 0;
    }
};

void print_strip(const char* text, std::size_t count, uint32_t x, uint32_t y, uint32_t colour)
{
    const auto width = static_cast<uint32_t>(count * screen_char_width());
    text_strip strip;
    for (unsigned row = 0; row < FONT_CELL; row++) {
        if (!strip.form(text, count, row))
            continue;
        const uint32_t top = y + row * font_scale_factor;
        if (top + font_scale_factor > top) {
            screen_mask(x, top, width, font_scale_factor, strip.bits, colour);
            continue;
        }
        for (uint32_t i = 0; i < font_scale_factor;
             i++) // across the wrap: what is above the screen is off it
            screen_mask(x, top + i, width, 1, strip.bits, colour);
    }
}

} // namespace

void screen_print(const char* text, uint32_t x, uint32_t y, uint32_t colour)
{
    static_assert(std::endian::native == std::endian::little);
    const uint32_t width = screen_width(), height = screen_height(), cell = screen_char_width();
    if (!screen_is_active() || y + screen_char_height() >= height)
        return;
    for (std::size_t left = std::strlen(text); left > 0;) {
        std::size_t count = 0;
        while (count < left && count < CHARS_A_STRIP && static_cast<uint32_t>(x + count * cell) < width)
            count++;
        if (count > 0)
            print_strip(text, count, x, y, colour);
        else
            count = 1;
        text += count;
        left -= count;
        x += static_cast<uint32_t>(count * cell);
    }
}
