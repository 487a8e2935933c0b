// The image tests on the picture in memory, as commands call them. All give 0 with no picture, for one of
// another format than YUV, and for a picture whose bytes don't reach as far as its size says.
#pragma once

#include <cstdint>

#include "camera/camera.h"
#include "camera/camera_blemish.h"
#include "camera/camera_general.h"
#include "camera/camera_judge.h"

// Dark marks in a picture of an even field.
int camera_run_blemish_test(const camera_blemish_config* p_config, camera_blemish_result* p_result);
int camera_initialize_blemish_config(camera_blemish_config* p_config); // the defaults; 1

// The chart: edge, colour, flare, solarization, resolution. Not for format 5.
int camera_run_general_test(camera_general_result* p_result);
int camera_get_general_param(std::uint32_t id, std::uint32_t* p_value); // ids count in their low 16 bits
int camera_set_general_param(std::uint32_t id, std::uint32_t value);

int camera_run_focus_test(std::uint32_t kind, std::uint32_t x, std::uint32_t y, std::uint32_t width,
                          std::uint32_t height, camera_focus_result* p_result);
int camera_run_alignment_test(const camera_alignment_config& config, camera_alignment_result* p_result);
int camera_get_average_image_intensity(std::uint32_t threshold, std::uint32_t channel,
                                       std::uint32_t* p_average, std::uint32_t* p_count);

// The sensor's data lines; takes its own picture. `kind` 0 parallel, 1 pseudo-random sequence, 2 free
// pattern.
int camera_run_connection_test(std::uint32_t kind, std::uint32_t limit, std::uint32_t* p_first,
                               std::uint32_t* p_second);
