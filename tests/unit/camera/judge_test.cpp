// Focus, alignment, intensity, data lines, and the pseudo-random sequence.
#include <gtest/gtest.h>

#include "unit/camera/camera_desk.h"

namespace {

struct Pn9 : testing::Test {
    void SetUp() override { camera_pn9_init(); }
};

// The sequence by its recurrence: bit n + 9 is bit n exclusive-or bit n + 5; eight bits a pixel, the first
// lowest.
std::vector<std::uint16_t> sequence()
{
    std::vector<int> bits = {0, 1, 1, 1, 1, 1, 1, 1, 1};
    while (bits.size() < 511 * 8 + 9)
        bits.push_back(bits[bits.size() - 9] ^ bits[bits.size() - 4]);
    std::vector<std::uint16_t> values;
    for (std::size_t k = 0; k < 511; k++) {
        unsigned value = 0;
        for (std::size_t i = 0; i < 8; i++)
            value |= static_cast<unsigned>(bits[8 * k + i]) << i;
        values.push_back(static_cast<std::uint16_t>(value * 4));
    }
    return values;
}

// Pixels of 10 bits, two in three bytes: the upper eight bits of each, then the lower ones of both.
struct packed_picture {
    std::vector<std::uint8_t> bytes;
    std::uint32_t width;

    packed_picture(const std::vector<std::uint16_t>& pixels, std::uint32_t w) : width(w)
    {
        for (std::size_t i = 0; i + 1 < pixels.size(); i += 2) {
            const unsigned even = pixels[i] << 2u, odd = pixels[i + 1] << 2u;
            bytes.push_back(static_cast<std::uint8_t>(even >> 4));
            bytes.push_back(static_cast<std::uint8_t>(odd >> 4));
            bytes.push_back(static_cast<std::uint8_t>((odd & 15) << 4 | (even & 15)));
        }
    }
    std::int32_t errors(std::uint32_t limit = UINT32_MAX)
    {
        const camera_snapshot s = {0, width, static_cast<std::uint32_t>(bytes.size() * 2 / 3 / width),
                                   bytes.data(), static_cast<std::uint32_t>(bytes.size())};
        std::int32_t n = 99;
        EXPECT_EQ(pn9_checkTestPattern(s, limit, &n), 1);
        return n;
    }
};

// Two rows that aren't looked at, then the sequence from `from` on, in rows of 40.
std::vector<std::uint16_t> stream(std::size_t from, std::size_t count = 1200)
{
    const std::vector<std::uint16_t> s = sequence();
    std::vector<std::uint16_t> pixels(80, 1);
    for (std::size_t i = 0; i < count; i++)
        pixels.push_back(s[(from + i) % 511]);
    return pixels;
}

} // namespace

TEST_F(Pn9, TheTableIsTheSequence)
{
    const auto table = camera_pn9_table();
    EXPECT_EQ(std::vector<std::uint16_t>(table.begin(), table.end()), sequence());
}

TEST_F(Pn9, AWalkFindsItsPlaceAndCountsWhatIsWrong)
{
    for (std::size_t from = 0; from < 511; from++)
        EXPECT_EQ(packed_picture(stream(from), 40).errors(), 0) << "begins at " << from;
    auto wrong = stream(100);
    wrong[400] ^= 1; // a value that the sequence doesn't have
    EXPECT_EQ(packed_picture(wrong, 40).errors(), 1);
    wrong[401] ^= 1;
    EXPECT_EQ(packed_picture(wrong, 40).errors(), 2) << "the second isn't found either";
    wrong[700] ^= 2;
    EXPECT_EQ(packed_picture(wrong, 40).errors(), 3);
    EXPECT_EQ(packed_picture(wrong, 40).errors(320), 0) << "pixels 80 to 399";
    EXPECT_EQ(packed_picture(wrong, 40).errors(321), 1);
    EXPECT_EQ(packed_picture(std::vector<std::uint16_t>(400, 1), 40).errors(), -1) << "nothing matches";
    EXPECT_EQ(packed_picture(std::vector<std::uint16_t>(80, 4), 40).errors(), -1)
        << "only rows that aren't looked at";
}

TEST_F(Pn9, DroppedAndDoubledPixels)
{
    for (std::size_t at = 300; at < 420; at += 7) {
        auto dropped = stream(0);
        dropped.erase(dropped.begin() + static_cast<std::ptrdiff_t>(at));
        const std::int32_t d = packed_picture(dropped, 40).errors();
        EXPECT_GE(d, 1) << at;
        EXPECT_LE(d, 2) << at;
        auto doubled = stream(0);
        doubled.insert(doubled.begin() + static_cast<std::ptrdiff_t>(at), doubled[at]);
        const std::int32_t e = packed_picture(doubled, 40).errors();
        EXPECT_GE(e, 1) << at;
        EXPECT_LE(e, 2) << at;
    }
}

TEST_F(Pn9, PixelsBehindTheBytesAreNotRead)
{
    const std::vector<std::uint8_t> bytes = {0xAB, 0xCD, 0xEF};
    const camera_snapshot s = {0, 2, 100, const_cast<std::uint8_t*>(bytes.data()), 3};
    EXPECT_EQ(std::tuple(getBufPN9(s, 0, 0), getBufPN9(s, 1, 0)), std::tuple(0xABF >> 2, 0xCDE >> 2));
    EXPECT_EQ(getBufPN9(s, 0, 1), 0);
    std::int32_t errors = 0;
    EXPECT_EQ(pn9_checkTestPattern(s, UINT32_MAX, &errors), 1);
    EXPECT_EQ(errors, -1);
}

TEST(Lines, ShortedAndStuckOnesOfARandomStream)
{
    std::vector<std::uint8_t> bytes;
    for (unsigned i = 0, x = 1; i < 600; i++, x = x * 1103515245 + 12345)
        bytes.push_back(static_cast<std::uint8_t>(x >> 16));
    const auto walk = [&](auto change) {
        std::vector<std::uint8_t> b = bytes;
        for (std::uint8_t& v : b)
            v = static_cast<std::uint8_t>(change(v));
        const camera_connection_lines l = camera_connection_walk(b, 0, 1, UINT32_MAX);
        return std::pair(l.shorted, l.stuck);
    };
    EXPECT_EQ(walk([](unsigned v) { return v; }), std::pair(0u, 0u));
    for (unsigned bit = 0; bit < 8; bit++) {
        EXPECT_EQ(walk([&](unsigned v) { return v | 1u << bit; }), std::pair(0u, 1u << bit));
        EXPECT_EQ(walk([&](unsigned v) { return v & ~(1u << bit); }), std::pair(0u, 1u << bit));
    }
    // A pair of bits 7 - i and 6 - j is told by the two bits from line i on.
    for (unsigned i = 0; i < 7; i++)
        for (unsigned j = i; j < 7; j++)
            EXPECT_EQ(
                walk([&](unsigned v) { return (v & ~(1u << (6 - j))) | (v >> (7 - i) & 1) << (6 - j); }),
                std::pair(0xC0u >> i, 0u))
                << i << "," << j;
    // Steps and limits: only every second byte, and no more than three of them
    const std::vector<std::uint8_t> b = {0, 255, 0, 0, 255, 255, 0, 7};
    EXPECT_EQ(camera_connection_walk(b, 0, 2, 2).stuck, 0xFFu);
    EXPECT_EQ(camera_connection_walk(b, 0, 2, 3).stuck, 0u);
    EXPECT_EQ(camera_connection_walk(b, 1, 2, UINT32_MAX).stuck, 0u);
    EXPECT_EQ(camera_connection_walk({}, 0, 1, 640).shorted, 0xFFu);
}

TEST(Judge, IntensityOfEachLayout)
{
    std::vector<std::uint8_t> bytes;
    for (int i = 0; i < 64; i++)
        for (const std::uint8_t b : {10, 20, 30, 40})
            bytes.push_back(b);
    const camera_snapshot s = {0, 16, 8, bytes.data(), 256};
    const auto mean = [&](int layout, std::uint32_t channel) {
        const camera_desk desk(layout);
        std::uint32_t average = 0, count = 0;
        return camera_intensity_get_average_intensity(25, channel, &s, &average, &count) == 1
                   ? std::pair<int, int>(average, count)
                   : std::pair(-1, -1);
    };
    using pair = std::pair<int, int>;
    EXPECT_EQ((std::vector{mean(0, 1), mean(0, 2), mean(0, 3)}),
              (std::vector<pair>{{20, 64}, {20, 0}, {40, 64}}));
    EXPECT_EQ((std::vector{mean(1, 1), mean(1, 2), mean(1, 3)}),
              (std::vector<pair>{{30, 64}, {10, 0}, {30, 64}}));
    EXPECT_EQ((std::vector{mean(2, 1), mean(2, 2)}), (std::vector<pair>{{25, 64}, {25, 16}}));
    EXPECT_EQ((std::vector{mean(3, 1), mean(0, 0), mean(0, 4)}), std::vector(3, pair(-1, -1)));
}

TEST(Judge, FocusAndAlignmentOfALayoutWithAStep)
{
    const camera_desk desk(1); // brightness in every second byte, from the second on
    std::vector<std::uint8_t> bytes(128 * 64 * 2, 0);
    for (std::size_t i = 0; i < 128 * 64; i++)
        bytes[2 * i + 1] = i % 128 < 64 ? 40 : 160;
    const camera_snapshot s = {5, 128, 64, bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    camera_focus_result f;
    EXPECT_EQ(camera_focus_do_test(6, &f, &s, 60, 0, 8, 64), 1);
    EXPECT_EQ(std::tuple(f.max, f.min, f.measure), std::tuple(160u, 40u, 600u));
    EXPECT_EQ(camera_focus_do_test(4, &f, &s, 0, 0, 0, 0), 0);
    camera_alignment_result a;
    EXPECT_EQ(camera_alignment_test({10, 12, 160}, &a, &s), 0) << "the left column has nothing bright";
    EXPECT_EQ(camera_alignment_test({10, 12, 40}, &a, &s), 1);
    EXPECT_EQ(std::tuple(a.angle, a.top_x, a.bottom_y, a.right_x, a.left_y),
              std::tuple(0.0, 10u, 52u, 118u, 12u));
}
