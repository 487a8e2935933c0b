// What the monitor tells of itself: two blocks of 128 bytes.
#pragma once

#include <cstdint>

// Answers whether the second block is a whole extension, or, with `show`, the bytes of block 0 or 1. A
// status.
int f_hdmi_edid(int id, bool show, std::uint32_t block);
