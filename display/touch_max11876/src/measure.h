// The measurements. All block for as long as their frames take, and give false when frames don't come or
// commands can't be sent; what was asked to be filled is then as it was.
#pragma once

#include "touch_max11876/report.h"

using max11876_matrix = std::array<std::int32_t, MAX11876_PIXELS>;

// Of a matrix; an index is that of the first node that has the value.
struct max11876_stats {
    std::int32_t min;
    std::int32_t max;
    std::int32_t min_index;
    std::int32_t max_index;
    std::int32_t average; // these three of open and shorts alone
    float low_percent;    // how far the extremes are from the average, as parts of it; 0 for an average of 0
    float high_percent;
};

max11876_stats process_min_max_values(const max11876_matrix& matrix);

// How far each node moves over n frames; zeros for no frame.
bool do_noise_test(max11876_matrix& out, unsigned n);

// The nodes' signal, an average of n frames less that of n frames of offsets. With n = 0 the last result.
bool get_raw_pixel_matrix(max11876_matrix& out, unsigned n);

// Each node's difference to its right neighbour, and of these to the one below; the last row and column have
// none.
bool do_pixel_test(max11876_matrix& out, unsigned n);

struct max11876_lines {
    max11876_matrix pixels;
    max11876_stats stats;
};

// Drive and sense lines. With n = 0 the last results.
bool do_open_shorts_test(max11876_lines& drive, max11876_lines& sense, unsigned n);

// Sends the reset; false when the controller doesn't report it.
bool chip_reset();
