// What the parts of the display commands share. All draw on the active screen, none shows it.
#pragma once

#include <cstdint>

#include "dcp/dcp.h"

// Draws pattern `mode`; a number that has no pattern draws nothing. `level` is the grey of pattern 14.
void pattern_draw(std::uint32_t mode, std::uint32_t level);

// Draws the figure that the values of `dfig` say: a status.
int figure_draw(int argc, const dcp_word* argv);

// Value `i` of a line as a number, or `otherwise` when the line has fewer.
inline std::uint32_t value_at(int argc, const dcp_word* argv, int i, std::uint32_t otherwise)
{
    return i < argc ? dcp_uint(argv[i]) : otherwise;
}

// A colour of the three values from `i` on, each cut to 8 bits; missing ones are 0.
inline std::uint32_t colour_at(int argc, const dcp_word* argv, int i)
{
    return (value_at(argc, argv, i, 0) & 0xFF) << 16 | (value_at(argc, argv, i + 1, 0) & 0xFF) << 8 |
           (value_at(argc, argv, i + 2, 0) & 0xFF);
}
