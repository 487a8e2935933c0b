// Every pattern of `dpat` against its plain rule, on odd and tiny screens.
#include <gtest/gtest.h>
#include <string>

#include "f_screen/f_screen.h"
#include "screen/screen.h"
#include "unit/display/panel_fake.h"
#include "unit/display/plain_canvas.h"
#include "unit/line_spy.h"

namespace {

using std::uint32_t;

constexpr uint32_t old_colour = 0x123456; // the picture before the pattern
constexpr uint32_t white = 0xFFFFFF, black = 0, grey = 0x7F7F7F, magenta = 0xFF00FF;

void paint(plain_canvas& c, auto colour_of)
{
    for (uint32_t y = 0; y < c.h; y++)
        for (uint32_t x = 0; x < c.w; x++)
            c.put(x, y, colour_of(x, y));
}

void chess(plain_canvas& c, uint32_t n, uint32_t odd, uint32_t even)
{
    paint(c, [=](uint32_t x, uint32_t y) { return (x / n + y / n) % 2 != 0 ? odd : even; });
}

void stripes(plain_canvas& c, bool rows, uint32_t odd, uint32_t even)
{
    paint(c, [=](uint32_t x, uint32_t y) { return (rows ? y : x) % 2 != 0 ? odd : even; });
}

// Black to `mask` (white, red, green or blue) at step / steps.
uint32_t ramp(uint32_t mask, uint32_t step, uint32_t steps)
{
    return steps == 0 ? 0 : mask & (step * 255 / steps) * 0x010101;
}

void tv(plain_canvas& c)
{
    const uint32_t w = c.w, cw = (w + 1) / 8, rh = (c.h + 2) / 8, q = (w + 1) / 4;
    const uint32_t row_2[] = {white, 0x00FF00, 0x0000FF, 0xFF0000},
                   row_3[] = {black, magenta, 0xFFFF7F, 0x00FFFF};
    for (uint32_t i = 0; i < 8; i++)
        c.rect(i * cw, 0, cw, rh, i * 256 / 15 * 0x010101);
    for (uint32_t i = 0; i < 8; i++)
        c.rect(i * cw, rh, cw, rh, (255 - i * 256 / 15) * 0x010101);
    for (uint32_t i = 0; i < 4; i++)
        c.rect(i * q, 2 * rh, q, rh, row_2[i]);
    for (uint32_t i = 0; i < 4; i++)
        c.rect(i * q, 3 * rh, q, rh, row_3[i]);
    for (uint32_t row : {4, 5}) {
        c.rect(0, row * rh, 3, rh, row == 4 ? black : white);
        c.rect(3, row * rh, w - 5, rh, row == 4 ? white : black);
        c.rect(w - 2, row * rh, 3, rh, row == 4 ? black : white);
    }
    c.rect(0, 6 * rh, w + 1, rh, white);
    for (uint32_t x = 9; x + 10 <= w; x++)
        for (uint32_t y = 0; y < rh; y++)
            if ((x % 3 == 0 && y >= rh / 2) || (x % 3 == 1 && y < rh / 2))
                c.put(x, 6 * rh + y, black);
    c.rect(0, 7 * rh, w + 1, rh, grey);
}

void bars(plain_canvas& c)
{
    const uint32_t a = c.w / 3, green = a + (c.w % 3 == 2), blue = a + (c.w % 3 != 0);
    c.rect(0, 0, a, c.h, 0xFF0000);
    c.rect(a, 0, green, c.h, 0x00FF00);
    c.rect(a + green, 0, blue, c.h, 0x0000FF);
}

void grid(plain_canvas& c)
{
    c.rect(0, 0, c.w, c.h, white);
    for (uint32_t y : {48, 256, 427, 599, 806})
        for (uint32_t x : {80, 240, 400})
            c.ellipse(x, y, 76, 76, x == 240 && y == 427 ? 0xFF0000 : grey);
    for (uint32_t y : {47, 255, 426, 597, 805})
        c.rect(0, y, 480, 2, black);
    for (uint32_t x : {79, 239, 399})
        c.rect(x, 0, 2, 854, black);
    c.line(0, 0, 479, 853, black);
    c.line(479, 0, 0, 853, black);
}

void crosstalk(plain_canvas& c, bool upright)
{
    const uint32_t w = c.w, h = c.h;
    const uint32_t m = w / 2 - w / 7, cw = w * 2 / 7, rh = h * 2 / 5, r = (w / 2) + w / 7, b = h / 5;
    if (upright) {
        c.rect(0, 0, m, h, grey);
        c.rect(m, 0, cw, rh, white);
        c.rect(m, rh, cw, b, grey);
        c.rect(m, h * 3 / 5, cw, rh, white);
        c.rect(r, 0, m, h, grey);
        return;
    }
    c.rect(0, 0, w, rh, grey);
    c.rect(0, rh, m, b, white);
    c.rect(m, rh, cw, b, grey);
    c.rect(r, rh, m, b, white);
    c.rect(0, h * 3 / 5, w, rh, grey);
}

void diagonal(plain_canvas& c, uint32_t mask)
{
    for (uint32_t k = 0; k < c.w + c.h; k++) {
        const uint32_t colour = ramp(mask, k % 256, 255);
        if (k < c.w)
            c.line(0, k, k, 0, colour);
        else if (k < c.h)
            c.line(0, k, c.w - 1, k - c.w, colour);
        else
            c.line(k - c.h, c.h - 1, c.w - 1, k - c.w, colour);
    }
}

void uniformity(plain_canvas& c)
{
    const uint32_t w = c.w, h = c.h, y = h / 2, x = w / 2;
    c.rectangle(0, 0, w, h, white, black, true);
    for (const auto& [row, colour] : {std::pair{y - h * 2 / 5, white},
                                      {y - h / 5, 0xC0C0C0u},
                                      {y, white},
                                      {y + h / 5, 0xC0C0C0u},
                                      {y + h * 2 / 5, white}})
        c.line(0, row, w - 1, row, colour);
    for (uint32_t column : {x - w / 3, x, x + w / 3})
        c.line(column, 0, column, h - 1, white);
}

void marks(plain_canvas& c, uint32_t diameter, uint32_t square, uint32_t right, uint32_t bottom)
{
    c.rect(0, 0, c.w, c.h, black);
    c.ellipse(c.w / 2, c.h / 2, diameter, diameter, white);
    for (uint32_t x : {0u, right})
        for (uint32_t y : {0u, bottom})
            c.rect(x, y, square, square, white);
}

void cube(plain_canvas& c)
{
    const uint32_t quarter = c.h / 4;
    paint(c, [&](uint32_t x, uint32_t y) {
        const uint32_t red = c.w > 1 ? x * 255 / (c.w - 1) : 0, green = c.h > 1 ? y * 255 / (c.h - 1) : 0;
        // a fraction of whole numbers needs no floating point
        const uint32_t blue = quarter > 1 ? y % quarter * 255 / (quarter - 1) : 0;
        return red << 16 | green << 8 | blue;
    });
}

void window(plain_canvas& c, uint32_t inner, uint32_t outer)
{
    c.rect(0, 0, c.w, c.h, outer);
    c.rect(c.w / 4, c.h / 4, c.w / 2, c.h / 2, inner);
}

void gradient(plain_canvas& c, uint32_t mode)
{
    const uint32_t mask[] = {white, 0xFF0000, 0x00FF00, 0x0000FF};
    if (mode >= 40)
        diagonal(c, mask[mode - 40]);
    else if (mode >= 36)
        paint(c, [&](uint32_t, uint32_t y) { return ramp(mask[mode - 36], y, c.h - 1); });
    else
        paint(c, [&](uint32_t x, uint32_t) { return ramp(mask[mode - 32], x, c.w - 1); });
}

void halves(plain_canvas& c)
{
    paint(c, [&](uint32_t x, uint32_t) { return x < c.w / 2 ? 0x00FF00 : magenta; });
}

void green_ramps(plain_canvas& c)
{
    paint(c, [&](uint32_t x, uint32_t y) {
        return (y < c.h / 2 ? x * 256 / c.w : (c.w - x) * 256 / c.w) << 8; // the first of them reaches red
    });
}

void plain(plain_canvas& c, uint32_t mode)
{
    switch (mode) {
        // clang-format off
    case 0: return tv(c);
    case 1: case 20: return chess(c, 1, white, black);
    case 2: case 21: return chess(c, 1, black, white);
    case 3: return c.rect(0, 0, c.w, c.h, white);
    case 4: return c.rect(0, 0, c.w, c.h, black);
    case 5: return c.rectangle(0, 0, c.w, c.h, white, black, true);
    case 6: return c.rect(0, 0, c.w, c.h, grey);
    case 7: return bars(c);
    case 8: return green_ramps(c);
    case 10: case 11: case 12: return c.rect(0, 0, c.w, c.h, 0xFF0000 >> 8 * (mode - 10));
    case 14: return c.rect(0, 0, c.w, c.h, black);
    case 15: return grid(c);
    case 16: case 17: return crosstalk(c, mode == 16);
    case 18: return chess(c, 16, white, black);
    case 19: return chess(c, 16, 0xA0A0FF, grey);
    case 22: return chess(c, 2, white, black);
    case 23: return chess(c, 2, black, white);
    case 24: return stripes(c, true, grey, white);
    case 25: return stripes(c, true, white, grey);
    case 26: return stripes(c, true, black, white);
    case 27: return stripes(c, true, white, black);
    case 28: return stripes(c, false, black, white);
    case 29: return stripes(c, false, white, black);
    case 30: return window(c, white, black);
    case 31: return window(c, black, white);
    case 44: return uniformity(c);
    case 45: return stripes(c, false, 0x55AA55, 0xAA55AA);
    case 46: return marks(c, 56, 34, 206, 286);
    case 47: return marks(c, 68, 42, 278, 438);
    case 48: return cube(c);
    case 49: return halves(c);
    default: if (mode >= 32 && mode <= 43) gradient(c, mode);
        // clang-format on
    }
}

int send(const std::string& line)
{
    line_spy spy;
    f_screen_init();
    return spy.say(line.c_str());
}

TEST(Pattern, EveryOneIsItsPlainRule)
{
    constexpr panel_shape shapes[] = {
        {.width = 1, .height = 1},   {.width = 1, .height = 9},     {.width = 9, .height = 1},
        {.width = 2, .height = 2},   {.width = 5, .height = 4},     {.width = 33, .height = 33},
        {.width = 40, .height = 19}, {.width = 239, .height = 321}, {.width = 500, .height = 900},
    };
    for (const panel_shape& shape : shapes) {
        for (uint32_t mode = 0; mode < 52; mode++) {
            panel_fake_start(shape);
            screen_clear(old_colour);
            plain_canvas canvas(shape.width, shape.height, old_colour);
            plain(canvas, mode);
            ASSERT_EQ(send("dpat=" + std::to_string(mode)), DCP_OK);
            EXPECT_EQ(panel_fake_picture(), canvas.pixels)
                << "dpat=" << mode << " on " << shape.width << "x" << shape.height;
        }
    }
}

} // namespace
