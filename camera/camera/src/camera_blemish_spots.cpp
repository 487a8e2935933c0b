// The two passes of the blemish test. The kernels look at whole rows of cells at once, which the compiler
// turns into vector code, and at single cells only where a row has something dark.
#include "camera/camera_blemish.h"

#include <algorithm>
#include <cstring>

#include "camera_inner.h"

namespace {

constexpr double PER_MILLE = 1000.0;
constexpr std::uint32_t CHUNK = 512;          // cells of a row that are looked at together
constexpr std::uint32_t PIECE = 2560;         // pixels of a row that are looked at together
constexpr std::uint32_t LARGEST_SUMMED = 256; // rows of pixels whose sum 16 bits hold

// A list that a pass fills; a full one ends the pass.
struct spot_list {
    std::span<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots;
    std::uint32_t count = 0;

    // True when the list is full now.
    bool add(std::uint32_t row, std::uint32_t col, double value)
    {
        spots[count++] = {row, col, value};
        return count == CAMERA_BLEMISH_FULL;
    }
};

// What the unfocused pass works with.
struct unfocused {
    const camera_blemish_image& image;
    const camera_blemish_config& config;
    std::uint32_t reach;
    spot_list list;

    const std::uint32_t* row(std::uint32_t r) const { return image.meta + std::size_t{r} * image.cols; }
    std::uint32_t at(std::uint32_t r, std::uint32_t c) const { return row(r)[c]; }
};

// Cells between two ends `reach` apart, each held against the straight line between them. `lag` is how many
// cells the line lies behind: one on the far sides of the picture.
struct segment {
    std::uint32_t row, col; // the end that is the line's base
    std::uint32_t down, right;
    std::uint32_t lag;
};

bool segment_fills_list(unfocused& u, const segment& s, double threshold)
{
    const std::uint32_t base = u.at(s.row, s.col);
    const std::uint32_t end = u.at(s.row + s.down * u.reach, s.col + s.right * u.reach);
    const auto slope = static_cast<std::uint32_t>(static_cast<std::int32_t>(end - base) /
                                                  static_cast<std::int32_t>(u.reach));
    for (std::uint32_t i = 1; i < u.reach; i++) {
        const std::uint32_t row = s.row + s.down * i;
        const std::uint32_t col = s.col + s.right * i;
        const double v = 1.0 - u.at(row, col) / static_cast<double>(base + slope * (i - s.lag));
        if (v >= threshold && u.list.add(row, col, v))
            return true;
    }
    return false;
}

bool corners_fill_list(unfocused& u)
{
    const std::uint32_t bottom = u.image.rows - 1, right = u.image.cols - 1;
    struct corner {
        std::uint32_t row, col;
        std::uint32_t a, b; // the cells beside it
    };
    const corner corners[] = {
        {0, 0, u.at(0, 3), u.at(3, 0)},
        {0, right, u.at(0, right - 3), u.at(3, right)},
        {bottom, 0, u.at(bottom - 3, 0), u.at(bottom, 4)},
        {bottom, right, u.at(bottom, right - 3), u.at(bottom - 3, right)},
    };
    const double threshold = u.config.corner_threshold / PER_MILLE;
    for (const corner& c : corners) {
        const auto sum = static_cast<std::int32_t>(c.a + c.b);
        const double v = u.at(c.row, c.col) / (sum / -2.0) + 1.0;
        if (v >= threshold && u.list.add(c.row, c.col, v))
            return true;
    }
    return false;
}

// The bands at the picture's edges that the kernels don't reach.
bool edges_fill_list(unfocused& u)
{
    const std::uint32_t rows = u.image.rows, cols = u.image.cols, n = u.reach;
    const double threshold = u.config.edge_threshold / PER_MILLE;
    const auto row_ends = [&](std::uint32_t r) {
        return segment_fills_list(u, {r, 0, 0, 1, 0}, threshold) ||
               segment_fills_list(u, {r, cols - n - 1, 0, 1, 1}, threshold);
    };
    for (std::uint32_t r = 0; r < n; r++)
        if (row_ends(r))
            return true;
    if (segment_fills_list(u, {0, 0, 1, 0, 0}, threshold) ||
        segment_fills_list(u, {0, cols - 1, 1, 0, 0}, threshold))
        return true;
    for (std::uint32_t r = rows - n; r < rows; r++)
        if (row_ends(r))
            return true;
    return segment_fills_list(u, {rows - n - 1, 0, 1, 0, 1}, threshold) ||
           segment_fills_list(u, {rows - n - 1, cols - 1, 1, 0, 1}, threshold) ||
           (u.config.corner_threshold != 0 && corners_fill_list(u));
}

double darkness(std::uint32_t cell, std::uint32_t times, std::uint32_t sum)
{
    return 1.0 -
           static_cast<std::int32_t>(cell * times) / static_cast<double>(static_cast<std::int32_t>(sum));
}

double threshold_at(const unfocused& u, std::uint32_t r, std::uint32_t c)
{
    const std::uint64_t rows = u.image.rows, cols = u.image.cols;
    const std::uint64_t outer_rows = u.config.outer_rows, outer_cols = u.config.outer_cols;
    const bool inner_row = r >= outer_rows && r + outer_rows < rows;
    const bool outer = !inner_row && (c < outer_cols || c + outer_cols >= cols);
    return (outer ? u.config.outer_threshold : u.config.inner_threshold) / PER_MILLE;
}

// Cells from `first` to before `last` of row `r`, each with the sums of what lies `by` cells before and
// behind it in memory: 1 for a horizontal kernel, a row's length for a vertical one.
bool kernel_fills_list(unfocused& u, std::uint32_t r, std::uint32_t first, std::uint32_t last, std::size_t by)
{
    const std::uint32_t length = u.config.kernel_length;
    const std::uint32_t times = length * 2;
    const double threshold = u.config.inner_threshold / PER_MILLE;
    std::uint32_t sums[CHUNK];
    for (std::uint32_t from = first; from < last; from += CHUNK) {
        const std::uint32_t count = std::min(CHUNK, last - from);
        const std::uint32_t* cells = u.row(r) + from;
        std::memset(sums, 0, sizeof sums);
        for (std::size_t k = 1; k <= length; k++) {
            const std::size_t away = (u.config.kernel_gap + k) * by;
            for (std::uint32_t i = 0; i < count; i++)
                sums[i] += (cells - away)[i] + (cells + away)[i];
        }
        int dark = 0;
        for (std::uint32_t i = 0; i < count; i++)
            dark |= darkness(cells[i], times, sums[i]) >= threshold;
        for (std::uint32_t i = 0; dark != 0 && i < count; i++) {
            const double v = darkness(cells[i], times, sums[i]);
            if (v >= threshold && v >= threshold_at(u, r, from + i) && u.list.add(r, from + i, v))
                return true;
        }
    }
    return false;
}

void kernels(unfocused& u)
{
    const std::uint32_t rows = u.image.rows, cols = u.image.cols, n = u.reach;
    for (std::uint32_t r = 0; r < n; r++)
        if (kernel_fills_list(u, r, n, cols - n, 1))
            return;
    for (std::uint32_t r = n; r < rows - n; r++)
        if (kernel_fills_list(u, r, 0, cols, cols))
            return;
    for (std::uint32_t r = rows - n; r < rows; r++)
        if (kernel_fills_list(u, r, n, cols - n, 1))
            return;
}

// How many pixels of a block go into its cell.
std::uint32_t samples(const camera_blemish_image& image)
{
    const auto steps = [&](std::uint32_t step) { return (image.block_size - 1) / step + 1; };
    return steps(image.row_step) * steps(image.col_step);
}

float border_mean(const camera_blemish_image& image, std::uint32_t r, std::uint32_t c, std::uint32_t sampled)
{
    const std::uint32_t top = r == 0 ? 0 : r - 1, bottom = std::min(r + 1, image.rows - 1);
    const std::uint32_t left = c == 0 ? 0 : c - 1, right = std::min(c + 1, image.cols - 1);
    float sum = 0;
    std::uint32_t n = 0;
    for (std::uint32_t i = top; i <= bottom; i++)
        for (std::uint32_t j = left; j <= right; j++)
            if (i != r || j != c) {
                sum += static_cast<float>(image.meta[std::size_t{i} * image.cols + j]);
                n++;
            }
    return sum / static_cast<float>(n * sampled);
}

// The means round cells `first` to before `last` of row `r`.
void neighbour_means(const camera_blemish_image& image, std::uint32_t r, std::uint32_t first,
                     std::uint32_t last, std::uint32_t sampled, float* means)
{
    const auto inner_from = std::max(first, 1u), inner_to = std::min(last, image.cols - 1);
    const bool border_row = r == 0 || r == image.rows - 1;
    for (std::uint32_t c = first; c < last; c++)
        if (border_row || c < inner_from || c >= inner_to)
            means[c - first] = border_mean(image, r, c, sampled);
    if (border_row)
        return;
    const std::uint32_t* mid = image.meta + std::size_t{r} * image.cols;
    const std::uint32_t* up = mid - image.cols;
    const std::uint32_t* down = mid + image.cols;
    const auto divisor = static_cast<float>(sampled * 8);
    for (std::uint32_t c = inner_from; c < inner_to; c++) {
        const std::uint32_t sum =
            up[c - 1] + up[c] + up[c + 1] + mid[c - 1] + mid[c + 1] + down[c - 1] + down[c] + down[c + 1];
        means[c - first] = static_cast<float>(static_cast<std::int32_t>(sum)) / divisor;
    }
}

// The least pixel of each block from `first` to before `last` of row `r`: first down the columns, many blocks
// at once, then along them. A block too large for that goes alone.
void least_pixels(const camera_blemish_image& image, std::uint32_t r, std::uint32_t first, std::uint32_t last,
                  std::uint8_t* least)
{
    const std::uint32_t size = image.block_size;
    const std::size_t length = std::size_t{image.cols} * size;
    const std::uint32_t blocks = std::max(PIECE / size, 1u);
    std::uint8_t row[PIECE];
    for (std::uint32_t c = first; c < last; c += blocks) {
        const std::size_t width = std::size_t{std::min(blocks, last - c)} * size;
        const std::uint8_t* p = image.y + r * size * length + std::size_t{c} * size;
        if (width > PIECE) {
            least[c - first] = UINT8_MAX;
            for (std::uint32_t i = 0; i < size; i++)
                least[c - first] =
                    std::min(least[c - first], *std::min_element(p + i * length, p + i * length + size));
            continue;
        }
        std::memcpy(row, p, width);
        for (std::uint32_t i = 1; i < size; i++)
            for (std::size_t j = 0; j < width; j++)
                row[j] = std::min(row[j], p[i * length + j]);
        for (std::size_t j = 0; j < width; j += size)
            least[c - first + j / size] = *std::min_element(row + j, row + j + size);
    }
}

bool is_speck(std::uint32_t pixel, float mean, float threshold)
{
    return 1.0f - static_cast<float>(pixel) / mean >= threshold;
}

bool block_fills_list(const camera_blemish_image& image, std::uint32_t r, std::uint32_t c, float mean,
                      float threshold, spot_list& list)
{
    const std::uint32_t size = image.block_size;
    const std::size_t length = std::size_t{image.cols} * size;
    const std::uint8_t* p = image.y + r * size * length + std::size_t{c} * size;
    for (std::uint32_t i = 0; i < size; i++, p += length)
        for (std::uint32_t j = 0; j < size; j++)
            if (is_speck(p[j], mean, threshold) && list.add(r, c, 1.0f - static_cast<float>(p[j]) / mean))
                return true;
    return false;
}

template <typename Sample>
std::uint32_t sampled_sum(const Sample* p, std::uint32_t size, std::uint32_t step)
{
    std::uint32_t sum = 0;
    for (std::uint64_t j = 0; j < size; j += step)
        sum += p[j];
    return sum;
}

std::uint32_t block_sum(const camera_blemish_image& image, const std::uint8_t* p)
{
    std::uint32_t sum = 0;
    for (std::uint64_t i = 0; i < image.block_size; i += image.row_step)
        sum += sampled_sum(p + i * image.cols * image.block_size, image.block_size, image.col_step);
    return sum;
}

} // namespace

void camera_blemish_make_meta_image(const camera_blemish_image& image)
{
    const std::uint32_t size = image.block_size;
    const std::size_t length = std::size_t{image.cols} * size;
    const std::uint32_t blocks = std::max(PIECE / size, 1u);
    std::uint16_t sums[PIECE];
    for (std::uint32_t r = 0; r < image.rows; r++) {
        std::uint32_t* cells = image.meta + std::size_t{r} * image.cols;
        for (std::uint32_t c = 0; c < image.cols; c += blocks) {
            const std::size_t width = std::size_t{std::min(blocks, image.cols - c)} * size;
            const std::uint8_t* p = image.y + r * size * length + std::size_t{c} * size;
            if (size > LARGEST_SUMMED) {
                for (std::size_t j = 0; j < width; j += size)
                    cells[c + j / size] = block_sum(image, p + j);
                continue;
            }
            std::fill_n(sums, width, std::uint16_t{0});
            for (std::uint64_t i = 0; i < size; i += image.row_step)
                for (std::size_t j = 0; j < width; j++)
                    sums[j] = static_cast<std::uint16_t>(sums[j] + p[i * length + j]);
            for (std::size_t j = 0; j < width; j += size)
                cells[c + j / size] = sampled_sum(sums + j, size, image.col_step);
        }
    }
}

std::uint32_t camera_blemish_unfocused_spot_detect(const camera_blemish_image& image,
                                                   const camera_blemish_config& config,
                                                   std::span<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots)
{
    unfocused u = {image, config, config.kernel_length + config.kernel_gap, {spots}};
    if (config.edge_threshold == 0 || !edges_fill_list(u))
        kernels(u);
    return u.list.count;
}

std::uint32_t camera_blemish_focused_spot_detect(const camera_blemish_image& image,
                                                 std::uint32_t focused_threshold,
                                                 std::span<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots)
{
    if (focused_threshold == 0)
        return 0;
    spot_list list = {spots};
    const float threshold = static_cast<float>(focused_threshold) / 1000.0f;
    const std::uint32_t sampled = samples(image);
    float means[CHUNK];
    std::uint8_t least[CHUNK];
    for (std::uint32_t r = 0; r < image.rows; r++)
        for (std::uint32_t from = 0; from < image.cols; from += CHUNK) {
            const std::uint32_t to = std::min(from + CHUNK, image.cols);
            neighbour_means(image, r, from, to, sampled, means);
            least_pixels(image, r, from, to, least);
            for (std::uint32_t c = from; c < to; c++)
                if (is_speck(least[c - from], means[c - from], threshold) &&
                    block_fills_list(image, r, c, means[c - from], threshold, list))
                    return list.count;
        }
    return list.count;
}
