#include "display/turn.h"

#include <algorithm>
#include <cstddef>

namespace phone {

namespace {

constexpr std::uint32_t block = 32; // rows and columns that stay in the cache together

// Where the source pixel of a place of the target lies: `origin` and a step along and down the target.
struct walk {
    std::ptrdiff_t origin, along, down;
};

walk walk_of(std::ptrdiff_t width, std::ptrdiff_t height, std::uint32_t flags)
{
    const bool mirrored = (flags & turn_left_right) != 0, upside_down = (flags & turn_up_down) != 0;
    const std::ptrdiff_t right = mirrored ? -1 : 1, below = upside_down ? -width : width;
    const std::ptrdiff_t left = mirrored ? width - 1 : 0;
    if ((flags & turn_quarter) == 0)
        return {left + (upside_down ? (height - 1) * width : 0), right, below};
    // Turned, the target's rows run up the source's columns.
    return {left + (upside_down ? 0 : (height - 1) * width), -below, right};
}

template <typename Pixel>
void turn_plane(const Pixel* src, Pixel* dst, std::uint32_t width, std::uint32_t height, std::uint32_t flags)
{
    const walk w = walk_of(width, height, flags);
    const bool quarter = (flags & turn_quarter) != 0;
    const std::uint32_t out_width = quarter ? height : width, out_height = quarter ? width : height;
    for (std::uint32_t by = 0; by < out_height; by += block)
        for (std::uint32_t bx = 0; bx < out_width; bx += block) {
            const std::uint32_t right = std::min(bx + block, out_width);
            for (std::uint32_t y = by; y < std::min(by + block, out_height); y++) {
                const Pixel* from = src + w.origin + y * w.down + bx * w.along;
                Pixel* to = dst + std::size_t{y} * out_width + bx;
                for (std::uint32_t x = bx; x < right; x++, from += w.along)
                    *to++ = *from;
            }
        }
}

struct [[gnu::packed]] chroma_pair {
    std::uint8_t v, u;
};

} // namespace

void turn_picture(const std::uint8_t* src, std::uint8_t* dst, std::uint32_t width, std::uint32_t height,
                  std::uint32_t flags)
{
    const std::size_t pixels = std::size_t{width} * height;
    turn_plane(src, dst, width, height, flags);
    turn_plane(reinterpret_cast<const chroma_pair*>(src + pixels),
               reinterpret_cast<chroma_pair*>(dst + pixels), width / 2, height / 2, flags);
}

} // namespace phone
