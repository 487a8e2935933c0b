// The picture of one display, cut into tiles: which of them have changed since a page saw them last, and the
// bytes that tell a page of them.
//
// A message is a head of 16 bytes and tiles up to its end, all numbers little-endian, so that a page reads
// them with typed arrays where they lie:
//   head  u8 display, u8 1 for the last message of a picture, u16 tiles, u16 width, u16 height,
//         u16 tile width, u16 tile height, u32 0
//   tile  u16 column, u16 row (in tiles), u32 bytes that follow with bit 31 for runs, then
//         pixels (u32 R G B 255, row by row), or runs (u32 length << 0, u32 pixel)...
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace view {

constexpr unsigned tile_width = 60;
constexpr unsigned tile_height = 32;

// A picture as the phone's memory holds it.
struct picture {
    const std::uint8_t* p = nullptr; // null: nothing is shown
    unsigned width = 0, height = 0, bits = 0;
    std::size_t line = 0; // bytes from row to row
};

struct tiles {
    unsigned width = 0, height = 0;       // of the picture, in pixels
    unsigned columns = 0, rows = 0;       // in tiles
    std::vector<std::uint32_t> shown{};   // the picture, in the page's colours
    std::vector<std::uint32_t> changed{}; // for each tile, the number of the picture in which it changed last
    std::uint32_t number = 0;             // of the newest picture
};

// Takes a new picture. True when anything differs from the one before.
bool tiles_take(tiles& t, const picture& now);

// What a page has: tiles of pictures after `number` are still to be sent, from the tile `at`.
struct tiles_page {
    std::uint32_t number = 0;  // of the newest picture that the page has whole
    std::uint32_t towards = 0; // of the one that is on its way; 0 for none
    std::size_t at = 0;
};

// Whether a page lacks anything.
bool tiles_lacks(const tiles& t, const tiles_page& page);

// Appends the next message of at most about `limit` bytes to `out`. True when it is the last of its picture.
bool tiles_next(const tiles& t, tiles_page& page, unsigned display, std::size_t limit,
                std::vector<std::uint8_t>& out);

} // namespace view
