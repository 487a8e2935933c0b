// Packets of a stream: what is good, where sound and picture are, what was lost. Each packet is a block of
// exactly its size.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "isdb_ej113/isdb_packet.h"

namespace {

using bytes = std::vector<std::uint8_t>;

// A packet from its first bytes, with the status word behind it.
struct block {
    std::unique_ptr<std::uint8_t[]> p = std::make_unique<std::uint8_t[]>(192);

    explicit block(const bytes& head, std::uint32_t status = 1u << 24)
    {
        std::memset(p.get(), 0xFF, 188);
        std::memcpy(p.get(), head.data(), head.size());
        std::memcpy(p.get() + 188, &status, 4);
    }
};

// A map with `entries` behind `info` bytes of programme information.
block map_of(std::size_t info, const bytes& entries)
{
    bytes b = {0x47, 0x5F, 0xC8, 0x10, 0, 2, 0xB0, 30, 0, 1, 0xC1, 0, 0, 0xE1, 0x00};
    b.push_back(static_cast<std::uint8_t>(0xF0 | info >> 8));
    b.push_back(static_cast<std::uint8_t>(info));
    b.resize(b.size() + info, 0x1B);
    b.insert(b.end(), entries.begin(), entries.end());
    b.resize(std::min<std::size_t>(b.size(), 188), 0xFF);
    return block(b);
}

TEST(IsdbPacket, TheMapTellsSoundAndPicture)
{
    const struct {
        const char* what;
        std::size_t info;
        bytes entries;
        int audio, video;
        // clang-format off
    } cases[] = {
        {"both", 3, {15, 0xE1, 0x41, 0xF0, 0, 27, 0xE1, 0x42, 0xF0, 0}, 0x141, 0x142},
        {"behind others and descriptors", 0,
         {13, 0, 1, 0xF0, 2, 9, 9, 6, 0, 2, 0xF0, 0, 2, 0, 3, 0xF0, 0, 1, 0, 4, 0xF0, 0, 27, 0xFF, 0xFE, 0, 0}, -1, 0x1FFE},
        {"an unknown type ends it", 0, {15, 1, 1, 0, 0, 3, 1, 2, 0, 0, 27, 1, 3, 0, 0}, 0x101, -1},
        {"the last one holds", 0, {15, 1, 1, 0, 0, 15, 1, 2, 0, 0}, 0x102, -1},
        {"an entry that leads out", 0, {15, 1, 1, 0xFF, 0xFF, 27, 1, 2, 0, 0}, 0x101, -1},
        {"information that leads out", 171, {}, -1, -1},
        {"much that leads out", 4095, {}, -1, -1},
        {"the last place that an entry has", 166, {27, 0x01, 0x05, 0, 0}, -1, 0x105},
        {"one byte too far", 167, {27, 0x01, 0x05, 0}, -1, -1},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const block map = map_of(c.info, c.entries);
        std::uint16_t audio = 65535, video = 65535;
        isdb_get_elementary_pid(map.p.get(), audio, video);
        EXPECT_EQ(std::tuple(audio, video), std::tuple(c.audio & 0xFFFF, c.video & 0xFFFF)); // -1: left alone
    }
}

TEST(IsdbPacket, TheWalkEndsAfterThirtyTwoEntries)
{
    // 34 entries of 5 bytes fit in the 171 bytes behind the head
    bytes entries;
    for (int i = 0; i < 34; i++)
        entries.insert(entries.end(), {2, 0, 7, 0, 0});
    entries[31 * 5] = 15;
    entries[32 * 5] = 27;
    std::uint16_t audio = 65535, video = 65535;
    isdb_get_elementary_pid(map_of(0, entries).p.get(), audio, video);
    EXPECT_EQ(std::tuple(audio, video), std::tuple(7, 65535));
}

TEST(IsdbPacket, WhatIsGoodAndWhatIsCounted)
{
    isdb_check_state state;
    EXPECT_TRUE(isdb_tsif_data_check(state, block({0x47, 0x01, 0x41, 0x10}).p.get()));
    EXPECT_FALSE(isdb_tsif_data_check(state, block({0x46, 0x01, 0x41, 0x10}).p.get()));
    EXPECT_FALSE(isdb_tsif_data_check(state, block({0x47, 0x01, 0x41, 0x10}, 0xFEFFFFFF).p.get()));
    EXPECT_EQ(state.counts.transport_errors, 0u);
    EXPECT_FALSE(isdb_tsif_data_check(state, block({0x46, 0x81, 0x41, 0x10}).p.get()));
    EXPECT_EQ(std::tuple(state.counts.transport_errors, state.counts.lost), std::tuple(1u, 0u));
}

TEST(IsdbPacket, LostPacketsAreCountedByStream)
{
    isdb_check_state state;
    const auto take = [&state](unsigned pid, unsigned counter) {
        const block b({0x47, static_cast<std::uint8_t>(pid >> 8), static_cast<std::uint8_t>(pid),
                       static_cast<std::uint8_t>(0x10 | counter)});
        EXPECT_TRUE(isdb_tsif_data_check(state, b.p.get()));
        return state.counts.lost;
    };
    take(0x141, 3);
    EXPECT_EQ(take(0x141, 9), 0u) << "without a map it is nobody's";
    EXPECT_TRUE(isdb_tsif_data_check(state, map_of(0, {15, 1, 0x41, 0, 0, 27, 1, 0x42, 0, 0}).p.get()));
    EXPECT_EQ(take(0x141, 5), 0u) << "the first one only tells";
    EXPECT_EQ(take(0x142, 15), 0u);
    EXPECT_EQ(take(0x141, 6), 0u);
    EXPECT_EQ(take(0x142, 0), 0u) << "behind 15 comes 0";
    EXPECT_EQ(take(0x141, 9), 2u);
    EXPECT_EQ(take(0x141, 10), 2u);
    EXPECT_EQ(take(0x142, 0), 17u) << "the same again is fifteen lost";
    EXPECT_EQ(take(0x143, 5), 17u);
}

} // namespace
