// The chart: a frame of 4:3 with a red block at each corner, and inside it, on black, four colour patches,
// three bright bars at each edge, fine lines in the corners and in the middle, a grey ramp. Its measures are
// in units of which the frame, between the middles of its blocks, is 40 wide and 30 high; the inside is 38
// by 28.
#include <algorithm>
#include <cmath>

#include "camera/canvas.h"

namespace phone {

namespace {

constexpr yuv paper = {128, 128, 128}, black = {30, 128, 128}, white = {225, 128, 128};
constexpr yuv red = {90, 100, 210}, green = {100, 90, 70}, blue = {60, 200, 110};
constexpr std::uint8_t bright = 210; // bars and lines

constexpr double frame_width = 40, frame_height = 30, block = 2; // the block's middle is the frame's corner
constexpr double inner_width = 38, inner_height = 28;
constexpr double surplus = 0.5;     // of the black, since the frame is found to a pixel or two
constexpr std::uint32_t border = 4; // a block that touches the picture's edge isn't whole

struct patch {
    const char* name;
    double y; // per mille of the inside, of the place that is looked at
    yuv colour;
};

constexpr patch patches[] = {{"", 190, white}, {"red", 360, red}, {"green", 530, green}, {"blue", 700, blue}};
constexpr double patch_x = 720, patch_width = 100, patch_height = 125, patch_margin = 18;

// Three bars: a dark unit, then bars and gaps of equal width.
constexpr int bars = 3;
constexpr double bar_start = 1.0, bar_width = 0.6, bar_length = 2.0;

// Lines: a dark stretch, then five lines.
constexpr int lines = 5;
constexpr double lines_start = 1.6, line_width = 0.4, lines_width = 7.6, lines_height = 3.36;

constexpr double ramp_x = 0.28, ramp_width = 3, ramp_top = 0.18, ramp_bottom = 0.82;
constexpr std::uint8_t ramp_from = 50, ramp_to = 220, jump = 60;

struct chart {
    canvas& c;
    double unit, left, top; // of the inside, in pixels

    // A box in units from the inside's top left corner; colours need even places.
    void box(double x, double y, double width, double height, const yuv& colour) const
    {
        const auto even = [](double v) { return static_cast<std::int64_t>(std::lround(v / 2)) * 2; };
        const std::int64_t x0 = even(left + x * unit), y0 = even(top + y * unit);
        canvas_paint(c, {x0, y0, even(left + (x + width) * unit) - x0, even(top + (y + height) * unit) - y0,
                         colour.y, colour.u, colour.v});
    }

    // The same in single pixels, black and white.
    void fine(double x, double y, double width, double height, std::uint8_t luma) const
    {
        const auto whole = [](double v) { return static_cast<std::int64_t>(std::lround(v)); };
        const std::int64_t x0 = whole(left + x * unit), y0 = whole(top + y * unit);
        canvas_paint(c, {x0,
                         y0,
                         whole(left + (x + width) * unit) - x0,
                         whole(top + (y + height) * unit) - y0,
                         luma,
                         {},
                         {}});
    }
};

chart place(canvas& c)
{
    const double unit = std::floor(
        std::min((c.width - border) / (frame_width + block), (c.height - border) / (frame_height + block)));
    return {c, unit, c.width / 2.0 - inner_width / 2 * unit, c.height / 2.0 - inner_height / 2 * unit};
}

void draw_corner(const chart& k, int i)
{
    k.box(i % 2 == 0 ? -block : inner_width, i < 2 ? -block : inner_height, block, block, red);
}

void draw_bars(const chart& k, int i)
{
    for (int n = 0; n < bars; n++) {
        const double from = bar_start + 2 * n * bar_width;
        if (i == 0)
            k.fine(from, inner_height / 2 - bar_length / 2, bar_width, bar_length, bright);
        else if (i == 1)
            k.fine(inner_width - from - bar_width, inner_height / 2 - bar_length / 2, bar_width, bar_length,
                   bright);
        else if (i == 2)
            k.fine(inner_width / 2 - bar_length / 2, from, bar_length, bar_width, bright);
        else
            k.fine(inner_width / 2 - bar_length / 2, inner_height - from - bar_width, bar_length, bar_width,
                   bright);
    }
}

void draw_lines(const chart& k, int i)
{
    const bool right = i == 1 || i == 3, bottom = i == 2 || i == 3, middle = i == 4;
    const double x0 = middle ? (inner_width - lines_width) / 2 : right ? inner_width - lines_width : 0;
    const double y0 = middle ? (inner_height - lines_height) / 2 : bottom ? inner_height - lines_height : 0;
    for (int n = 0; n < lines; n++) {
        const double from = lines_start + 2 * n * line_width;
        k.fine(x0 + (right ? lines_width - from - line_width : from), y0, line_width, lines_height, bright);
    }
}

void draw_ramp(const chart& k, bool falls)
{
    const double rows = (ramp_bottom - ramp_top) * inner_height * k.unit;
    for (double row = 0; row < rows; row++) {
        double level = ramp_from + (ramp_to - ramp_from) * row / rows;
        if (falls && row > rows / 3)
            level -= jump;
        k.fine(ramp_x * inner_width - ramp_width / 2, ramp_top * inner_height + row / k.unit, ramp_width,
               1.5 / k.unit, static_cast<std::uint8_t>(std::lround(std::max(level, 0.0))));
    }
}

bool is_left_out(const std::vector<std::string>& without, const std::string& part)
{
    return std::find(without.begin(), without.end(), part) != without.end();
}

} // namespace

bool chart_has_part(const std::string& part)
{
    constexpr const char* parts[] = {"corner0", "corner1", "corner2", "corner3", "red",    "green",
                                     "blue",    "flare0",  "flare1",  "flare2",  "flare3", "lines0",
                                     "lines1",  "lines2",  "lines3",  "lines4",  "jump"};
    return std::find(std::begin(parts), std::end(parts), part) != std::end(parts);
}

void chart_draw(canvas& c, const std::vector<std::string>& without)
{
    canvas_paint(c, {0, 0, c.width, c.height, paper.y, paper.u, paper.v});
    const chart k = place(c);
    k.box(-surplus, -surplus, inner_width + 2 * surplus, inner_height + 2 * surplus, black);
    const auto wanted = [&](const char* part, int i) {
        return !is_left_out(without, part + std::to_string(i));
    };
    for (int i = 0; i < 4; i++) {
        if (wanted("corner", i))
            draw_corner(k, i);
        if (wanted("flare", i))
            draw_bars(k, i);
    }
    for (int i = 0; i < 5; i++)
        if (wanted("lines", i))
            draw_lines(k, i);
    for (const patch& p : patches)
        if (!is_left_out(without, p.name))
            k.box((patch_x - patch_margin) * inner_width / 1000, (p.y - patch_margin) * inner_height / 1000,
                  (patch_width + 2 * patch_margin) * inner_width / 1000,
                  (patch_height + 2 * patch_margin) * inner_height / 1000, p.colour);
    draw_ramp(k, is_left_out(without, "jump"));
}

} // namespace phone
