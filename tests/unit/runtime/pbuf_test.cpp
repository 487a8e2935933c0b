#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

#include "pbuf/pbuf.h"

namespace {

using bytes = std::vector<unsigned char>;

TEST(Pbuf, ByteOrderBothWays)
{
    bytes out(18);
    EXPECT_EQ(
        pbuf_pack(out.data(), "HhsdWwbB", 0x1234, 0x9234, 3, "abc", 0x89ABCDEFU, 0x89ABCDEFU, 0x1F0, -1), 17);
    EXPECT_EQ(out, (bytes{0x12, 0x34, 0x34, 0x92, 'a', 'b', 'c', 0x89, 0xAB, 0xCD, 0xEF, 0xEF, 0xCD, 0xAB,
                          0x89, 0xF0, 0xFF, 0}));
    std::uint16_t high_half, half;
    std::uint32_t high_word, word;
    std::uint8_t byte, high_byte;
    bytes text(3);
    EXPECT_EQ(pbuf_unpack(out.data(), "HhSDWwbB", &high_half, &half, 3, text.data(), &high_word, &word, &byte,
                          &high_byte),
              17);
    EXPECT_TRUE(high_half == 0x1234 && half == 0x9234 && high_word == 0x89ABCDEF && word == high_word);
    EXPECT_TRUE(byte == 0xF0 && high_byte == 0xFF);
    EXPECT_EQ(text, (bytes{'a', 'b', 'c'}));
}

TEST(Pbuf, BadFormats)
{
    bytes buf(4);
    EXPECT_EQ(pbuf_unpack(buf.data(), "x"), -1);
    EXPECT_EQ(pbuf_pack(buf.data(), "bq", 7), -1);
    EXPECT_EQ(buf[0], 7) << "the fields before the bad letter have been written";
    EXPECT_EQ(pbuf_pack(buf.data(), ""), 0);
    // Each d needs a count of its own.
    EXPECT_EXIT(pbuf_pack(buf.data(), "sdd", 1, "a", "b"), testing::ExitedWithCode(1), "^$");
    EXPECT_EXIT(pbuf_unpack(buf.data(), "d", buf.data()), testing::ExitedWithCode(1), "^$");
}

} // namespace
