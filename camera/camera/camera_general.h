// The general image test: judges a picture of the test chart. Finds the frame by its four red corners, then
// looks at colour patches, bright bars near the edges (flare), fine lines (resolution) and a grey ramp
// (solarization). Each part gives a word, 0 for a pass. Limits are parameters with numbers of their own, in
// memory only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

struct camera_general_request {
    const std::uint8_t* buffer;
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t nbr_of_bytes;
};

struct camera_general_result {
    std::uint32_t edge;
    std::uint32_t color;
    std::uint32_t flare;
    std::uint32_t solarization;
    std::uint32_t resolution;
};

struct cam_gen_point {
    std::int32_t x;
    std::int32_t y;
};

struct cam_gen_size {
    std::int32_t width;
    std::int32_t height;
};

// Three planes: y of width x height, u and v of width / 2 x height.
struct cam_gen_planes {
    std::uint8_t* y;
    std::uint8_t* u;
    std::uint8_t* v;
};

struct cam_gen_rgb {
    std::uint8_t r, g, b;
};

struct cam_gen_hsv {
    std::uint16_t hue;              // degrees
    std::uint8_t saturation, value; // percent
};

// One run's working record.
struct cam_gen_data {
    cam_gen_size size;
    cam_gen_planes planes;
    std::uint32_t frame_found;
    cam_gen_point corners[4]; // top left, top right, bottom left, bottom right
};

// A line of luminance samples; a walk over it counts bright bars.
struct cam_gen_line {
    const std::uint8_t* first;
    std::ptrdiff_t step;
    std::int32_t count;
    std::uint8_t least_bar;
    std::uint8_t least_gap;
};

void camera_general_init(); // all parameters at their defaults

// 1 when the tests ran; 0 with no picture, an odd size, a layout that isn't known, too few bytes or no
// memory.
int camera_general_do_test(const camera_general_request* p_request, camera_general_result* p_result);

// 1, or 0 for an id without a parameter. A set stores as many bits as the parameter has.
int camera_general_get_param(std::uint32_t id, std::uint32_t* p_value);
int camera_general_set_param(std::uint32_t id, std::uint32_t value);
int cam_gen_get_itemtype(std::uint32_t id); // 1 to 5: the test that the id belongs to; 0 below, 6 above

// Splits a picture into planes in memory of 2 x width x height bytes: 1, or 0.
int cam_gen_extract_yuv(const camera_general_request& request, const cam_gen_planes& planes);

cam_gen_rgb camera_general_get_rgb(const cam_gen_planes& planes, const cam_gen_size& size,
                                   const cam_gen_point& at);
cam_gen_hsv camera_general_get_hsv(const cam_gen_rgb& rgb);

// The five tests.
std::uint32_t cam_gen_edge_do_test(cam_gen_data& data); // notes the frame's inner corners
std::uint32_t cam_gen_color_do_test(const cam_gen_data& data);
std::uint32_t cam_gen_flare_do_test(const cam_gen_data& data);
std::uint32_t cam_gen_solarization_do_test(const cam_gen_data& data);
std::uint32_t cam_gen_resolution_do_test(const cam_gen_data& data);

// Whether a line shows exactly `count` bars between the two brightness limits.
bool cam_gen_mountain_chk(const cam_gen_line& line, std::uint8_t limit1, std::uint8_t limit2,
                          std::uint32_t count);

// Whether enough of the contrasts along a block of lines are greater than `least` percent.
bool cam_gen_chk_ctf(const std::uint8_t* block, const cam_gen_size& size, std::uint32_t wanted,
                     std::uint8_t least);
