#include "camera/camera_judge.h"

#include <cmath>

#include "camera_inner.h"
#include "check/check.h"

namespace {

constexpr double PI = 3.14159265;

struct y_image {
    const std::uint8_t* p;
    std::uint32_t width;
    std::uint32_t height;
};

// Walks along `row` between the margins to the first bright sample.
bool camera_alignment_find_vline(const y_image& image, const camera_alignment_config& config,
                                 std::uint32_t row, float* p_x)
{
    for (std::uint32_t x = config.x_margin; x < image.width - config.x_margin; x++)
        if (image.p[std::size_t{row} * image.width + x] >= config.threshold) {
            *p_x = static_cast<float>(x);
            return true;
        }
    return false;
}

// The same down `column`.
bool camera_alignment_find_hline(const y_image& image, const camera_alignment_config& config,
                                 std::uint32_t column, float* p_y)
{
    for (std::uint32_t y = config.y_margin; y < image.height - config.y_margin; y++)
        if (image.p[std::size_t{y} * image.width + column] >= config.threshold) {
            *p_y = static_cast<float>(y);
            return true;
        }
    return false;
}

bool find_all(const y_image& image, const camera_alignment_config& config, camera_alignment_result& result)
{
    const std::uint32_t bottom = image.height - config.y_margin, right = image.width - config.x_margin;
    float top_x, bottom_x, left_y, right_y;
    if (!camera_alignment_find_vline(image, config, config.y_margin, &top_x) ||
        !camera_alignment_find_vline(image, config, bottom, &bottom_x) ||
        !camera_alignment_find_hline(image, config, config.x_margin, &left_y) ||
        !camera_alignment_find_hline(image, config, right, &right_y))
        return false;
    const float quotient = (top_x - bottom_x) / static_cast<float>(image.height - 2 * config.y_margin);
    result = {.angle = std::atan(static_cast<double>(quotient)) * 180.0 / PI,
              .top_x = static_cast<std::uint32_t>(top_x),
              .top_y = config.y_margin,
              .bottom_x = static_cast<std::uint32_t>(bottom_x),
              .bottom_y = bottom,
              .left_x = config.x_margin,
              .left_y = static_cast<std::uint32_t>(left_y),
              .right_x = right,
              .right_y = static_cast<std::uint32_t>(right_y)};
    return true;
}

} // namespace

int camera_alignment_test(const camera_alignment_config& config, camera_alignment_result* p_result,
                          const camera_snapshot* p_picture)
{
    if (!camera_is_judged(p_picture) || !camera_holds_luminance(*p_picture) || config.x_margin == 0 ||
        config.y_margin == 0 || config.x_margin > p_picture->width / 2 ||
        config.y_margin > p_picture->height / 2)
        return 0;
    const camera_bytes y = camera_alloc(std::size_t{p_picture->width} * p_picture->height);
    if (y == nullptr)
        check_failed("y_imagebuf = (uint8_t*)malloc(w * h)", __FILE__, __LINE__);
    if (camera_extract_y_image(p_picture->buffer, y.get(), p_picture->height, p_picture->width) != 1)
        return 0;
    return find_all({y.get(), p_picture->width, p_picture->height}, config, *p_result) ? 1 : 0;
}
