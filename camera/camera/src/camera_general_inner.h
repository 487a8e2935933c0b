// What the parts of the general image test share: parameters by id, geometry of the frame, one luminance
// sample.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>

#include "camera/camera_general.h"

// Bits of a result word.
constexpr std::uint32_t CAM_GEN_NO_FRAME = 1;
constexpr std::uint32_t CAM_GEN_FAILED = 0x10; // and 0x100 << i for the part i that failed

inline std::uint32_t cam_gen_part(std::uint32_t bits, std::uint32_t i)
{
    return bits | 0x100u << i;
}

// The parameters of a test, by offset from its first id.
struct cam_gen_param {
    std::uint32_t value;
    std::uint32_t mask;
};

std::span<cam_gen_param> cam_gen_edge_params();
std::span<cam_gen_param> cam_gen_color_params();
std::span<cam_gen_param> cam_gen_flare_params();
std::span<cam_gen_param> cam_gen_solarization_params();
std::span<cam_gen_param> cam_gen_resolution_params();

void cam_gen_edge_init();
void cam_gen_color_init();
void cam_gen_flare_init();
void cam_gen_solarization_init();
void cam_gen_resolution_init();

// Mean width and height of the frame.
inline cam_gen_size cam_gen_frame(const cam_gen_data& data)
{
    const cam_gen_point* c = data.corners;
    return {(c[1].x - c[0].x + c[3].x - c[2].x) / 2, (c[2].y - c[0].y + c[3].y - c[1].y) / 2};
}

inline bool cam_gen_is_inside(const cam_gen_data& data, std::int64_t x, std::int64_t y)
{
    return x >= 0 && y >= 0 && x < data.size.width && y < data.size.height;
}

// Luminance at a place; 0 outside the picture.
inline std::uint8_t cam_gen_y_at(const cam_gen_data& data, std::int64_t x, std::int64_t y)
{
    return cam_gen_is_inside(data, x, y) ? data.planes.y[y * data.size.width + x] : std::uint8_t{0};
}
