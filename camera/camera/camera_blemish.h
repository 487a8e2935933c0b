// The blemish test: looks for dark marks, dirt or defects of the sensor, in a picture of an evenly lit field.
// One pass finds soft, wide shadows by comparing cells of a coarse meta image with cells some steps away;
// another finds specks by comparing each pixel with the cells round its own. It judges nothing: it counts and
// tells where the darkest marks are.
#pragma once

#include <cstdint>
#include <span>

#include "camconf/camconf.h"

struct camera_snapshot;

struct camera_blemish_result {
    std::uint32_t spots;    // shadows, neighbours merged
    std::uint32_t specks;   // pixels, not merged
    std::uint32_t spot_col; // of the darkest shadow, in pixels; 0 for none
    std::uint32_t spot_row;
    std::uint32_t speck_col; // of the block of the darkest speck, in pixels; 0 for none
    std::uint32_t speck_row;
};

// A cell of the meta image that is too dark.
struct camera_blemish_spot {
    std::uint32_t row;
    std::uint32_t col;
    double value; // relative darkness
};

constexpr std::uint32_t CAMERA_BLEMISH_ROOM = 10005;                   // entries of a list
constexpr std::uint32_t CAMERA_BLEMISH_FULL = CAMERA_BLEMISH_ROOM - 1; // a pass ends when it has so many

// A packed luminance picture and its meta image. Rows of the picture are taken as cols * block_size long.
struct camera_blemish_image {
    const std::uint8_t* y;
    std::uint32_t* meta; // rows x cols sums
    std::uint32_t rows;
    std::uint32_t cols;
    std::uint32_t block_size;
    std::uint32_t row_step;
    std::uint32_t col_step;
};

void camera_blemish_init();

// 1 with a result; 0 with no picture, no room, or a configuration that the picture's size doesn't allow.
int camera_blemish_do_test(const camera_blemish_config* p_config, camera_blemish_result* p_result,
                           const camera_snapshot* p_picture);

// Fills the meta image: each cell is the sum of the sampled pixels of its block.
void camera_blemish_make_meta_image(const camera_blemish_image& image);

// The two passes: how many entries they put into `spots`. The image must have more than twice as many rows
// and columns as the kernel reaches, and at least 5.
std::uint32_t camera_blemish_unfocused_spot_detect(const camera_blemish_image& image,
                                                   const camera_blemish_config& config,
                                                   std::span<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots);
std::uint32_t camera_blemish_focused_spot_detect(const camera_blemish_image& image,
                                                 std::uint32_t focused_threshold,
                                                 std::span<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots);

// How many entries are left when each that has a later neighbour within 3 cells is taken as its duplicate.
std::uint32_t camera_blemish_merge(std::span<const camera_blemish_spot> spots);
