#include "view/tiles.h"

#include <algorithm>
#include <cstring>

namespace view {

namespace {

constexpr std::uint32_t opaque = 0xFF000000;
constexpr std::uint32_t runs_flag = 0x80000000;
constexpr std::size_t tile_pixels = std::size_t{tile_width} * tile_height;

// Blue first in 24 and 32 bits, blue lowest in 16; the page wants red first.
std::uint32_t turned(std::uint32_t bgr)
{
    return opaque | (bgr & 0x0000FF00) | (bgr >> 16 & 0xFF) | (bgr & 0xFF) << 16;
}

void convert_32(const std::uint8_t* from, std::uint32_t* to, unsigned count)
{
    for (unsigned i = 0; i < count; i++) {
        std::uint32_t word;
        std::memcpy(&word, from + std::size_t{i} * 4, sizeof word);
        to[i] = turned(word);
    }
}

void convert_24(const std::uint8_t* from, std::uint32_t* to, unsigned count)
{
    for (unsigned i = 0; i < count; i++, from += 3)
        to[i] = opaque | from[2] | std::uint32_t{from[1]} << 8 | std::uint32_t{from[0]} << 16;
}

void convert_16(const std::uint8_t* from, std::uint32_t* to, unsigned count)
{
    for (unsigned i = 0; i < count; i++) {
        std::uint16_t word;
        std::memcpy(&word, from + std::size_t{i} * 2, sizeof word);
        const std::uint32_t red = word >> 11, green = word >> 5 & 63, blue = word & 31;
        to[i] = opaque | red * 255 / 31 | (green * 255 / 63) << 8 | (blue * 255 / 31) << 16;
    }
}

void convert(const picture& now, std::size_t x, std::size_t y, std::uint32_t* to, unsigned count)
{
    if (now.p == nullptr) {
        std::fill_n(to, count, opaque);
        return;
    }
    const std::uint8_t* const from = now.p + y * now.line + x * now.bits / 8;
    if (now.bits == 32)
        convert_32(from, to, count);
    else if (now.bits == 24)
        convert_24(from, to, count);
    else
        convert_16(from, to, count);
}

struct rectangle {
    unsigned x, y, width, height;
};

rectangle rectangle_of(const tiles& t, std::size_t tile)
{
    const auto column = static_cast<unsigned>(tile % t.columns),
               row = static_cast<unsigned>(tile / t.columns);
    return {column * tile_width, row * tile_height, std::min(tile_width, t.width - column * tile_width),
            std::min(tile_height, t.height - row * tile_height)};
}

// Brings one tile up to date; true when it differs. The rows before the first difference are left alone.
bool take_tile(tiles& t, const picture& now, const rectangle& r)
{
    std::uint32_t fresh[tile_width];
    bool differs = false;
    for (unsigned y = r.y; y < r.y + r.height; y++) {
        std::uint32_t* const old = &t.shown[std::size_t{y} * t.width + r.x];
        convert(now, r.x, y, fresh, r.width);
        if (!differs && std::memcmp(fresh, old, r.width * sizeof *old) == 0)
            continue;
        differs = true;
        std::memcpy(old, fresh, r.width * sizeof *old);
    }
    return differs;
}

void start_over(tiles& t, const picture& now)
{
    t.width = now.width;
    t.height = now.height;
    t.columns = (now.width + tile_width - 1) / tile_width;
    t.rows = (now.height + tile_height - 1) / tile_height;
    t.shown.assign(std::size_t{t.width} * t.height, 0);
    t.changed.assign(std::size_t{t.columns} * t.rows, t.number + 1);
}

void append(std::vector<std::uint8_t>& out, const void* p, std::size_t size)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(p);
    out.insert(out.end(), bytes, bytes + size);
}

// Where the run that begins at `i` ends; two pixels are looked at at once.
std::size_t run_end(const std::uint32_t* pixels, std::size_t i, std::size_t count)
{
    const std::uint32_t first = pixels[i];
    const std::uint64_t pair = std::uint64_t{first} << 32 | first;
    std::uint64_t next[2];
    for (; i + 4 <= count; i += 4) {
        std::memcpy(next, pixels + i, sizeof next);
        if (((next[0] ^ pair) | (next[1] ^ pair)) != 0)
            break;
    }
    while (i < count && pixels[i] == first)
        i++;
    return i;
}

// Length and pixel by turns; 0 when that would be longer than the pixels themselves.
std::size_t make_runs(const std::uint32_t* pixels, std::size_t count, std::uint32_t* runs)
{
    std::size_t at = 0;
    for (std::size_t i = 0; i < count;) {
        const std::size_t start = i;
        i = run_end(pixels, i, count);
        if (at + 2 > count)
            return 0;
        runs[at++] = static_cast<std::uint32_t>(i - start);
        runs[at++] = pixels[start];
    }
    return at;
}

void append_tile(const tiles& t, std::size_t tile, std::vector<std::uint8_t>& out)
{
    const rectangle r = rectangle_of(t, tile);
    std::uint32_t pixels[tile_pixels], runs[tile_pixels];
    const std::size_t count = std::size_t{r.width} * r.height;
    for (unsigned y = 0; y < r.height; y++)
        std::memcpy(pixels + std::size_t{y} * r.width, &t.shown[std::size_t{r.y + y} * t.width + r.x],
                    r.width * sizeof *pixels);
    const std::size_t words = make_runs(pixels, count, runs);
    const auto size = static_cast<std::uint32_t>((words != 0 ? words : count) * sizeof *pixels);
    const std::uint32_t head[2] = {static_cast<std::uint32_t>(tile % t.columns) |
                                       static_cast<std::uint32_t>(tile / t.columns) << 16,
                                   words != 0 ? size | runs_flag : size};
    append(out, head, sizeof head);
    append(out, words != 0 ? runs : pixels, size);
}

} // namespace

bool tiles_take(tiles& t, const picture& now)
{
    bool any = now.width != t.width || now.height != t.height;
    if (any)
        start_over(t, now);
    for (std::size_t tile = 0; tile < t.changed.size(); tile++) {
        if (!take_tile(t, now, rectangle_of(t, tile)))
            continue;
        t.changed[tile] = t.number + 1;
        any = true;
    }
    if (any)
        t.number++;
    return any;
}

bool tiles_lacks(const tiles& t, const tiles_page& page)
{
    return page.towards != 0 || page.number != t.number;
}

bool tiles_next(const tiles& t, tiles_page& page, unsigned display, std::size_t limit,
                std::vector<std::uint8_t>& out)
{
    if (page.towards == 0) {
        page.towards = t.number;
        page.at = 0;
    }
    const std::size_t start = out.size();
    std::uint16_t head[8] = {
        static_cast<std::uint16_t>(display),  0,          static_cast<std::uint16_t>(t.width),
        static_cast<std::uint16_t>(t.height), tile_width, tile_height};
    append(out, head, sizeof head);
    for (; page.at < t.changed.size() && out.size() - start < limit; page.at++) {
        if (t.changed[page.at] <= page.number)
            continue;
        append_tile(t, page.at, out);
        head[1]++;
    }
    const bool last = page.at >= t.changed.size();
    if (last) {
        head[0] |= 0x100;
        page.number = page.towards;
        page.towards = 0;
    }
    std::memcpy(&out[start], head, sizeof head);
    return last;
}

} // namespace view
