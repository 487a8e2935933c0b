// A picture in the making, and what can be painted on it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace phone {

struct yuv {
    std::uint8_t y, u, v;
};

struct canvas {
    std::uint32_t width, height; // even
    std::vector<std::uint8_t> bytes;

    canvas(std::uint32_t w, std::uint32_t h) : width(w), height(h), bytes(std::size_t{w} * h * 3 / 2, 128) {}

    std::uint8_t& y(std::size_t row, std::size_t col) { return bytes[row * width + col]; }
    // V, then U.
    std::uint8_t* vu(std::size_t row, std::size_t col)
    {
        return &bytes[std::size_t{width} * height + row / 2 * width + (col & ~std::size_t{1})];
    }
};

// A box of one brightness, cut at the edges; the colour stays where `u` and `v` aren't given.
struct canvas_box {
    std::int64_t x, y, width, height;
    std::uint8_t luma;
    std::optional<std::uint8_t> u, v;
};

void canvas_paint(canvas& c, const canvas_box& box);

// The chart of the general image test, as large as fits, without the parts that are named.
void chart_draw(canvas& c, const std::vector<std::string>& without);
bool chart_has_part(const std::string& part);

// A bright cross through the middle, turned clockwise.
void canvas_cross(canvas& c, double degrees);

// A PNG or raw picture from a file, stretched. The result is empty, or what is wrong.
struct picture_file {
    std::string path;
    std::uint32_t width = 0, height = 0; // of a raw one; 0 for PNG
    std::vector<std::uint8_t> bytes;     // RGB of a PNG, or the raw picture
    bool raw = false;
};
std::string picture_file_read(picture_file& file);
void canvas_picture(canvas& c, const picture_file& file);

} // namespace phone
