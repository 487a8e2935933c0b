// What the two cameras see: an even field, the chart, a tilted cross, a file, with boxes and shades painted
// over it, and how the sensors' data lines are. A picture is drawn once for a scene, a size and a pattern,
// and kept. Pictures are luminance, then rows of V and U by turns for two rows each.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace phone {

using scene_picture = std::shared_ptr<const std::vector<std::uint8_t>>;

// The picture that camera 1 or 2 takes now; `count_up` is the test pattern in place of the scene. Sizes are
// even.
scene_picture scene_draw(unsigned camera, std::uint32_t width, std::uint32_t height, bool count_up);

struct scene_data_lines {
    enum { good, stuck, shorted } fault = good;
    unsigned bit = 0;
    unsigned other = 0; // the level of a stuck one; the line that reads what `bit` carries
};

void scene_set_data(unsigned camera, const scene_data_lines& lines);

void scene_attach(); // the word `scene`

} // namespace phone
