#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "pbuf/pbuf.h"

namespace {

using bytes = std::vector<unsigned char>;

TEST(Pbuf, ByteOrder)
{
    bytes out(15);
    EXPECT_EQ(pbuf_pack(out.data(), "HhWwbB", 0x1234, 0x1234, 0x89ABCDEFU, 0x89ABCDEFU, 0x1F0, -1), 14);
    EXPECT_EQ(out,
              (bytes{0x12, 0x34, 0x34, 0x12, 0x89, 0xAB, 0xCD, 0xEF, 0xEF, 0xCD, 0xAB, 0x89, 0xF0, 0xFF, 0}));
}

TEST(Pbuf, WhatItPacksItUnpacks)
{
    std::mt19937 random(2);
    for (int round = 0; round < 200; round++) {
        const auto w = static_cast<unsigned>(random());
        const auto h = static_cast<unsigned short>(random());
        const auto b = static_cast<unsigned char>(random());
        bytes data(1 + random() % 40);
        std::generate(data.begin(), data.end(), [&] { return static_cast<unsigned char>(random()); });
        const int count = static_cast<int>(data.size());
        bytes wire(data.size() + 14);
        ASSERT_EQ(pbuf_pack(wire.data(), "bsdWhwH", b, count, data.data(), w, h, ~w, h), count + 13);
        unsigned w1, w2;
        unsigned short h1, h2;
        unsigned char b1;
        bytes back(data.size());
        ASSERT_EQ(pbuf_unpack(wire.data(), "bsdWhwH", &b1, count, back.data(), &w1, &h1, &w2, &h2),
                  count + 13);
        EXPECT_EQ(back, data);
        EXPECT_TRUE(b1 == b && w1 == w && w2 == ~w && h1 == h && h2 == h);
    }
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
