// The test pictures. Each is a row of colours, or one for each band, that the screen repeats.
#include <algorithm>
#include <array>

#include "hdmi/hdmi.h"
#include "hdmi_msm_inner.h"
#include "screen/screen.h"

namespace {

constexpr std::uint32_t MOST_WIDTH = 1920;
constexpr std::uint32_t WHITE = 0xFFFFFF;
constexpr std::uint32_t GREY = 0x010101; // one level
constexpr std::uint32_t LEVELS = 256;
constexpr std::uint32_t bands[] = {0x010000, 0x000100, 0x000001}; // one level of red, green, blue

using row_of_colours = std::array<std::uint32_t, MOST_WIDTH>;

void draw_grey(std::uint32_t width, std::uint32_t height)
{
    row_of_colours row;
    for (std::uint32_t x = 0; x < width; x++)
        row[x] = x % LEVELS * GREY;
    screen_rows(0, 0, width, height, {row.data()});
}

// The levels 255 to 0 from left to right. The last of them are a column wider, so that they fill the width.
void set_levels(row_of_colours& row, std::uint32_t width)
{
    const std::uint32_t narrow = LEVELS - width % LEVELS;
    std::uint32_t x = 0;
    for (std::uint32_t i = 0; i < LEVELS; i++)
        for (const std::uint32_t end = x + width / LEVELS + (i < narrow ? 0 : 1); x < end; x++)
            row[x] = LEVELS - 1 - i;
}

void draw_bands(std::uint32_t width, std::uint32_t height)
{
    row_of_colours levels;
    set_levels(levels, width);
    std::uint32_t y = 0;
    for (const std::uint32_t band : bands) {
        const std::uint32_t end = band == bands[std::size(bands) - 1] ? height : y + height / 3;
        row_of_colours row;
        std::transform(levels.begin(), levels.begin() + width, row.begin(),
                       [=](std::uint32_t level) { return level * band; });
        screen_rows(0, y, width, end - y, {row.data()});
        y = end;
    }
}

} // namespace

bool hdmi_msm_draw(std::uint32_t pattern)
{
    const std::uint32_t width = std::min(screen_width(), MOST_WIDTH);
    const std::uint32_t height = screen_height();
    if (pattern == HDMI_PATTERN_WHITE)
        screen_clear(WHITE);
    else if (pattern == HDMI_PATTERN_GREY)
        draw_grey(width, height);
    else
        draw_bands(width, height);
    return screen_invalidate() != 0;
}
