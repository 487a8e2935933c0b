// Where the samples of a YUV picture lie.
#include "camera/camera.h"

#include <cstring>

#include "camera_inner.h"

namespace {

struct yuv_row {
    bool has_chroma;
    std::uint32_t y_start, y_step;
    std::uint32_t u_start, v_start, chroma_step; // chroma starts count from the plane's end if `planar`
    bool planar;
    std::uint32_t rows; // per chroma row
};

// clang-format off
constexpr yuv_row yuv_layouts[] = {
    // chroma  y start, step   u start, v start, step   planar  rows
    {  true,   0, 2,           1, 3, 2,                 false,  1 },
    {  false,  1, 2,           0, 0, 0,                 false,  0 },
    {  true,   0, 1,           1, 0, 1,                 true,   2 },
};
// clang-format on

const yuv_row* layout()
{
    const int format = camconf_get_snapshot_yuv_format(camera_me.current);
    return format >= 0 && format < static_cast<int>(std::size(yuv_layouts)) ? &yuv_layouts[format] : nullptr;
}

int chroma_info(std::uint32_t plane_size, std::uint32_t yuv_row::*p_start, std::uint32_t* p_step,
                std::uint32_t* p_offset, std::uint32_t* p_rows)
{
    const yuv_row* p = layout();
    if (p == nullptr || !p->has_chroma || p_step == nullptr || p_offset == nullptr || p_rows == nullptr)
        return -1;
    *p_step = p->chroma_step;
    *p_offset = p->*p_start + (p->planar ? plane_size : 0);
    *p_rows = p->rows;
    return 1;
}

} // namespace

int camera_get_yuv_yinfo(std::uint32_t* p_step, std::uint32_t* p_offset)
{
    const yuv_row* p = layout();
    if (p == nullptr || p_step == nullptr || p_offset == nullptr)
        return -1;
    *p_step = p->y_step;
    *p_offset = p->y_start;
    return 1;
}

int camera_get_yuv_uinfo(std::uint32_t plane_size, std::uint32_t* p_step, std::uint32_t* p_offset,
                         std::uint32_t* p_rows)
{
    return chroma_info(plane_size, &yuv_row::u_start, p_step, p_offset, p_rows);
}

int camera_get_yuv_vinfo(std::uint32_t plane_size, std::uint32_t* p_step, std::uint32_t* p_offset,
                         std::uint32_t* p_rows)
{
    return chroma_info(plane_size, &yuv_row::v_start, p_step, p_offset, p_rows);
}

int camera_extract_y_image(const std::uint8_t* src, std::uint8_t* dst, std::uint32_t height,
                           std::uint32_t width)
{
    std::uint32_t step, offset;
    if (src == nullptr || dst == nullptr || ((height | width) & 2) != 0 ||
        camera_get_yuv_yinfo(&step, &offset) != 1)
        return -1;
    const std::size_t count = std::size_t{height} * width;
    if (step == 1) {
        std::memcpy(dst, src + offset, count);
        return 1;
    }
    for (std::size_t i = 0; i < count; i++)
        dst[i] = src[offset + i * step];
    return 1;
}

bool camera_holds_luminance(const camera_snapshot& picture)
{
    std::uint32_t step, offset;
    if (picture.buffer == nullptr || camera_get_yuv_yinfo(&step, &offset) != 1)
        return false;
    const std::uint64_t count = std::uint64_t{picture.width} * picture.height;
    return count > 0 && count <= UINT32_MAX && offset + (count - 1) * step < picture.nbr_of_bytes;
}
