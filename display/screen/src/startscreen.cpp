// The start screen: a grey ramp above, colour ramps below, and between them what program on what phone runs.
#include "screen/screen.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "hwp/hwp.h"
#include "rev/rev.h"
#include "screen_inner.h"

namespace {

constexpr std::uint32_t WHITE = 0xFFFFFF;
constexpr std::uint32_t BLACK = 0;
constexpr std::uint32_t LIGHT_GREY = 0xCFCFCF;
constexpr std::size_t MARKER = 5; // "@(#) ", which a revision text begins with

// One band of colour from the left edge to the right, in fortieths of the height.
struct band {
    int from, to;
    int shift;
    bool falling;
};

// clang-format off
constexpr band bands[] = {
    { 34, 35, 16, true  },
    { 35, 36,  8, true  },
    { 36, 37,  0, true  },
    { 37, 38, 16, false },
    { 38, 39,  8, false },
    { 39, 40,  0, false },
};
// clang-format on

void draw_row(int y, int height, std::uint32_t width, std::uint32_t colour)
{
    screen_fill(0, static_cast<std::uint32_t>(y), width, static_cast<std::uint32_t>(height), colour);
}

void draw_grey_ramp(int w, int h)
{
    for (int y = 0; y < h / 10; y++)
        draw_row(y, 1, static_cast<std::uint32_t>(w), static_cast<std::uint32_t>((y * 2560) / h) * 0x010101);
}

void draw_band(const band& b, int w, int h)
{
    const auto y = static_cast<std::uint32_t>(h * b.from / 40);
    const auto height = static_cast<std::uint32_t>(h * b.to / 40) - y;
    constexpr int PART = 256;
    for (int x = 0; x < w; x += PART) {
        std::uint32_t colours[PART];
        const int count = std::min(PART, w - x);
        for (int i = 0; i < count; i++) {
            const int ramp = (x + i) * 255 / w;
            colours[i] = static_cast<std::uint32_t>(b.falling ? 255 - ramp : ramp) << b.shift;
        }
        screen_rows(static_cast<std::uint32_t>(x), y, static_cast<std::uint32_t>(count), height, {colours});
    }
}

void print_row(const char* text, int y, std::uint32_t colour)
{
    screen_print(text, 0, static_cast<std::uint32_t>(y), colour);
}

// The text of a revision record from its character `from` on; nothing for a record that isn't there.
void print_rev(const char* id, std::size_t from, int y)
{
    const char* text = rev_get(id);
    if (text == nullptr)
        return;
    char line[100];
    std::snprintf(line, sizeof line, "   %s", text + std::min(from, std::strlen(text)));
    print_row(line, y, BLACK);
}

void print_board(int y)
{
    hwp board;
    hwp_get(&board);
    char line[100];
    std::snprintf(line, sizeof line, "   %s%d board", hwp_long_nm_get(board.family), board.rev);
    print_row(line, y, BLACK);
}

} // namespace

void screen_draw_startscreen()
{
    const int w = static_cast<int>(screen_width()), h = static_cast<int>(screen_height());
    screen_clear(WHITE);
    if (w > 0 && h > 0) {
        draw_grey_ramp(w, h);
        for (const band& b : bands)
            draw_band(b, w, h);
        print_rev("vmrk_rev", MARKER, h * 6 / 40);
        print_rev("space_num", 0, h / 5);
        print_rev("bld_date", 0, h / 4);
        print_rev("bld_time", 0, h * 12 / 40);
        print_board(h * 18 / 40);
        print_row("Welcome to HVT:", h * 32 / 40, LIGHT_GREY);
        print_row("Hardware Verification Toolkit", h * 33 / 40, LIGHT_GREY);
    }
    screen_invalidate();
}
