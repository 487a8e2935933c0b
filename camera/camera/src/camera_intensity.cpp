#include "camera/camera_judge.h"

#include "camera_inner.h"

namespace {

struct channel {
    std::uint64_t start;
    std::uint32_t step;
    std::uint64_t count;
};

// This test's own idea of where the samples of a picture lie; no samples when there are none.
channel find(std::uint32_t number, std::uint64_t n)
{
    const bool is_y = number == 1;
    switch (camconf_get_snapshot_yuv_format(camera_get_current_camera())) {
    case 0:
        return {is_y ? 0u : number == 2 ? 1u : 3u, is_y ? 2u : 4u, is_y ? n : n / 2};
    case 1:
        return {is_y ? 1u : number == 2 ? 0u : 2u, is_y ? 2u : 4u, is_y ? n : n / 2};
    case 2:
        return {is_y ? 0 : number == 2 ? n : n + n / 4, 1, is_y ? n : n / 4};
    default:
        return {0, 1, 0};
    }
}

} // namespace

int camera_intensity_get_average_intensity(std::uint32_t threshold, std::uint32_t channel_number,
                                           const camera_snapshot* p_picture, std::uint32_t* p_average,
                                           std::uint32_t* p_count)
{
    if (!camera_is_judged(p_picture) || channel_number < 1 || channel_number > 3)
        return 0;
    const channel c = find(channel_number, std::uint64_t{p_picture->width} * p_picture->height);
    if (c.count == 0 || c.start + (c.count - 1) * c.step >= p_picture->nbr_of_bytes)
        return 0;
    const std::uint8_t* p = p_picture->buffer + c.start;
    std::uint64_t sum = 0;
    std::uint32_t reached = 0;
    for (std::uint64_t i = 0; i < c.count; i++) {
        sum += p[i * c.step];
        reached += p[i * c.step] >= threshold;
    }
    *p_average = static_cast<std::uint32_t>(sum / c.count);
    *p_count = reached;
    return 1;
}
