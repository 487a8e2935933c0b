// The yardsticks of the camera's benchmarks: the same tests made of OpenCV's operations, on one thread.
#pragma once

#include <cstdint>

struct cv_blemish_words {
    std::uint32_t words[6];
};

// The six words of the blemish test at its defaults, for a picture whose marks lie away from its edges.
cv_blemish_words cv_blemish(const std::uint8_t* picture, int width, int height);

// The middles of the red blocks in the four corner rectangles of a picture of luminance and VU pairs: how
// many were found, and the sum of their places.
struct cv_corners_found {
    int count;
    long sum;
};
cv_corners_found cv_corners(const std::uint8_t* picture, int width, int height);
