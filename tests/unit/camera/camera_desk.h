// A camera of the tests' own, so that pictures have a layout: one record, whose layout the test chooses, and
// a driver that notes what it is asked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "camera/camera.h"
#include "camera/camera_tests.h"

class camera_desk {
public:
    explicit camera_desk(int layout = 2);
    ~camera_desk();

    static std::vector<std::string> asked; // calls of the driver, in order
    static int result;                     // of the next calls
};

// A picture of luminance, then V and U by turns, in a block of exactly its size.
struct desk_picture {
    std::uint32_t width, height;
    std::vector<std::uint8_t> bytes;

    desk_picture(std::uint32_t w, std::uint32_t h, std::uint8_t level)
        : width(w), height(h), bytes(w * h * 3 / 2, 128)
    {
        std::fill_n(bytes.begin(), w * h, level);
    }
    std::uint8_t& at(std::size_t x, std::size_t y) { return bytes[y * width + x]; }
    void box(std::size_t x, std::size_t y, std::size_t w, std::size_t h, std::uint8_t level)
    {
        for (std::size_t row = y; row < y + h; row++)
            std::fill_n(&at(x, row), w, level);
    }
    camera_snapshot snapshot()
    {
        return {0, width, height, bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    }
};
