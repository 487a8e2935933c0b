// The small image tests, which look at one picture: contrast in a window, tilt of a bright cross, mean of a
// channel; and those of the sensor's data lines, which take a picture of a test pattern of their own. Results
// are 1 and 0; 0 also for a picture of another format than 0 or 5 or whose bytes don't reach far enough.
#pragma once

#include <cstdint>
#include <span>

struct camera_snapshot;

struct camera_focus_result {
    std::uint32_t max; // mean of the rows' largest samples
    std::uint32_t min; // mean of the rows' smallest
    std::uint32_t measure;
};

// `kind` 5: the smallest in percent of the largest; 6: contrast in per mille. Width or height 0: the window
// of camconf in the middle.
int camera_focus_do_test(std::uint32_t kind, camera_focus_result* p_result, const camera_snapshot* p_picture,
                         std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height);

struct camera_alignment_config {
    std::uint32_t x_margin;
    std::uint32_t y_margin;
    std::uint8_t threshold;
};

struct camera_alignment_result {
    double angle; // degrees
    std::uint32_t top_x, top_y, bottom_x, bottom_y;
    std::uint32_t left_x, left_y, right_x, right_y;
};

// The first bright samples along four lines, at the margins from the picture's edges.
int camera_alignment_test(const camera_alignment_config& config, camera_alignment_result* p_result,
                          const camera_snapshot* p_picture);

// Mean of a channel, 1 Y, 2 U, 3 V, and how many of its samples reach `threshold`.
int camera_intensity_get_average_intensity(std::uint32_t threshold, std::uint32_t channel,
                                           const camera_snapshot* p_picture, std::uint32_t* p_average,
                                           std::uint32_t* p_count);

// `kind` 0: lines that are shorted to a neighbour in `*p_first`, lines that never move in `*p_second`; 1:
// mismatches; 2: samples. At most `limit` samples or pixels are looked at.
int camera_connection_do_test(std::uint32_t kind, std::uint32_t limit, std::uint32_t* p_first,
                              std::uint32_t* p_second, camera_snapshot* p_picture);

// What a walk over samples of the parallel test says.
struct camera_connection_lines {
    std::uint32_t shorted; // bits of both lines of each pair that never differs
    std::uint32_t stuck;
};
camera_connection_lines camera_connection_walk(std::span<const std::uint8_t> bytes, std::uint32_t first,
                                               std::uint32_t step, std::uint32_t limit);

// The sensor's pseudo-random sequence, and a walk over a packed 12-bit picture that is held against it.
constexpr std::uint32_t CAMERA_PN9_LENGTH = 511;
void camera_pn9_init(); // makes the table
std::span<const std::uint16_t, CAMERA_PN9_LENGTH> camera_pn9_table();
std::uint16_t getBufPN9(const camera_snapshot& picture, std::uint32_t x, std::uint32_t y); // 0 behind its end

// 1 with the mismatches, -1 when no pixel ever matched.
int pn9_checkTestPattern(const camera_snapshot& picture, std::uint32_t limit, std::int32_t* p_errors);

void camera_connection_init();
