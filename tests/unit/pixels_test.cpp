// The loop that turns the bytes of a picture into pixels: both forms do the same, at any place and length,
// and touch nothing beside it.
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "../../display/screen_linux/src/pixels.h"

namespace {

using std::uint32_t;
using std::uint8_t;

struct Pixels : testing::TestWithParam<const pixel_loops*> {
    std::mt19937 random{7};

    // Runs `loop` on part of a block and compares with `plain` word by word.
    template <class Loop, class Plain>
    void compare(Loop loop, Plain plain)
    {
        for (std::size_t n = 0; n < 200; n++) {
            const std::size_t at = random() % 20;
            std::vector<uint32_t> drawn(at + n + 20), wanted;
            for (uint32_t& word : drawn)
                word = static_cast<uint32_t>(random());
            wanted = drawn;
            for (std::size_t i = 0; i < n; i++)
                plain(wanted[at + i], i);
            loop(drawn.data() + at, n);
            ASSERT_EQ(drawn, wanted) << n << " words at " << at;
        }
    }

    std::vector<uint8_t> bytes(std::size_t count)
    {
        std::vector<uint8_t> made(count);
        for (uint8_t& byte : made)
            byte = static_cast<uint8_t>(random());
        return made;
    }
};

// The source is a block of exactly its size, so that the sanitizer sees a read beyond it.
TEST_P(Pixels, Bgr)
{
    std::vector<uint8_t> source;
    compare(
        [&](uint32_t* p, std::size_t n) {
            const std::vector<uint8_t> exact(source.begin(), source.begin() + static_cast<long>(3 * n));
            GetParam()->bgr(p, exact.data(), n);
        },
        [&](uint32_t& word, std::size_t i) {
            if (i == 0)
                source = bytes(600);
            word = static_cast<uint32_t>(source[3 * i] | source[3 * i + 1] << 8 | source[3 * i + 2] << 16);
        });
}

INSTANTIATE_TEST_SUITE_P(Loops, Pixels, testing::Values(&pixel_loops_plain, &pixel_loops_get()));

} // namespace
