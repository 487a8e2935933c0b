#include "camera/camera_judge.h"

#include <algorithm>

#include "camera_inner.h"

namespace {

struct window {
    std::uint64_t x, y, width, height;
};

// The window that is asked for, or that of the product in the picture's middle; where it doesn't fit, it
// leaves the picture.
window choose(const camera_snapshot& picture, const window& wanted)
{
    if (wanted.width != 0 && wanted.height != 0)
        return wanted;
    const camconf_focus_config config = camconf_get_camf_config();
    const std::uint32_t x = (picture.width >> 1) - (config.width >> 1);
    const std::uint32_t y = (picture.height >> 1) - (config.height >> 1);
    return {x, y, config.width, config.height};
}

bool lies_inside(const window& w, const camera_snapshot& picture)
{
    return w.width != 0 && w.height != 0 && w.x + w.width <= picture.width &&
           w.y + w.height <= picture.height;
}

bool measure(std::uint32_t kind, camera_focus_result& result)
{
    const std::uint32_t mx = result.max, mn = result.min;
    if (mx == 0)
        return false;
    if (kind == 5)
        result.measure = mn * 100 / mx;
    else
        result.measure =
            static_cast<std::uint32_t>(static_cast<float>(mx - mn) / static_cast<float>(mx + mn) * 1000.0f);
    return true;
}

} // namespace

int camera_focus_do_test(std::uint32_t kind, camera_focus_result* p_result, const camera_snapshot* p_picture,
                         std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height)
{
    std::uint32_t step, offset;
    if ((kind != 5 && kind != 6) || !camera_is_judged(p_picture) || !camera_holds_luminance(*p_picture) ||
        camera_get_yuv_yinfo(&step, &offset) != 1)
        return 0;
    const window w = choose(*p_picture, {x, y, width, height});
    if (!lies_inside(w, *p_picture))
        return 0;
    std::uint64_t max_sum = 0, min_sum = 0;
    for (std::uint64_t row = w.y; row < w.y + w.height; row++) {
        const std::uint8_t* p = p_picture->buffer + offset + (row * p_picture->width + w.x) * step;
        std::uint8_t most = p[0], least = p[0];
        for (std::uint64_t i = 1; i < w.width; i++) {
            most = std::max(most, p[i * step]);
            least = std::min(least, p[i * step]);
        }
        max_sum += most;
        min_sum += least;
    }
    p_result->max = static_cast<std::uint32_t>(max_sum / w.height);
    p_result->min = static_cast<std::uint32_t>(min_sum / w.height);
    return measure(kind, *p_result) ? 1 : 0;
}
