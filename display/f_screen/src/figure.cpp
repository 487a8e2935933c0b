// The figures of `dfig`.
#include "f_screen_inner.h"

#include <algorithm>

#include "screen/screen.h"

namespace {

using std::uint32_t;

constexpr uint32_t ACT_LINE = 0;
constexpr uint32_t ACT_BOX = 1;
constexpr uint32_t ACT_ELLIPSE = 2;

bool is_outside(uint32_t x, uint32_t y)
{
    return x >= screen_width() || y >= screen_height();
}

// A horizontal or vertical line is drawn `times` times, each next to the one before; what would lie beyond
// the edge falls onto the last row or column, which has been drawn by then. Other lines are drawn once.
void draw_thick_line(uint32_t x0, uint32_t y0, uint32_t x1, uint32_t y1, uint32_t times, uint32_t colour)
{
    if (y0 == y1 && x0 != x1) {
        for (uint32_t i = 0; i < std::min(times, screen_height() - y0); i++)
            screen_line(x0, y0 + i, x1, y1 + i, colour);
    } else if (x0 == x1 && y0 != y1) {
        for (uint32_t i = 0; i < std::min(times, screen_width() - x0); i++)
            screen_line(x0 + i, y0, x1 + i, y1, colour);
    } else if (times > 0) {
        screen_line(x0, y0, x1, y1, colour);
    }
}

// act,x0,y0,x1,y1,w,a,r,g,b
int draw_line(int argc, const dcp_word* argv)
{
    const uint32_t x0 = value_at(argc, argv, 1, 0), y0 = value_at(argc, argv, 2, 0);
    const uint32_t x1 = value_at(argc, argv, 3, screen_width() - 1);
    const uint32_t y1 = value_at(argc, argv, 4, screen_height() - 1);
    if (is_outside(x0, y0) || is_outside(x1, y1))
        return DCP_SYNTAX;
    draw_thick_line(x0, y0, x1, y1, value_at(argc, argv, 5, 1), colour_at(argc, argv, 7));
    return DCP_OK;
}

// act,x,y,w,h,a,r,g,b
int draw_box_or_ellipse(uint32_t act, int argc, const dcp_word* argv)
{
    const uint32_t x = value_at(argc, argv, 1, 0), y = value_at(argc, argv, 2, 0);
    const uint32_t w = value_at(argc, argv, 3, screen_width()), h = value_at(argc, argv, 4, screen_height());
    const uint32_t colour = colour_at(argc, argv, 6);
    if (is_outside(x, y) || w == 0 || h == 0)
        return DCP_SYNTAX;
    if (act == ACT_ELLIPSE)
        screen_ellipse(x + w / 2, y + h / 2, w, h, colour, 1);
    else
        screen_rectangle(x, y, std::min(w, screen_width() - x), std::min(h, screen_height() - y), colour,
                         colour, 1);
    return DCP_OK;
}

} // namespace

int figure_draw(int argc, const dcp_word* argv)
{
    const uint32_t act = value_at(argc, argv, 0, ACT_LINE);
    switch (act) {
    case ACT_LINE:
        return draw_line(argc, argv);
    case ACT_BOX:
    case ACT_ELLIPSE:
        return draw_box_or_ellipse(act, argc, argv);
    default:
        return DCP_ERROR;
    }
}
