// A computed number as a 32-bit word: cut towards zero, low 32 bits; 0 for what no 64-bit integer holds,
// since a channel file may say anything.
#pragma once

#include <cstdint>

inline std::uint32_t cut_u32(double value)
{
    constexpr double LIMIT = 9e18;
    return value > -LIMIT && value < LIMIT ? static_cast<std::uint32_t>(static_cast<std::int64_t>(value)) : 0;
}
