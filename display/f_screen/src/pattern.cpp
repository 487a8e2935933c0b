// The test patterns of `dpat`. Coordinates are unsigned, so that a box reaching past the edge of a tiny
// screen comes out as its lines are moved in.
#include "f_screen_inner.h"

#include <algorithm>
#include <iterator>

#include "screen/screen.h"

namespace {

using std::uint32_t;

constexpr uint32_t BLACK = 0x000000;
constexpr uint32_t WHITE = 0xFFFFFF;
constexpr uint32_t RED = 0xFF0000;
constexpr uint32_t GREEN = 0x00FF00;
constexpr uint32_t BLUE = 0x0000FF;
constexpr uint32_t MAGENTA = 0xFF00FF;
constexpr uint32_t YELLOW = 0xFFFF7F;
constexpr uint32_t CYAN = 0x00FFFF;
constexpr uint32_t GREY = 0x7F7F7F;
constexpr uint32_t LIGHT_GREY = 0xC0C0C0;
constexpr uint32_t PALE_BLUE = 0xA0A0FF;
constexpr uint32_t GREENISH = 0x55AA55;
constexpr uint32_t PURPLISH = 0xAA55AA;

constexpr uint32_t grey(uint32_t level)
{
    return (level & 0xFF) * 0x010101;
}

// What a pattern draws with: the size of the screen and the two values of its row in the table.
struct canvas {
    uint32_t w, h;
    uint32_t a, b;
};

void rect(uint32_t x, uint32_t y, uint32_t w, uint32_t h, uint32_t colour)
{
    screen_rectangle(x, y, w, h, colour, colour, 1);
}

void circle(uint32_t x, uint32_t y, uint32_t diameter, uint32_t colour)
{
    screen_ellipse(x, y, diameter, diameter, colour, 1);
}

// Screens are drawn in tiles of this many columns and rows; all that are sold fit into one.
constexpr uint32_t TILE = 4096;

// Calls draw(x, y, width, height) for each tile of a box at (0, top).
template <class Draw>
void each_tile(uint32_t w, uint32_t top, uint32_t h, Draw draw)
{
    for (uint32_t y = 0; y < h; y += TILE)
        for (uint32_t x = 0; x < w; x += TILE)
            draw(x, top + y, std::min(TILE, w - x), std::min(TILE, h - y));
}

// `h` rows from `top` on, in which a column has the colour colour_of(column).
template <class Colour>
void columns(uint32_t w, uint32_t top, uint32_t h, Colour colour_of)
{
    each_tile(w, top, h, [=](uint32_t x, uint32_t y, uint32_t tile_w, uint32_t tile_h) {
        alignas(64) uint32_t colours[TILE];
        for (uint32_t i = 0; i < tile_w; i++)
            colours[i] = colour_of(x + i);
        screen_rows(x, y, tile_w, tile_h, {colours});
    });
}

void draw_plain(const canvas& c, uint32_t)
{
    rect(0, 0, c.w, c.h, c.a);
}

void draw_level(const canvas& c, uint32_t level)
{
    rect(0, 0, c.w, c.h, grey(level));
}

// Cells of n pixels, colour a where the sum of a cell's column and row is odd.
template <uint32_t n>
void draw_chess(const canvas& c, uint32_t)
{
    static_assert(TILE % (2 * n) == 0); // so that every tile begins alike
    alignas(64) uint32_t rows[2][TILE];
    for (uint32_t i = 0; i < std::min(c.w, TILE); i++) {
        const bool odd = i / n % 2 != 0;
        rows[0][i] = odd ? c.a : c.b;
        rows[1][i] = odd ? c.b : c.a;
    }
    each_tile(c.w, 0, c.h, [&rows](uint32_t x, uint32_t y, uint32_t w, uint32_t h) {
        screen_rows(x, y, w, h, {rows[0], TILE, 2, n});
    });
}

void draw_rows(const canvas& c, uint32_t)
{
    for (uint32_t y = 0; y < c.h; y++)
        screen_line(0, y, c.w - 1, y, y % 2 != 0 ? c.a : c.b);
}

void draw_columns(const canvas& c, uint32_t)
{
    columns(c.w, 0, c.h, [&c](uint32_t x) { return x % 2 != 0 ? c.a : c.b; });
}

void draw_border(const canvas& c, uint32_t)
{
    screen_rectangle(0, 0, c.w, c.h, c.a, c.b, 1);
}

// A box of half the size in the middle.
void draw_window(const canvas& c, uint32_t)
{
    rect(0, 0, c.w, c.h, c.b);
    rect(c.w / 4, c.h / 4, c.w / 2, c.h / 2, c.a);
}

void draw_bars(const canvas& c, uint32_t)
{
    const uint32_t third = c.w / 3, rest = c.w % 3;
    const uint32_t green_w = third + (rest == 2 ? 1 : 0), blue_w = third + (rest != 0 ? 1 : 0);
    rect(0, 0, third, c.h, RED);
    rect(third, 0, green_w, c.h, GREEN);
    rect(third + green_w, 0, blue_w, c.h, BLUE);
}

void draw_green_ramps(const canvas& c, uint32_t)
{
    columns(c.w, 0, c.h / 2, [&c](uint32_t x) { return ((x * 256) / c.w) << 8; });
    columns(c.w, c.h / 2, c.h - c.h / 2, [&c](uint32_t x) { return (((c.w - x) * 256) / c.w) << 8; });
}

// The lower half of a row of blocks has black columns at one third of the places, the upper half at another.
void draw_comb(uint32_t w, uint32_t y, uint32_t rh)
{
    for (uint32_t x = 9; x + 10 <= w; x++) {
        const uint32_t top = x % 3 == 0 ? y + rh / 2 : y;
        const uint32_t end = x % 3 == 0 ? y + rh : y + rh / 2;
        if (x % 3 != 2 && top < end)
            screen_line(x, top, x, end - 1, BLACK);
    }
}

void draw_tv(const canvas& c, uint32_t)
{
    constexpr uint32_t row_2[] = {WHITE, GREEN, BLUE, RED};
    constexpr uint32_t row_3[] = {BLACK, MAGENTA, YELLOW, CYAN};
    const uint32_t w = c.w, cw = (w + 1) / 8, rh = (c.h + 2) / 8, q = (w + 1) / 4;
    for (uint32_t i = 0; i < 8; i++)
        rect(i * cw, 0, cw, rh, grey((i * 256) / 15));
    for (uint32_t i = 0; i < 8; i++)
        rect(i * cw, rh, cw, rh, grey(255 - (i * 256) / 15));
    for (uint32_t i = 0; i < 4; i++)
        rect(i * q, 2 * rh, q, rh, row_2[i]);
    for (uint32_t i = 0; i < 4; i++)
        rect(i * q, 3 * rh, q, rh, row_3[i]);
    for (uint32_t row = 4; row < 6; row++) {
        const uint32_t edge = row == 4 ? BLACK : WHITE, middle = row == 4 ? WHITE : BLACK;
        rect(0, row * rh, 3, rh, edge);
        rect(3, row * rh, w - 5, rh, middle);
        rect(w - 2, row * rh, 3, rh, edge);
    }
    rect(0, 6 * rh, w + 1, rh, WHITE);
    draw_comb(w, 6 * rh, rh);
    rect(0, 7 * rh, w + 1, rh, GREY);
}

// For a panel of 480 by 854.
void draw_grid(const canvas& c, uint32_t)
{
    constexpr uint32_t columns[] = {80, 240, 400};
    constexpr uint32_t rows[] = {48, 256, 427, 599, 806};
    constexpr uint32_t bars[] = {47, 255, 426, 597, 805};
    rect(0, 0, c.w, c.h, WHITE);
    for (const uint32_t y : rows)
        for (const uint32_t x : columns)
            circle(x, y, 76, x == columns[1] && y == rows[2] ? RED : GREY);
    for (const uint32_t y : bars)
        rect(0, y, 480, 2, BLACK);
    for (const uint32_t x : columns)
        rect(x - 1, 0, 2, 854, BLACK);
    screen_line(0, 0, 479, 853, BLACK);
    screen_line(479, 0, 0, 853, BLACK);
}

void draw_crosstalk(const canvas& c, bool upright)
{
    const uint32_t w = c.w, h = c.h;
    const uint32_t m = w / 2 - w / 7, cw = w * 2 / 7, rh = h * 2 / 5, r = w / 2 + w / 7, b = h / 5;
    if (upright) {
        rect(0, 0, m, h, GREY);
        rect(m, 0, cw, rh, WHITE);
        rect(m, rh, cw, b, GREY);
        rect(m, h * 3 / 5, cw, rh, WHITE);
        rect(r, 0, m, h, GREY);
    } else {
        rect(0, 0, w, rh, GREY);
        rect(0, rh, m, b, WHITE);
        rect(m, rh, cw, b, GREY);
        rect(r, rh, m, b, WHITE);
        rect(0, h * 3 / 5, w, rh, GREY);
    }
}

void draw_crosstalk_upright(const canvas& c, uint32_t)
{
    draw_crosstalk(c, true);
}

void draw_crosstalk_level(const canvas& c, uint32_t)
{
    draw_crosstalk(c, false);
}

// The colour `step` of `steps` between a and b, component by component; a when there are no steps.
uint32_t between(uint32_t a, uint32_t b, uint32_t step, uint32_t steps)
{
    uint32_t colour = 0;
    for (int shift = 0; shift < 24 && steps > 0; shift += 8) {
        const int from = a >> shift & 0xFF, to = b >> shift & 0xFF;
        const int value = from + static_cast<int>(step) * (to - from) / static_cast<int>(steps);
        colour |= static_cast<uint32_t>(value) << shift;
    }
    return steps > 0 ? colour : a;
}

void draw_gradient_level(const canvas& c, uint32_t)
{
    columns(c.w, 0, c.h, [&c](uint32_t x) { return between(c.a, c.b, x, c.w - 1); });
}

void draw_gradient_upright(const canvas& c, uint32_t)
{
    each_tile(c.w, 0, c.h, [&c](uint32_t x, uint32_t y, uint32_t w, uint32_t h) {
        alignas(64) static constexpr uint32_t black[TILE] = {};
        uint32_t tints[TILE];
        for (uint32_t j = 0; j < h; j++)
            tints[j] = between(c.a, c.b, y + j, c.h - 1);
        screen_rows(x, y, w, h, {.p_colours = black, .p_tints = tints});
    });
}

constexpr uint32_t DIAGONALS = 256; // until the ramp repeats

uint32_t diagonal_colour(const canvas& c, uint32_t k)
{
    return between(c.a, c.b, k % DIAGONALS, DIAGONALS - 1);
}

// The lines of the diagonal gradient, one behind the other: each ends on the edges of the screen.
void draw_diagonal_lines(const canvas& c)
{
    for (uint32_t k = 0; k < c.w + c.h; k++) {
        const uint32_t colour = diagonal_colour(c, k);
        if (k < c.w)
            screen_line(0, k, k, 0, colour);
        else if (k < c.h)
            screen_line(0, k, c.w - 1, k - c.w, colour);
        else
            screen_line(k - c.h, c.h - 1, c.w - 1, k - c.w, colour);
    }
}

// On an upright screen the lines lie side by side and leave no gap, so that a pixel's colour depends on its
// diagonal x + y alone. From the upper right corner on a line reaches only the diagonal before its own: so
// there a diagonal has the colour of the next number.
void draw_gradient_diagonal(const canvas& c, uint32_t)
{
    if (c.h < c.w) {
        draw_diagonal_lines(c);
        return;
    }
    uint32_t ramp[DIAGONALS];
    for (uint32_t k = 0; k < DIAGONALS; k++)
        ramp[k] = diagonal_colour(c, k);
    each_tile(c.w, 0, c.h, [&](uint32_t x, uint32_t y, uint32_t w, uint32_t h) {
        uint32_t colours[2 * TILE];
        for (uint32_t i = 0; i < w + h; i++) {
            const uint32_t diagonal = x + y + i;
            colours[i] = ramp[(diagonal < c.w - 1 ? diagonal : diagonal + 1) % DIAGONALS];
        }
        screen_rows(x, y, w, h, {.p_colours = colours, .pitch = 1, .count = h});
    });
}

// A thin pattern that shows an uneven backlight.
void draw_uniformity(const canvas& c, uint32_t)
{
    const uint32_t w = c.w, h = c.h, y = h / 2, x = w / 2;
    screen_rectangle(0, 0, w, h, WHITE, BLACK, 1);
    screen_line(0, y - h * 2 / 5, w - 1, y - h * 2 / 5, WHITE);
    screen_line(0, y - h / 5, w - 1, y - h / 5, LIGHT_GREY);
    screen_line(0, y, w - 1, y, WHITE);
    screen_line(0, y + h / 5, w - 1, y + h / 5, LIGHT_GREY);
    screen_line(0, y + h * 2 / 5, w - 1, y + h * 2 / 5, WHITE);
    for (const uint32_t column : {x - w / 3, x, x + w / 3})
        screen_line(column, 0, column, h - 1, WHITE);
}

struct marks {
    uint32_t diameter, square, right, bottom;
};

// A circle in the middle of the screen and squares in the corners of a smaller one.
void draw_marks(const canvas& c, const marks& m)
{
    rect(0, 0, c.w, c.h, BLACK);
    circle(c.w / 2, c.h / 2, m.diameter, WHITE);
    for (const uint32_t y : {0u, m.bottom})
        for (const uint32_t x : {0u, m.right})
            rect(x, y, m.square, m.square, WHITE);
}

void draw_marks_240(const canvas& c, uint32_t)
{
    draw_marks(c, {56, 34, 206, 286}); // for 240 by 320
}

void draw_marks_320(const canvas& c, uint32_t)
{
    draw_marks(c, {68, 42, 278, 438}); // for 320 by 480
}

// Red from left to right, green from top to bottom, blue four times from top to bottom.
void draw_cube(const canvas& c, uint32_t)
{
    const uint32_t quarter = c.h / 4;
    each_tile(c.w, 0, c.h, [&](uint32_t x, uint32_t y, uint32_t w, uint32_t h) {
        alignas(64) uint32_t red[TILE];
        uint32_t tints[TILE];
        for (uint32_t i = 0; i < w; i++)
            red[i] = c.w > 1 ? ((x + i) * 255 / (c.w - 1)) << 16 : 0;
        for (uint32_t j = 0; j < h; j++) {
            const uint32_t green = c.h > 1 ? (y + j) * 255 / (c.h - 1) : 0;
            const float blue =
                quarter > 1 ? static_cast<float>((y + j) % quarter) / static_cast<float>(quarter - 1) : 0;
            tints[j] = green << 8 | static_cast<uint32_t>(blue * 255);
        }
        screen_rows(x, y, w, h, {.p_colours = red, .p_tints = tints});
    });
}

void draw_halves(const canvas& c, uint32_t)
{
    rect(0, 0, c.w / 2, c.h, c.a);
    rect(c.w / 2, 0, c.w - c.w / 2, c.h, c.b);
}

struct pattern_row {
    void (*draw)(const canvas& c, uint32_t level);
    uint32_t a, b;
};

// clang-format off
constexpr pattern_row pattern_tab[] = {
    /*  0 */ { draw_tv,                0,         0         },
    /*  1 */ { draw_chess<1>,          WHITE,     BLACK     },
    /*  2 */ { draw_chess<1>,          BLACK,     WHITE     },
    /*  3 */ { draw_plain,             WHITE,     0         },
    /*  4 */ { draw_plain,             BLACK,     0         },
    /*  5 */ { draw_border,            WHITE,     BLACK     },
    /*  6 */ { draw_plain,             GREY,      0         },
    /*  7 */ { draw_bars,              0,         0         },
    /*  8 */ { draw_green_ramps,       0,         0         },
    /*  9 */ { nullptr,                0,         0         },
    /* 10 */ { draw_plain,             RED,       0         },
    /* 11 */ { draw_plain,             GREEN,     0         },
    /* 12 */ { draw_plain,             BLUE,      0         },
    /* 13 */ { nullptr,                0,         0         },
    /* 14 */ { draw_level,             0,         0         },
    /* 15 */ { draw_grid,              0,         0         },
    /* 16 */ { draw_crosstalk_upright, 0,         0         },
    /* 17 */ { draw_crosstalk_level,   0,         0         },
    /* 18 */ { draw_chess<16>,         WHITE,     BLACK     },
    /* 19 */ { draw_chess<16>,         PALE_BLUE, GREY      },
    /* 20 */ { draw_chess<1>,          WHITE,     BLACK     },
    /* 21 */ { draw_chess<1>,          BLACK,     WHITE     },
    /* 22 */ { draw_chess<2>,          WHITE,     BLACK     },
    /* 23 */ { draw_chess<2>,          BLACK,     WHITE     },
    /* 24 */ { draw_rows,              GREY,      WHITE     },
    /* 25 */ { draw_rows,              WHITE,     GREY      },
    /* 26 */ { draw_rows,              BLACK,     WHITE     },
    /* 27 */ { draw_rows,              WHITE,     BLACK     },
    /* 28 */ { draw_columns,           BLACK,     WHITE     },
    /* 29 */ { draw_columns,           WHITE,     BLACK     },
    /* 30 */ { draw_window,            WHITE,     BLACK     },
    /* 31 */ { draw_window,            BLACK,     WHITE     },
    /* 32 */ { draw_gradient_level,    BLACK,     WHITE     },
    /* 33 */ { draw_gradient_level,    BLACK,     RED       },
    /* 34 */ { draw_gradient_level,    BLACK,     GREEN     },
    /* 35 */ { draw_gradient_level,    BLACK,     BLUE      },
    /* 36 */ { draw_gradient_upright,  BLACK,     WHITE     },
    /* 37 */ { draw_gradient_upright,  BLACK,     RED       },
    /* 38 */ { draw_gradient_upright,  BLACK,     GREEN     },
    /* 39 */ { draw_gradient_upright,  BLACK,     BLUE      },
    /* 40 */ { draw_gradient_diagonal, BLACK,     WHITE     },
    /* 41 */ { draw_gradient_diagonal, BLACK,     RED       },
    /* 42 */ { draw_gradient_diagonal, BLACK,     GREEN     },
    /* 43 */ { draw_gradient_diagonal, BLACK,     BLUE      },
    /* 44 */ { draw_uniformity,        0,         0         },
    /* 45 */ { draw_columns,           GREENISH,  PURPLISH  },
    /* 46 */ { draw_marks_240,         0,         0         },
    /* 47 */ { draw_marks_320,         0,         0         },
    /* 48 */ { draw_cube,              0,         0         },
    /* 49 */ { draw_halves,            GREEN,     MAGENTA   },
};
// clang-format on
static_assert(std::size(pattern_tab) == 50);

} // namespace

void pattern_draw(std::uint32_t mode, std::uint32_t level)
{
    const uint32_t w = screen_width(), h = screen_height();
    if (w == 0 || h == 0 || mode >= std::size(pattern_tab) || pattern_tab[mode].draw == nullptr)
        return;
    const pattern_row& row = pattern_tab[mode];
    row.draw({w, h, row.a, row.b}, level);
}
