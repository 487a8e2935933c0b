// The flare test: stray light washes out the dark between three bright bars at each edge of the frame.
#include "camera/camera_general.h"

#include <algorithm>
#include <array>

#include "camera_general_inner.h"

namespace {

constexpr std::uint32_t FIRST_LIMIT = 100;
constexpr std::uint32_t SECOND_LIMIT = 80;

constexpr std::int32_t LINE_WIDTH = 13; // percent of the frame
constexpr std::int32_t LINE_HEIGHT = 17;
constexpr std::int32_t LEAST_DIVISOR = 150; // of the frame's width: bars and gaps
constexpr std::uint32_t BARS = 3;

std::array<cam_gen_param, 2> f_prm;

// A line from a point on; one that leaves the picture has no samples.
cam_gen_line line_from(const cam_gen_data& data, std::int32_t x, std::int32_t y, bool down,
                       std::int32_t count, std::uint8_t least)
{
    const std::int64_t last_x = std::int64_t{x} + (down ? 0 : count - 1);
    const std::int64_t last_y = std::int64_t{y} + (down ? count - 1 : 0);
    if (count <= 0 || !cam_gen_is_inside(data, x, y) || !cam_gen_is_inside(data, last_x, last_y))
        return {nullptr, 0, 0, least, least};
    return {data.planes.y + std::ptrdiff_t{y} * data.size.width + x, down ? data.size.width : 1, count, least,
            least};
}

enum class place { below, rising, bar, falling, gap, fail };

// The walk along a line: where it is, and how long it has been in this bar and in this gap.
struct walk {
    std::uint8_t hi, lo;
    std::uint32_t least_bar, least_gap;
    place at = place::below;
    std::uint32_t up = 0, down = 0, bars = 0;
};

place in_bar(walk& w, std::uint8_t v)
{
    w.up++;
    if (w.up < w.least_bar)
        return v < w.hi ? place::fail : place::bar;
    return v < w.lo ? place::gap : v < w.hi ? place::falling : place::bar;
}

// True when the sample is to be looked at once more, below.
bool in_gap(walk& w, std::uint8_t v)
{
    w.down++;
    if (w.down >= w.least_gap) {
        w.bars++;
        w.up = w.down = 0;
        w.at = place::below;
        return true;
    }
    w.at = v > w.lo ? place::fail : place::gap;
    return false;
}

bool step(walk& w, std::uint8_t v)
{
    switch (w.at) {
    case place::below:
        w.at = v > w.hi ? place::bar : v > w.lo ? place::rising : place::below;
        return false;
    case place::rising:
        w.at = v > w.hi ? place::bar : v < w.lo ? place::fail : place::rising;
        return false;
    case place::bar:
        w.at = in_bar(w, v);
        return false;
    case place::falling:
        w.at = v < w.lo ? place::gap : v > w.hi ? place::fail : place::falling;
        return false;
    case place::gap:
        return in_gap(w, v);
    case place::fail:
        break;
    }
    return false;
}

} // namespace

std::span<cam_gen_param> cam_gen_flare_params()
{
    return f_prm;
}

void cam_gen_flare_init()
{
    f_prm = {{{FIRST_LIMIT, 0xFF}, {SECOND_LIMIT, 0xFF}}};
}

bool cam_gen_mountain_chk(const cam_gen_line& line, std::uint8_t limit1, std::uint8_t limit2,
                          std::uint32_t count)
{
    if (line.count <= 0)
        return false;
    walk w = {.hi = std::max(limit1, limit2),
              .lo = std::min(limit1, limit2),
              .least_bar = std::max<std::uint32_t>(line.least_bar, 1),
              .least_gap = std::max<std::uint32_t>(line.least_gap, 1)};
    std::int32_t i = 0;
    while (i < line.count - 1 && line.first[i * line.step] < w.lo)
        i++;
    if (static_cast<std::uint32_t>(i) < w.least_gap)
        return false;
    while (i < line.count && w.at != place::fail)
        if (!step(w, line.first[i * line.step]))
            i++;
    return w.bars == count && w.at == place::below;
}

std::uint32_t cam_gen_flare_do_test(const cam_gen_data& data)
{
    if (data.frame_found == 0)
        return CAM_GEN_NO_FRAME;
    const cam_gen_point* c = data.corners;
    const std::int32_t left = (c[0].x + c[2].x) / 2, right = (c[1].x + c[3].x) / 2;
    const std::int32_t top = (c[0].y + c[1].y) / 2, bottom = (c[2].y + c[3].y) / 2;
    const std::int32_t width = right - left + 1, height = bottom - top + 1;
    const std::int32_t cx = (right + left) / 2, cy = (top + bottom) / 2;
    const std::int32_t lx = LINE_WIDTH * width / 100, ly = LINE_HEIGHT * height / 100;
    const auto least = std::max(static_cast<std::uint8_t>(width / LEAST_DIVISOR), std::uint8_t{1});
    const cam_gen_line lines[] = {
        line_from(data, left, cy, false, lx, least),
        line_from(data, right - lx, cy, false, lx, least),
        line_from(data, cx, top, true, ly, least),
        line_from(data, cx, bottom - ly, true, ly, least),
    };
    std::uint32_t bits = 0;
    for (std::uint32_t i = 0; i < std::size(lines); i++)
        if (!cam_gen_mountain_chk(lines[i], static_cast<std::uint8_t>(f_prm[0].value),
                                  static_cast<std::uint8_t>(f_prm[1].value), BARS))
            bits |= cam_gen_part(CAM_GEN_FAILED, i);
    return bits;
}
