// The plain rules of drawing, pixel by pixel: what the quick ways must come to.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

struct plain_canvas {
    plain_canvas(std::uint32_t width, std::uint32_t height, std::uint32_t colour)
        : w(width), h(height), pixels(std::size_t{width} * height, colour)
    {
    }

    void put(std::uint32_t x, std::uint32_t y, std::uint32_t colour)
    {
        if (x < w && y < h)
            pixels[std::size_t{y} * w + x] = colour;
    }

    void line(std::uint32_t x0, std::uint32_t y0, std::uint32_t x1, std::uint32_t y1, std::uint32_t colour)
    {
        const bool steep = (y1 > y0 ? y1 - y0 : y0 - y1) > (x1 > x0 ? x1 - x0 : x0 - x1);
        x0 = std::min(x0, w - 1), x1 = std::min(x1, w - 1);
        y0 = std::min(y0, h - 1), y1 = std::min(y1, h - 1);
        if (y0 == y1) {
            for (std::uint32_t x = std::min(x0, x1); x <= std::max(x0, x1); x++)
                put(x, y0, colour);
            return;
        }
        if (x0 == x1) {
            for (std::uint32_t y = std::min(y0, y1); y <= std::max(y0, y1); y++)
                put(x0, y, colour);
            return;
        }
        if (steep)
            std::swap(x0, y0), std::swap(x1, y1);
        if (x0 > x1)
            std::swap(x0, x1), std::swap(y0, y1);
        const int dx = static_cast<int>(x1 - x0), dy = std::abs(static_cast<int>(y1) - static_cast<int>(y0));
        int err = 0, y = static_cast<int>(y0);
        for (std::uint32_t x = x0; x <= x1; x++) {
            const auto minor = static_cast<std::uint32_t>(y);
            steep ? put(minor, x, colour) : put(x, minor, colour);
            err += dy;
            if (err > 0)
                y += y0 < y1 ? 1 : -1, err -= dx;
        }
    }

    void rectangle(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height,
                   std::uint32_t border, std::uint32_t fill, bool filled)
    {
        line(x, y, x + width - 1, y, border);
        line(x, y + height - 1, x + width - 1, y + height - 1, border);
        line(x, y, x, y + height - 1, border);
        line(x + width - 1, y, x + width - 1, y + height - 1, border);
        if (!filled || width < 3 || height < 3)
            return;
        // rows below the screen all fall onto its last row, so one of them is enough
        const std::uint64_t last = std::min<std::uint64_t>(y + height - 2, std::max(y + 1, h));
        for (std::uint64_t row = y + 1; row <= last; row++) {
            const auto r = static_cast<std::uint32_t>(row);
            line(x + 1, r, x + width - 2, r, fill);
        }
    }

    void rect(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height,
              std::uint32_t colour)
    {
        rectangle(x, y, width, height, colour, colour, true);
    }

    void ellipse(std::uint32_t cx, std::uint32_t cy, std::uint32_t width, std::uint32_t height,
                 std::uint32_t colour)
    {
        const float rx = static_cast<float>(width) / 2, ry = static_cast<float>(height) / 2;
        const float x = static_cast<float>(cx) - 1, y = static_cast<float>(cy) - 1;
        for (float py = y - ry; py < y + ry; py += 1)
            for (float px = x - rx; px < x + rx; px += 1)
                if (px > -1 && py > -1 &&
                    ((px - x) * (px - x)) / (rx * rx) + ((py - y) * (py - y)) / (ry * ry) < 1)
                    put(static_cast<std::uint32_t>(px), static_cast<std::uint32_t>(py), colour);
    }

    std::uint32_t w, h;
    std::vector<std::uint32_t> pixels;
};
