// Turns and mirrors a picture of luminance and half-size chroma pairs, as the display engine does.
#pragma once

#include <cstdint>

namespace phone {

constexpr std::uint32_t turn_left_right = 1; // flips come first,
constexpr std::uint32_t turn_up_down = 2;
constexpr std::uint32_t turn_quarter = 4; // then a quarter turn clockwise

// `width` and `height`, both even, are those of the source.
void turn_picture(const std::uint8_t* src, std::uint8_t* dst, std::uint32_t width, std::uint32_t height,
                  std::uint32_t flags);

} // namespace phone
