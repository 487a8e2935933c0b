#include "camera/canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <png.h>

namespace phone {

namespace {

constexpr std::uint8_t dark = 40, bright = 200; // of the cross
constexpr std::uint32_t largest_side = 8192;

// ITU-R BT.601, 16 to 235.
yuv of_rgb(double r, double g, double b)
{
    const auto level = [](double v) {
        return static_cast<std::uint8_t>(std::clamp(std::lround(v), 0L, 255L));
    };
    const double luma = 0.299 * r + 0.587 * g + 0.114 * b;
    return {level(16 + luma * 219 / 255), level(128 + (b - luma) / 1.772 * 224 / 255),
            level(128 + (r - luma) / 1.402 * 224 / 255)};
}

// Where a place of `size` pixels lies in a row or column of `of` pixels.
std::size_t stretched(std::size_t at, std::size_t size, std::size_t of)
{
    return (2 * at + 1) * of / (2 * size);
}

std::string read_png(picture_file& file)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, file.path.c_str()) == 0)
        return file.path + ": " + image.message;
    if (image.width > largest_side || image.height > largest_side) {
        png_image_free(&image);
        return file.path + ": at most " + std::to_string(largest_side) + " pixels each way are possible";
    }
    image.format = PNG_FORMAT_RGB;
    file.width = image.width;
    file.height = image.height;
    file.bytes.resize(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, file.bytes.data(), 0, nullptr) == 0)
        return file.path + ": " + image.message;
    return {};
}

void paint_png(canvas& c, const picture_file& file)
{
    const auto rgb = [&](std::size_t row, std::size_t col) {
        return &file.bytes[(stretched(row, c.height, file.height) * file.width +
                            stretched(col, c.width, file.width)) *
                           3];
    };
    for (std::size_t row = 0; row < c.height; row++)
        for (std::size_t col = 0; col < c.width; col++) {
            const std::uint8_t* p = rgb(row, col);
            c.y(row, col) = of_rgb(p[0], p[1], p[2]).y;
        }
    for (std::size_t row = 0; row < c.height; row += 2)
        for (std::size_t col = 0; col < c.width; col += 2) {
            double sum[3] = {};
            for (const std::size_t i : {0, 1, 2, 3})
                for (int k = 0; k < 3; k++)
                    sum[k] += rgb(row + i / 2, col + i % 2)[k] / 4.0;
            const yuv colour = of_rgb(sum[0], sum[1], sum[2]);
            c.vu(row, col)[0] = colour.v;
            c.vu(row, col)[1] = colour.u;
        }
}

void paint_raw(canvas& c, const picture_file& file)
{
    const std::size_t pixels = std::size_t{file.width} * file.height;
    for (std::size_t row = 0; row < c.height; row++)
        for (std::size_t col = 0; col < c.width; col++) {
            const std::size_t y = stretched(row, c.height, file.height),
                              x = stretched(col, c.width, file.width);
            c.y(row, col) = file.bytes[y * file.width + x];
            const std::size_t colour = pixels + y / 2 * file.width + (x & ~std::size_t{1});
            c.vu(row, col)[0] = file.bytes[colour];
            c.vu(row, col)[1] = file.bytes[colour + 1];
        }
}

} // namespace

void canvas_paint(canvas& c, const canvas_box& box)
{
    const auto cut = [](std::int64_t v, std::uint32_t most) {
        return static_cast<std::size_t>(std::clamp<std::int64_t>(v, 0, most));
    };
    const std::size_t left = cut(box.x, c.width), right = cut(box.x + box.width, c.width);
    const std::size_t top = cut(box.y, c.height), bottom = cut(box.y + box.height, c.height);
    for (std::size_t row = top; row < bottom; row++)
        for (std::size_t col = left; col < right; col++) {
            c.y(row, col) = box.luma;
            if (box.u && box.v) {
                c.vu(row, col)[0] = *box.v;
                c.vu(row, col)[1] = *box.u;
            }
        }
}

void canvas_cross(canvas& c, double degrees)
{
    const double angle = degrees * M_PI / 180, cosine = std::cos(angle), sine = std::sin(angle);
    const double half = std::max(2.0, std::min(c.width, c.height) / 60.0);
    const double middle_x = (c.width - 1) / 2.0, middle_y = (c.height - 1) / 2.0;
    for (std::size_t row = 0; row < c.height; row++)
        for (std::size_t col = 0; col < c.width; col++) {
            const double dx = static_cast<double>(col) - middle_x, dy = static_cast<double>(row) - middle_y;
            const bool on =
                std::fabs(dx * cosine + dy * sine) <= half || std::fabs(dy * cosine - dx * sine) <= half;
            c.y(row, col) = on ? bright : dark;
        }
}

std::string picture_file_read(picture_file& file)
{
    if (!file.raw)
        return read_png(file);
    if (file.width == 0 || file.height == 0 || file.width > largest_side || file.height > largest_side ||
        ((file.width | file.height) & 1) != 0)
        return "a raw picture has an even size of at most " + std::to_string(largest_side) +
               " pixels each way";
    const std::size_t size = std::size_t{file.width} * file.height * 3 / 2;
    std::ifstream in(file.path, std::ios::binary);
    if (!in)
        return file.path + ": can't be read";
    file.bytes.resize(size + 1);
    in.read(reinterpret_cast<char*>(file.bytes.data()), static_cast<std::streamsize>(file.bytes.size()));
    if (static_cast<std::size_t>(in.gcount()) != size)
        return file.path + ": a picture of " + std::to_string(file.width) + "x" +
               std::to_string(file.height) + " has " + std::to_string(size) + " bytes";
    file.bytes.resize(size);
    return {};
}

void canvas_picture(canvas& c, const picture_file& file)
{
    if (file.raw && file.width == c.width && file.height == c.height)
        c.bytes = file.bytes;
    else if (file.raw)
        paint_raw(c, file);
    else
        paint_png(c, file);
}

} // namespace phone
