// The resolution test: the contrast of fine lines in the four corners and in the middle of the frame.
#include "camera/camera_general.h"

#include <algorithm>
#include <array>

#include "camera_general_inner.h"
#include "camera_inner.h"

namespace {

enum { CENTRE_COUNT, CENTRE_CONTRAST, CORNER_COUNT, CORNER_CONTRAST, RESOLUTION_PARAMS };
constexpr std::uint8_t resolution_defaults[RESOLUTION_PARAMS] = {3, 40, 3, 35};

constexpr std::int32_t BLOCK_WIDTH = 20; // percent of the frame
constexpr std::int32_t BLOCK_HEIGHT = 12;

constexpr std::uint32_t BLOCKS = 5;
constexpr std::uint32_t CENTRE = 4;
constexpr std::uint32_t NO_MEMORY = 3;

constexpr std::int32_t FIRST_LEVEL = 70; // between dark and bright, until the lines tell better
constexpr std::int32_t SLACK = 20;
constexpr std::size_t CONTRASTS = 15;

// Rows that are looked at, in sixths of the block, in this order.
constexpr std::int32_t row_order[] = {2, 0, 4, 1, 3};

std::array<cam_gen_param, RESOLUTION_PARAMS> r_prm;

// The block of lines at a corner, copied so that its first sample is the one at the corner.
void cam_gen_make_ydat(const cam_gen_data& data, std::uint32_t block, const cam_gen_point& at,
                       const cam_gen_size& size, std::uint8_t* dst)
{
    const std::int64_t right = block == 1 || block == 3 ? -1 : 1;
    const std::int64_t down = block == 2 || block == 3 ? -1 : 1;
    for (std::int32_t r = 0; r < size.height; r++)
        for (std::int32_t c = 0; c < size.width; c++)
            *dst++ = cam_gen_y_at(data, at.x + right * c, at.y + down * r);
}

// A row of a block of lines, smoothed with the rows beside it.
struct smooth_row {
    const std::uint8_t* block;
    cam_gen_size size;
    std::int32_t row;

    std::int32_t at(std::int32_t c) const
    {
        const std::int32_t first = std::max(row - 1, 0), last = std::min(row + 1, size.height - 1);
        std::int32_t sum = 0;
        for (std::int32_t r = first; r <= last; r++)
            sum += block[std::ptrdiff_t{r} * size.width + c];
        return sum / (last - first + 1);
    }
};

using contrast_list = std::array<std::uint8_t, CONTRASTS>;

// Where the lines begin: the first bright sample behind a dark stretch that is long enough, which `*p_dark`
// counts from row to row. The row's width when there is none.
std::int32_t find_start(const smooth_row& row, std::int32_t long_enough, std::int32_t* p_dark)
{
    for (std::int32_t c = 0; c < row.size.width; c++) {
        if (row.at(c) < FIRST_LEVEL) {
            ++*p_dark;
            continue;
        }
        const std::int32_t dark = *p_dark;
        *p_dark = 0;
        if (dark > long_enough)
            return c;
    }
    return row.size.width;
}

// The contrasts of the lines from `c` on, until a bright stretch is longer than any line.
void measure(const smooth_row& row, std::int32_t c, std::int32_t longest, contrast_list& list)
{
    const std::int32_t width = row.size.width;
    std::int32_t level = FIRST_LEVEL;
    std::size_t stored = 0;
    while (c < width) {
        std::int32_t mx = 0, mn = 255;
        for (std::int32_t bright = 0; c < width && row.at(c) >= level - SLACK; c++) {
            mx = std::max(mx, row.at(c));
            if (++bright > longest)
                return;
        }
        for (; c < width && row.at(c) < level + SLACK; c++)
            mn = std::min(mn, row.at(c));
        if (c == width || mx + mn == 0)
            return;
        level = (mx + mn) >> 1;
        if (stored < CONTRASTS)
            list[stored++] = static_cast<std::uint8_t>((mx - mn) * 100 / (mx + mn));
    }
}

// How many contrasts from the first on are greater than `least`. What has been looked at is cleared; what
// lies behind stays for the next row.
std::uint32_t leading(contrast_list& list, std::uint8_t least)
{
    std::uint32_t count = 0;
    for (std::uint8_t& contrast : list) {
        const bool passes = contrast > least;
        contrast = 0;
        if (!passes)
            break;
        count++;
    }
    return count;
}

} // namespace

std::span<cam_gen_param> cam_gen_resolution_params()
{
    return r_prm;
}

void cam_gen_resolution_init()
{
    for (std::size_t i = 0; i < r_prm.size(); i++)
        r_prm[i] = {resolution_defaults[i], 0xFF};
}

bool cam_gen_chk_ctf(const std::uint8_t* block, const cam_gen_size& size, std::uint32_t wanted,
                     std::uint8_t least)
{
    contrast_list list{};
    std::int32_t dark = 0;
    const std::int32_t length = size.width / 10;
    for (const std::int32_t k : row_order) {
        const smooth_row row = {block, size, k * (size.height / 6)};
        if (row.row >= size.height)
            return false;
        const std::int32_t start = find_start(row, length, &dark);
        if (start < size.width)
            measure(row, start, length, list);
        if (leading(list, least) >= wanted)
            return true;
    }
    return false;
}

std::uint32_t cam_gen_resolution_do_test(const cam_gen_data& data)
{
    if (data.frame_found == 0)
        return CAM_GEN_NO_FRAME;
    const cam_gen_size frame = cam_gen_frame(data);
    const cam_gen_size size = {std::max(BLOCK_WIDTH * frame.width / 100, 0),
                               std::max(BLOCK_HEIGHT * frame.height / 100, 0)};
    const camera_bytes block =
        camera_alloc(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    if (block == nullptr)
        return NO_MEMORY;
    const cam_gen_point* c = data.corners;
    const cam_gen_point centre = {(c[0].x + c[1].x + c[2].x + c[3].x - 2 * size.width) / 4,
                                  (c[0].y + c[1].y + c[2].y + c[3].y - 2 * size.height) / 4};
    std::uint32_t bits = 0;
    for (std::uint32_t i = 0; i < BLOCKS; i++) {
        const bool middle = i == CENTRE;
        cam_gen_make_ydat(data, i, middle ? centre : c[i], size, block.get());
        const std::uint32_t wanted = r_prm[middle ? CENTRE_COUNT : CORNER_COUNT].value;
        const std::uint32_t least = r_prm[middle ? CENTRE_CONTRAST : CORNER_CONTRAST].value;
        if (!cam_gen_chk_ctf(block.get(), size, wanted, static_cast<std::uint8_t>(least)))
            bits |= cam_gen_part(CAM_GEN_FAILED, i);
    }
    return bits;
}
