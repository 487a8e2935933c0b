// BMP files: what is read, what is refused, and what is drawn of them.
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "bmp/bmp.h"
#include "pbuf/pbuf.h"
#include "screen/screen.h"
#include "unit/display/panel_fake.h"
#include "unit/plat_fake.h"

namespace {

using std::uint32_t;
using std::uint8_t;

struct bmp_fields {
    uint32_t offset = 54, header = 40, width = 3, height = 2;
    int bits = 24;
    uint32_t compression = 0;
    const char* magic = "BM";
};

constexpr uint32_t some_pixels[2][3] = {{0xFF0000, 0x00FF00, 0x0000FF}, {0x102030, 0x405060, 0x708090}};

// A file with these header fields and the rows of some_pixels bottom-up, padded to 12 bytes; `cut` bytes are
// missing at its end.
std::string file_of(const bmp_fields& f, std::size_t cut = 0)
{
    std::vector<uint8_t> file(54 + 24);
    std::memcpy(file.data(), f.magic, 2);
    pbuf_pack(file.data() + 2, "whhwwwwhhwwwwww", 0, 0, 0, f.offset, f.header, f.width, f.height, 1, f.bits,
              f.compression, 0, 0, 0, 0, 0);
    for (std::size_t y = 0; y < 2; y++)
        for (std::size_t x = 0; x < 3; x++)
            for (std::size_t byte = 0; byte < 3; byte++)
                file[54 + (1 - y) * 12 + x * 3 + byte] = static_cast<uint8_t>(some_pixels[y][x] >> 8 * byte);
    file.resize(file.size() - cut);
    return std::string(file.begin(), file.end());
}

struct Bmp : testing::Test {
    std::string path = testing::TempDir() + "bmp_test_" + std::to_string(getpid()) + ".bmp";

    Bmp() { panel_fake_start({.width = 5, .height = 4}); }
    ~Bmp() override { unlink(path.c_str()); }

    int draw(const std::string& bytes) const
    {
        std::ofstream(path, std::ios::binary) << bytes;
        screen_clear(0);
        return screen_load_image(path.c_str());
    }
};

TEST_F(Bmp, TheLastRowMayLackItsPadding)
{
    EXPECT_EQ(draw(file_of({}, 3)), 1);
    EXPECT_EQ(panel_fake_pixel(2, 0), some_pixels[0][2]);
}

TEST_F(Bmp, WhatIsMalformedIsRefusedAndThePictureStays)
{
    const struct {
        const char* what;
        std::string file;
    } cases[] = {
        {"empty", ""},
        {"one byte", "B"},
        {"no pixels", file_of({}, 24)},
        {"header cut", file_of({}, 24 + 1)},
        {"last pixel cut", file_of({}, 4)},
        {"magic", file_of({.magic = "BA"})},
        {"compressed", file_of({.compression = 1})},
        {"8 bits", file_of({.bits = 8})},
        {"32 bits", file_of({.bits = 32})},
        {"old header", file_of({.header = 12})},
        {"offset in the header", file_of({.offset = 53})},
        {"offset 0", file_of({.offset = 0})},
        {"offset behind the end", file_of({.offset = 79})},
        {"huge offset", file_of({.offset = 0xFFFFFFFF})},
        {"no width", file_of({.width = 0})},
        {"no height", file_of({.height = 0})},
        {"negative width", file_of({.width = 0xFFFFFFFD})},
        {"least height", file_of({.height = 0x80000000})},
        {"sizes whose product is 6 in 32 bits", file_of({.width = 0x80000003, .height = 2})},
        {"sizes whose product is 0 in 32 bits", file_of({.width = 0x10000, .height = 0x10000})},
        {"one row too many", file_of({.height = 3})},
        {"one row too many, top-down", file_of({.height = 0u - 3})},
        {"wider than its rows", file_of({.width = 8})},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(draw(c.file), 0) << c.what;
        EXPECT_EQ(panel_fake_picture(), std::vector<uint32_t>(20, 0)) << c.what;
    }
}

TEST_F(Bmp, AReadThatComesInPiecesIsContinuedAndAFailedOneLeavesThePicture)
{
    static int left;
    plat_fake_co.read = [](int fd, void* buf, std::size_t size) -> ssize_t {
        return left-- == 0 ? -1 : ::read(fd, buf, size < 7 ? size : 7);
    };
    left = 1000;
    ASSERT_EQ(draw(file_of({})), 1);
    EXPECT_EQ(panel_fake_pixel(2, 1), some_pixels[1][2]);
    const int reads = 1000 - left;
    for (int i = 0; i < reads; i++) {
        left = i;
        EXPECT_EQ(draw(file_of({})), 0);
        EXPECT_EQ(panel_fake_picture(), std::vector<uint32_t>(20, 0)) << i;
    }
}

} // namespace
