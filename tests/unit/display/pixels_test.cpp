// The loop that turns the bytes of a picture into pixels: both forms do the same, at any place and length,
// and touch nothing beside it.
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "../../../display/screen_linux/src/pixels.h"

// The source is a block of exactly its size, so that the sanitizer sees a read beyond it.
TEST(Pixels, BothLoopsTurnBytesIntoWords)
{
    std::mt19937 random(7);
    for (const pixel_loops* p_loops : {&pixel_loops_plain, &pixel_loops_get()})
        for (std::size_t n = 0; n < 200; n++) {
            const std::size_t at = random() % 20;
            std::vector<std::uint32_t> drawn(at + n + 20, 0xA5A5A5A5);
            std::vector<std::uint32_t> wanted = drawn;
            std::vector<std::uint8_t> source(3 * n);
            for (std::uint8_t& byte : source)
                byte = static_cast<std::uint8_t>(random());
            for (std::size_t i = 0; i < n; i++)
                wanted[at + i] = source[3 * i] | source[3 * i + 1] << 8 | source[3 * i + 2] << 16;
            p_loops->bgr(drawn.data() + at, source.data(), n);
            ASSERT_EQ(drawn, wanted) << n << " words at " << at;
        }
}
