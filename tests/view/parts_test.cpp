// The parts of hvt-view that need no server: who is let in, tiles, texts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "view/gate.h"
#include "view/text.h"
#include "view/tiles.h"

namespace {

const view::gate own{"abcdefghijklmnopqrstuvwxyz012345", 8770};
const std::string token_path = "/" + own.token + "/";

bool passes(const std::string& path, const std::string& host, const std::string& origin, bool needs_origin)
{
    return view::gate_check(own, path, host, origin, needs_origin).passes;
}

TEST(Gate, LetsInOnlyWithTokenHostAndOrigin)
{
    const std::string host = "127.0.0.1:8770", origin = "http://127.0.0.1:8770";
    EXPECT_EQ(view::gate_check(own, token_path + "a/b.js", host, "", false).file, "a/b.js");
    EXPECT_TRUE(passes(token_path, host, "", false));
    EXPECT_TRUE(passes(token_path, "localhost:8770", "http://localhost:8770", true));
    EXPECT_TRUE(passes(token_path + "link", host, origin, true));
    EXPECT_FALSE(passes(token_path + "link", host, "", true)) << "a WebSocket without an Origin";
    for (const char* strange : {"http://127.0.0.1:8771", "http://localhost:8770", "https://127.0.0.1:8770",
                                "http://evil.example", "null", "http://127.0.0.1:8770.evil.example"})
        EXPECT_FALSE(passes(token_path, host, strange, false)) << strange;
    for (const char* strange : {"", "127.0.0.1", "127.0.0.1:8771", "evil.example:8770", "[::1]:8770"})
        EXPECT_FALSE(passes(token_path, strange, "", false)) << strange;
}

TEST(Gate, ATokenIsTheWholeToken)
{
    const std::string host = "127.0.0.1:8770";
    std::string wrong = token_path;
    wrong[20] = 'A';
    for (const std::string& path :
         {std::string("/"), std::string(""), "/" + own.token, wrong, "/" + own.token.substr(1) + "/",
          "/x" + token_path, "/" + own.token + "x/"})
        EXPECT_FALSE(passes(path, host, "", false)) << path;
    EXPECT_FALSE(view::gate_check({"", 8770}, "//", host, "", false).passes);
    const std::string one = view::gate_make_token(), other = view::gate_make_token();
    EXPECT_EQ(one.size(), 32u);
    EXPECT_NE(one, other);
}

// What a page makes of messages: its picture.
struct shown {
    std::vector<std::uint32_t> pixels{};
    unsigned width = 0;
    int tiles = 0;

    void take(const std::vector<std::uint8_t>& m)
    {
        std::uint16_t head[8];
        std::memcpy(head, m.data(), sizeof head);
        if (pixels.size() != std::size_t{head[2]} * head[3])
            pixels.assign(std::size_t{head[2]} * head[3], 0);
        width = head[2];
        std::size_t at = sizeof head;
        for (unsigned i = 0; i < head[1]; i++) {
            std::uint16_t place[2];
            std::uint32_t size;
            std::memcpy(place, &m[at], 4);
            std::memcpy(&size, &m[at + 4], 4);
            std::vector<std::uint32_t> words((size & 0x7FFFFFFF) / 4);
            std::memcpy(words.data(), &m[at + 8], words.size() * 4);
            at += 8 + words.size() * 4;
            if (size >> 31 != 0)
                words = unrolled(words);
            const unsigned left = place[0] * head[4], across = std::min<unsigned>(head[4], width - left);
            for (std::size_t k = 0; k < words.size(); k++)
                pixels.at((place[1] * std::size_t{head[5]} + k / across) * width + left + k % across) =
                    words[k];
        }
        EXPECT_EQ(at, m.size());
        tiles += head[1];
    }

    static std::vector<std::uint32_t> unrolled(const std::vector<std::uint32_t>& runs)
    {
        std::vector<std::uint32_t> all;
        for (std::size_t i = 0; i + 1 < runs.size(); i += 2)
            all.insert(all.end(), runs[i], runs[i + 1]);
        return all;
    }
};

// All messages of one picture.
void send_all(const view::tiles& t, view::tiles_page& page, shown& s)
{
    std::vector<std::uint8_t> message;
    bool last = false;
    while (!last) {
        message.clear();
        last = view::tiles_next(t, page, 0, 4000, message);
        s.take(message);
    }
}

TEST(Tiles, APageHasThePictureAndLaterOnlyWhatChanges)
{
    constexpr unsigned width = 145, height = 71; // neither fills its last tile
    std::mt19937 random(1);
    for (const unsigned bits : {16u, 24u, 32u}) {
        const std::size_t line = width * bits / 8 + 6;
        std::vector<std::uint8_t> memory(line * height);
        for (std::size_t i = 0; i < memory.size(); i++)
            memory[i] = i < memory.size() / 2 ? 0 : static_cast<std::uint8_t>(random()); // runs, then pixels
        const view::picture now{memory.data(), width, height, bits, line};
        view::tiles t;
        view::tiles_page page;
        shown s;
        ASSERT_TRUE(view::tiles_take(t, now));
        send_all(t, page, s);
        EXPECT_EQ(s.tiles, 9);
        const auto pixel = [&](unsigned x, unsigned y) {
            const std::uint8_t* p = &memory[y * line + x * bits / 8];
            if (bits != 16)
                return 0xFF000000u | p[2] | p[1] << 8 | static_cast<unsigned>(p[0]) << 16;
            const unsigned w = p[0] | p[1] << 8;
            return 0xFF000000u | (w >> 11) * 255 / 31 | ((w >> 5 & 63) * 255 / 63) << 8 |
                   ((w & 31) * 255 / 31) << 16;
        };
        for (unsigned y = 0; y < height; y++)
            for (unsigned x = 0; x < width; x++)
                ASSERT_EQ(s.pixels[y * width + x], pixel(x, y)) << bits << " bits, " << x << " " << y;

        EXPECT_FALSE(view::tiles_take(t, now));
        EXPECT_FALSE(view::tiles_lacks(t, page));
        std::fill_n(&memory[70 * line + 144 * bits / 8], bits / 8, std::uint8_t{0x55});
        ASSERT_TRUE(view::tiles_take(t, now));
        EXPECT_TRUE(view::tiles_lacks(t, page));
        s.tiles = 0;
        send_all(t, page, s);
        EXPECT_EQ(s.tiles, 1);
        EXPECT_EQ(s.pixels[70 * width + 144], pixel(144, 70));
    }
}

TEST(Tiles, WhatChangesWhileAPictureIsSentComesWithTheNext)
{
    std::vector<std::uint8_t> memory(120 * 64 * 4);
    const view::picture now{memory.data(), 120, 64, 32, 480};
    view::tiles t;
    view::tiles_page page;
    shown s;
    std::vector<std::uint8_t> first;
    view::tiles_take(t, now);
    ASSERT_FALSE(view::tiles_next(t, page, 0, 20, first)) << "the first tile alone";
    memory[0] = 200;
    view::tiles_take(t, now);
    s.take(first);
    send_all(t, page, s);
    EXPECT_EQ(s.pixels[0], 0xFF000000u);
    ASSERT_TRUE(view::tiles_lacks(t, page));
    send_all(t, page, s);
    EXPECT_EQ(s.pixels[0], 0xFFC80000u);
    EXPECT_FALSE(view::tiles_lacks(t, page));
}

TEST(Tiles, APanelThatIsDarkOrOfAnotherSizeIsSentWhole)
{
    std::vector<std::uint8_t> memory(120 * 64 * 4, 0x80);
    view::tiles t;
    view::tiles_page page;
    shown s;
    view::tiles_take(t, {memory.data(), 120, 64, 32, 480});
    send_all(t, page, s);
    ASSERT_TRUE(view::tiles_take(t, {nullptr, 120, 64, 32, 480}));
    send_all(t, page, s);
    EXPECT_EQ(std::ranges::count(s.pixels, 0xFF000000u), 120 * 64);
    ASSERT_TRUE(view::tiles_take(t, {memory.data(), 60, 128, 32, 240}));
    send_all(t, page, s);
    EXPECT_EQ(s.width, 60u);
    EXPECT_EQ(std::ranges::count(s.pixels, 0xFF808080u), 60 * 128);
}

TEST(Text, WhatIsNoCharacterBecomesAMark)
{
    const std::pair<std::string, std::string> cases[] = {
        {"plain", "plain"},
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\xB1", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\xB1"},
        {"a\xFF\xC3", "a??"},
        {"\xC0\x80\xE0\x80\x80", "?????"},
        {"\xED\xA0\x80\xF4\x90\x80\x80", "???????"},
        {"\xE2\x82z", "??z"},
    };
    for (const auto& [given, wanted] : cases) {
        std::vector<std::uint8_t> bytes(given.begin(), given.end());
        view::text_make_utf8(bytes, 0);
        EXPECT_EQ(std::string(bytes.begin(), bytes.end()), wanted);
    }
}

} // namespace
