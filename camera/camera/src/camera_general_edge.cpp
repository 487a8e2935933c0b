// The edge test: finds the four red corners of the chart's frame. The red pixels of a rectangle are marked
// once, row by row; most rows are dismissed by their chroma alone. The runs along rows and columns are then
// those of the marks.
#include "camera/camera_general.h"

#include <algorithm>
#include <array>
#include <memory>

#include "camera_general_inner.h"
#include "camera_inner.h"

namespace {

enum { SEARCH_AREA, RED_EXCESS, RUN_LENGTH, EDGE_PARAMS };
constexpr cam_gen_param edge_defaults[EDGE_PARAMS] = {{20, 0xFF}, {50, 0xFF}, {5, 0xFFFFFFFF}};

constexpr std::int32_t PIECE = 64; // pixels of a row that are looked at together
constexpr std::uint32_t CORNERS = 4;
constexpr std::uint32_t NOT_STRAIGHT = 32;
constexpr std::uint32_t NOT_4_TO_3 = 64;

std::array<cam_gen_param, EDGE_PARAMS> e_prm;

struct rectangle {
    std::int32_t left, top, right, bottom; // the last two left out
};

// A line of pixels with its runs of red; `end` and `start` are places along it.
struct red_run {
    std::uint32_t run = 0;
    std::int32_t start = 0, end = 0;
    bool over = false;
};

// Means of the centres of the first long enough run of each line.
struct centres {
    std::int64_t sum = 0;
    std::int64_t count = 0;

    std::int32_t mean() const { return count > 0 ? static_cast<std::int32_t>(sum / count) : 0; }
};

void take(red_run& line, bool red, std::int32_t at, std::uint32_t length, centres& found)
{
    if (red) {
        line.run++;
        if (line.run == 1)
            line.start = at;
        if (line.run > length)
            line.end = at;
        return;
    }
    line.run = 0;
    if (line.end != 0) {
        found.sum += (line.start + line.end) / 2;
        found.count++;
        line.over = true;
    } else {
        line.start = 0;
    }
}

// Whether any pair of pixels from `first` on can be red by its chroma: a difference of colours can't grow
// when they are limited to a byte.
bool may_be_red(const std::uint8_t* u, const std::uint8_t* v, std::int32_t count, std::int32_t excess)
{
    const std::int32_t least = (excess - 1) * 1024;
    int any = 0;
    for (std::int32_t i = 0; i < count; i++) {
        const std::int32_t du = u[i] - 128, dv = v[i] - 128;
        any |= (2467 * dv + 400 * du > least) & (1634 * dv - 2066 * du > least);
    }
    return any != 0;
}

// Places along a row; nothing when `first` isn't below `last`.
struct span {
    std::int32_t first, last;
};

// Marks red pixels from `left` to before `right` of a row; false when there are none.
bool mark(const std::uint8_t* luma, const std::uint8_t* u, const std::uint8_t* v, const span& part,
          std::int32_t excess, std::uint8_t* marks)
{
    int any = 0;
    for (std::int32_t x = part.first; x < part.last; x++) {
        const std::int32_t t = (luma[x] - 16) * 1192, du = u[x / 2] - 128, dv = v[x / 2] - 128;
        const std::int32_t red = std::clamp((t + 1634 * dv) >> 10, 0, 255);
        const std::int32_t green = std::clamp((t - 833 * dv - 400 * du) >> 10, 0, 255);
        const std::int32_t blue = std::clamp((t + 2066 * du) >> 10, 0, 255);
        const int is_red = (red - green >= excess) & (red - blue >= excess);
        marks[x] = static_cast<std::uint8_t>(is_red);
        any |= is_red;
    }
    return any != 0;
}

// Marks the red pixels of row `y` of a rectangle: the span of pieces that have any. All else is left
// unmarked.
span mark_row(const cam_gen_data& data, const rectangle& r, std::int32_t y, std::int32_t excess,
              std::uint8_t* marks)
{
    const std::int32_t half = data.size.width / 2;
    const std::uint8_t* luma = data.planes.y + std::ptrdiff_t{y} * data.size.width;
    const std::uint8_t* u = data.planes.u + std::ptrdiff_t{y} * half;
    const std::uint8_t* v = data.planes.v + std::ptrdiff_t{y} * half;
    span marked = {r.right, r.left};
    if (excess > 0 && !may_be_red(u + r.left / 2, v + r.left / 2, (r.right + 1) / 2 - r.left / 2, excess))
        return marked;
    for (std::int32_t x = r.left; x < r.right; x += PIECE) {
        const span part = {x, std::min(x + PIECE, r.right)};
        const std::int32_t first = part.first / 2, last = (part.last + 1) / 2;
        if (excess > 0 && !may_be_red(u + first, v + first, last - first, excess))
            continue;
        if (mark(luma, u, v, part, excess, marks)) {
            marked.first = std::min(marked.first, part.first);
            marked.last = part.last;
        }
    }
    return marked;
}

// Looks at the marks of a row; the pixel behind its span is none.
void scan_row(const std::uint8_t* marks, const rectangle& r, const span& marked, std::uint32_t length,
              centres& found)
{
    red_run line;
    for (std::int32_t x = marked.first; x < std::min(marked.last + 1, r.right) && !line.over; x++)
        take(line, marks[x] != 0, x, length, found);
}

// Looks for the red block of a rectangle; 1 with its centre. A column is looked at only where this row or the
// one before has something marked: elsewhere no run goes on or ends.
int cam_gen_find_redblk(const cam_gen_data& data, const rectangle& r, cam_gen_point* p_blk)
{
    const auto width = static_cast<std::size_t>(data.size.width);
    const auto marks = heap_alloc<std::uint8_t>(width);
    const auto columns = heap_alloc<red_run>(width * sizeof(red_run));
    if (marks == nullptr || columns == nullptr)
        return 0;
    std::uninitialized_fill_n(columns.get(), width, red_run{});
    std::fill_n(marks.get(), width, std::uint8_t{0});
    const std::uint32_t length = e_prm[RUN_LENGTH].value;
    const auto excess = static_cast<std::int32_t>(e_prm[RED_EXCESS].value);
    centres across, down;
    span before = {r.right, r.left};
    for (std::int32_t y = r.top; y < r.bottom; y++) {
        if (before.first < before.last)
            std::fill(marks.get() + before.first, marks.get() + before.last, std::uint8_t{0});
        const span now = mark_row(data, r, y, excess, marks.get());
        scan_row(marks.get(), r, now, length, across);
        for (std::int32_t x = std::min(before.first, now.first); x < std::max(before.last, now.last); x++)
            if (red_run& column = columns.get()[x]; !column.over)
                take(column, marks.get()[x] != 0, y, length, down);
        before = now;
    }
    *p_blk = {across.mean(), down.mean()};
    return p_blk->x != 0 && p_blk->y != 0 ? 1 : 0;
}

bool is_near_one(double ratio)
{
    return ratio > 0.9 && ratio < 1.1;
}

// The search rectangle of corner `i`, at most the picture.
rectangle search_area(const cam_gen_size& size, std::uint32_t i)
{
    const auto percent = static_cast<std::int64_t>(e_prm[SEARCH_AREA].value);
    const auto w = static_cast<std::int32_t>(std::min<std::int64_t>(percent * size.width / 100, size.width));
    const auto h =
        static_cast<std::int32_t>(std::min<std::int64_t>(percent * size.height / 100, size.height));
    const bool right = i % 2 == 1, bottom = i >= 2;
    return {right ? size.width - w : 0, bottom ? size.height - h : 0, right ? size.width : w,
            bottom ? size.height : h};
}

} // namespace

std::span<cam_gen_param> cam_gen_edge_params()
{
    return e_prm;
}

void cam_gen_edge_init()
{
    std::copy(std::begin(edge_defaults), std::end(edge_defaults), e_prm.begin());
}

std::uint32_t cam_gen_edge_do_test(cam_gen_data& data)
{
    cam_gen_point* c = data.corners;
    std::uint32_t failed = 0;
    for (std::uint32_t i = 0; i < CORNERS; i++)
        if (cam_gen_find_redblk(data, search_area(data.size, i), &c[i]) == 0)
            failed |= cam_gen_part(CAM_GEN_FAILED, i);
    if (failed != 0)
        return failed;
    const double top = c[1].x - c[0].x, bottom = c[3].x - c[2].x;
    const double left = c[2].y - c[0].y, right = c[3].y - c[1].y;
    if (!is_near_one(top / bottom) || !is_near_one(left / right))
        return NOT_STRAIGHT;
    const double x = (top + bottom) / 40.0, y = (left + right) / 30.0;
    if (!(y / x < 1.1) || !(x / y < 1.1))
        return NOT_4_TO_3;
    const auto m = static_cast<std::int32_t>(x + y) / 4;
    for (std::uint32_t i = 0; i < CORNERS; i++) {
        c[i].x += i % 2 == 0 ? m : -m;
        c[i].y += i < 2 ? m : -m;
    }
    data.frame_found = 1;
    return 0;
}
