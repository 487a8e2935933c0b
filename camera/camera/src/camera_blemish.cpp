// The blemish test as a whole: meta image, the two passes, and what is told of their lists.
#include "camera/camera_blemish.h"

#include <algorithm>
#include <array>

#include "camera_inner.h"

namespace {

constexpr std::uint32_t LEAST_CELLS = 5; // the corner cells are held against cells as far as 4 away
constexpr std::uint32_t MERGE_REACH = 3;

std::array<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots;
std::array<camera_blemish_spot, CAMERA_BLEMISH_ROOM> specks;

// Whether the passes stay inside a meta image of this size.
bool fits(const camera_blemish_config& config, std::uint32_t rows, std::uint32_t cols)
{
    const std::uint64_t reach = std::uint64_t{config.kernel_length} + config.kernel_gap;
    const std::uint64_t cells = std::min(rows, cols);
    return config.row_step != 0 && config.col_step != 0 && reach != 0 && cells >= LEAST_CELLS &&
           cells >= 2 * reach + 1;
}

const camera_blemish_spot* darkest(std::span<const camera_blemish_spot> list)
{
    const auto found = std::max_element(list.begin(), list.end(),
                                        [](const auto& a, const auto& b) { return a.value < b.value; });
    return found != list.end() ? &*found : nullptr;
}

// Unsigned: an entry below MERGE_REACH wraps and never matches.
bool is_near(std::uint32_t earlier, std::uint32_t later)
{
    return later - MERGE_REACH <= earlier && later + MERGE_REACH >= earlier;
}

bool has_later_neighbour(std::span<const camera_blemish_spot> list, std::size_t i)
{
    return std::any_of(list.begin() + static_cast<std::ptrdiff_t>(i) + 1, list.end(), [&](const auto& later) {
        return is_near(list[i].row, later.row) && is_near(list[i].col, later.col);
    });
}

void run(const camera_blemish_image& image, const camera_blemish_config& config,
         camera_blemish_result& result)
{
    camera_blemish_make_meta_image(image);
    result = {};
    const std::span found_spots(spots.data(), camera_blemish_unfocused_spot_detect(image, config, spots));
    result.spots = camera_blemish_merge(found_spots);
    if (const camera_blemish_spot* p = darkest(found_spots)) {
        result.spot_col = p->col * config.block_size;
        result.spot_row = p->row * config.block_size;
    }
    const std::span found_specks(specks.data(),
                                 camera_blemish_focused_spot_detect(image, config.focused_threshold, specks));
    result.specks = static_cast<std::uint32_t>(found_specks.size());
    if (const camera_blemish_spot* p = darkest(found_specks)) {
        result.speck_col = p->col * config.block_size;
        result.speck_row = p->row * config.block_size;
    }
}

} // namespace

void camera_blemish_init()
{
    spots = {};
    specks = {};
}

std::uint32_t camera_blemish_merge(std::span<const camera_blemish_spot> list)
{
    auto left = static_cast<std::uint32_t>(list.size());
    for (std::size_t i = 0; i < list.size(); i++)
        if (has_later_neighbour(list, i))
            left--;
    return left;
}

int camera_blemish_do_test(const camera_blemish_config* p_config, camera_blemish_result* p_result,
                           const camera_snapshot* p_picture)
{
    if (p_config == nullptr || p_result == nullptr || !camera_is_judged(p_picture) ||
        !camera_holds_luminance(*p_picture) || p_config->block_size == 0)
        return 0;
    camera_blemish_image image = {
        .y = nullptr,
        .meta = nullptr,
        .rows = p_picture->height / p_config->block_size,
        .cols = p_picture->width / p_config->block_size,
        .block_size = p_config->block_size,
        .row_step = p_config->row_step,
        .col_step = p_config->col_step,
    };
    if (!fits(*p_config, image.rows, image.cols))
        return 0;
    const camera_bytes y = camera_alloc(std::size_t{p_picture->width} * p_picture->height);
    if (y == nullptr ||
        camera_extract_y_image(p_picture->buffer, y.get(), p_picture->height, p_picture->width) != 1)
        return 0;
    const auto meta = heap_alloc<std::uint32_t>(std::size_t{image.rows} * image.cols * sizeof(std::uint32_t));
    if (meta == nullptr)
        return 0;
    image.y = y.get();
    image.meta = meta.get();
    run(image, *p_config, *p_result);
    return 1;
}
