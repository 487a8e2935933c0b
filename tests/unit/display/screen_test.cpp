// Figures, text and pages of the screen on a framebuffer in memory, against the plain rules.
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "cfg/cfg.h"
#include "screen/screen.h"
#include "screen_brenk/screen_brenk.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"
#include "unit/display/panel_fake.h"
#include "unit/display/plain_canvas.h"
#include "unit/plat_fake.h"

namespace {

using std::uint32_t;

constexpr panel_shape shapes[] = {
    {.width = 1, .height = 1},
    {.width = 3, .height = 40},
    {.width = 240, .height = 20, .line_padding = 36},
    {.width = 239, .height = 321, .pages = 2},
};

std::mt19937 random_bits(5);

uint32_t any(uint32_t limit)
{
    return random_bits() % limit;
}

// A coordinate or size near a screen of that many pixels, or any value at all.
uint32_t near_screen(uint32_t pixels)
{
    constexpr uint32_t edges[] = {0, 1, 2, 3, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFE, 0xFFFFFFFF};
    switch (any(4)) {
    case 0:
        return edges[any(std::size(edges))];
    case 1:
        return pixels - 2 + any(5);
    default:
        return any(pixels + pixels / 2 + 1);
    }
}

// Runs `draw` many times on every shape, on the panel and on the plain canvas, and compares the pictures.
template <class Draw>
void compare_everywhere(int times, Draw draw)
{
    for (const panel_shape& shape : shapes) {
        panel_fake_start(shape);
        screen_clear(0x102030);
        plain_canvas plain(shape.width, shape.height, 0x102030);
        for (int i = 0; i < times; i++) {
            const std::string what = draw(plain, any(0x1000000));
            ASSERT_EQ(panel_fake_picture(), plain.pixels)
                << shape.width << "x" << shape.height << ": " << what;
        }
    }
}

std::string text_of(std::initializer_list<uint32_t> values)
{
    std::string text;
    for (const uint32_t value : values)
        text += std::to_string(value) + " ";
    return text;
}

TEST(Screen, LinesBetweenAnyEndsAreThoseOfTheWalk)
{
    compare_everywhere(300, [](plain_canvas& plain, uint32_t colour) {
        const uint32_t x0 = near_screen(plain.w), y0 = near_screen(plain.h);
        const uint32_t x1 = near_screen(plain.w), y1 = near_screen(plain.h);
        screen_line(x0, y0, x1, y1, colour);
        plain.line(x0, y0, x1, y1, colour);
        return "line " + text_of({x0, y0, x1, y1});
    });
}

TEST(Screen, BoxesOfAnyPlaceAndSizeAreThoseOfTheirLines)
{
    compare_everywhere(300, [](plain_canvas& plain, uint32_t colour) {
        const uint32_t x = near_screen(plain.w), y = near_screen(plain.h);
        const uint32_t w = near_screen(plain.w), h = near_screen(plain.h);
        const uint32_t fill = any(2) == 0 ? colour : colour ^ 0xFFFFFF;
        const bool filled = any(4) != 0;
        screen_rectangle(x, y, w, h, colour, fill, filled);
        plain.rectangle(x, y, w, h, colour, fill, filled);
        return "rectangle " + text_of({x, y, w, h, filled, fill == colour});
    });
}

TEST(Screen, EllipsesAreThoseOfTheirPixels)
{
    compare_everywhere(150, [](plain_canvas& plain, uint32_t colour) {
        const uint32_t x = any(2 * plain.w + 2), y = any(2 * plain.h + 2);
        const uint32_t w = any(3 * plain.w + 4), h = any(3 * plain.h + 4);
        screen_ellipse(x, y, w, h, colour, 1);
        plain.ellipse(x, y, w, h, colour);
        screen_ellipse(x, y, w, h, ~colour, 0); // no outline form
        return "ellipse " + text_of({x, y, w, h});
    });
}

TEST(Screen, AHugeEllipseEndsSoon)
{
    panel_fake_start({.width = 239, .height = 321});
    screen_ellipse(120, 160, 0xFFFFFFFF, 0xFFFFFFFF, 0x123456, 1);
    EXPECT_EQ(panel_fake_picture(), plain_canvas(239, 321, 0x123456).pixels);
    screen_ellipse(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFF0, 3, 0, 1);
    EXPECT_EQ(panel_fake_picture(), plain_canvas(239, 321, 0x123456).pixels);
}

TEST(Screen, RowsArePixelsWithTheirTints)
{
    compare_everywhere(100, [](plain_canvas& plain, uint32_t colour) {
        std::array<uint32_t, 700> colours;
        std::array<uint32_t, 400> tints;
        for (uint32_t& c : colours)
            c = any(0x1000000) & 0xFFFF00;
        for (uint32_t& t : tints)
            t = any(256);
        const uint32_t x = near_screen(plain.w), y = near_screen(plain.h), w = any(300), h = any(400);
        const screen_row_set rows = {colours.data(), any(50), 1 + any(8), 1 + any(3),
                                     colour % 2 == 0 ? tints.data() : nullptr};
        screen_rows(x, y, w, h, rows);
        for (uint32_t j = 0; j < h; j++)
            for (uint32_t i = 0; i < w; i++)
                if (x + i >= x && y + j >= y) // beyond 32 bits is beyond the screen
                    plain.put(x + i, y + j,
                              colours[rows.pitch * (j / rows.repeat % rows.count) + i] |
                                  (rows.p_tints != nullptr ? tints[j] : 0));
        return "rows " + text_of({x, y, w, h, rows.pitch, rows.count, rows.repeat});
    });
}

// One character at scale 1, as 16 rows of bits.
std::array<std::uint16_t, 16> glyph(char code)
{
    panel_fake_start({.width = 17, .height = 17});
    screen_clear(0);
    const char text[] = {code, '\0'};
    screen_print(text, 0, 0, 0xFFFFFF);
    std::array<std::uint16_t, 16> rows{};
    for (unsigned y = 0; y < 16; y++)
        for (unsigned x = 0; x < 16; x++)
            if (panel_fake_pixel(x, y) != 0)
                rows[y] = static_cast<std::uint16_t>(rows[y] | 1u << x);
    return rows;
}

// Text at any place and scale, against its glyphs at scale 1 blown up.
void compare_text(uint32_t width, uint32_t height, uint32_t scale, const std::string& text, uint32_t x,
                  uint32_t y)
{
    plain_canvas plain(width, height, 0x112233);
    const uint32_t cell = 16 * scale;
    for (std::size_t i = 0; i < text.size(); i++) {
        const auto left = static_cast<uint32_t>(x + i * cell);
        if (!(left < width && y + cell < height))
            continue;
        const auto rows = glyph(text[i]);
        for (uint32_t r = 0; r < cell; r++)
            for (uint32_t c = 0; c < cell; c++)
                if ((rows[r / scale] >> (c / scale) & 1) != 0)
                    plain.put(left + c, y + r, 0x40C0F0);
    }
    panel_fake_start({.width = width, .height = height});
    ASSERT_EQ(screen_char_width(), cell);
    screen_clear(0x112233);
    screen_print(text.c_str(), x, y, 0x40C0F0);
    EXPECT_EQ(panel_fake_picture(), plain.pixels)
        << width << "x" << height << " \"" << text << "\" at " << x << "," << y;
}

TEST(Screen, TextIsItsGlyphsAtEveryScaleAndPlace)
{
    const std::string all = "The quick brown fox, 0123456789: {jumps} over the lazy dog! ~\x80\xFF\x05$%&@";
    struct {
        uint32_t width, height, scale;
    } constexpr screens[] = {{1, 1, 1},     {719, 70, 1},  {720, 70, 2},
                             {1079, 70, 2}, {1080, 70, 3}, {1083, 70, 3}};
    for (const auto& s : screens) {
        for (const uint32_t x : {0u, 7u, s.width - 1, 0xFFFFFFF0u, 0xFFFFFFFFu})
            for (const uint32_t y : {0u, 9u, s.height - 1, 0xFFFFFFF0u, 0xFFFFFFFDu})
                compare_text(s.width, s.height, s.scale, all, x, y);
        compare_text(s.width, s.height, s.scale, std::string(300, '#'), 5, 3);
        compare_text(s.width, s.height, s.scale, "", 0, 0);
    }
}

TEST(ScreenLinux, TheOtherDepthsGetTheSameFiguresInTheirLayout)
{
    const fb_bitfield red5 = {11, 5, 0}, green6 = {5, 6, 0};
    // clang-format off
    const panel_shape layouts[] = {
        {.width = 239, .height = 41, .bits = 16, .line_padding = 6, .red = red5, .green = green6, .blue = {0, 5, 0}},
        {.width = 239, .height = 41, .bits = 24, .line_padding = 3},
        {.width = 239, .height = 41, .red = {0, 8, 0}, .green = {8, 8, 0}, .blue = {24, 6, 0}},
    };
    // clang-format on
    for (const panel_shape& shape : layouts) {
        plain_canvas plain(shape.width, shape.height, 0x00FE12);
        plain.line(3, 1, 200, 38, 0xF8765A);
        plain.rectangle(10, 5, 50, 20, 0x87654F, 0x9ABCDE, true);
        plain.ellipse(150, 20, 60, 30, 0x13579B);
        for (uint32_t& pixel : plain.pixels) {
            const uint32_t r = pixel >> 16, g = pixel >> 8 & 0xFF, b = pixel & 0xFF;
            if (shape.bits == 16)
                pixel = (r >> 3) << 11 | (g >> 2) << 5 | b >> 3;
            else if (shape.bits == 32)
                pixel = r | g << 8 | (b & 0xFC) << 24; // the six high bits stay where they are in the byte
        }
        panel_fake_start(shape);
        screen_clear(0x00FE12);
        screen_line(3, 1, 200, 38, 0xF8765A);
        screen_rectangle(10, 5, 50, 20, 0x87654F, 0x9ABCDE, 1);
        screen_ellipse(150, 20, 60, 30, 0x13579B, 1);
        EXPECT_EQ(panel_fake_picture(), plain.pixels) << shape.bits;
        // a clear of words goes over what lies between the rows
        EXPECT_TRUE(shape.bits == 32 || panel_fake_rest_untouched()) << shape.bits;
    }
}

TEST(ScreenLinux, WithoutAFramebufferBehindTheActiveSlotDrawingDoesNothing)
{
    plat_fake_reset();
    screen_init();
    screen_linux_init();
    screen_set_active(SCREEN_HDMI, 0);
    EXPECT_EQ(screen_get_active(), SCREEN_HDMI);
    EXPECT_EQ(screen_width(), 0u);
    screen_clear(0xFFFFFF);
    screen_put_pixel(0, 0, 0xFF0000);
    screen_line(0, 0, 5, 0, 0xFF00);
    screen_line(0, 0, 0, 5, 0xFF00);
    screen_line(0, 0, 5, 7, 0xFF00);
    screen_rectangle(0, 0, 4, 4, 0xFF, 0xFF0000, 1);
    screen_print("text", 0, 0, 0xFFFFFF);
    screen_set_active(SCREEN_LAST, 0);
    screen_put_pixel(0, 0, 0xFF0000);
    EXPECT_EQ(screen_invalidate(), 0);
    EXPECT_EQ(screen_control(SCREEN_CONTROL_UNBLANK, 0), -1);
}

TEST(ScreenLinux, AModeLargerThanTheMemoryIsDrawnAsFarAsThatGoes)
{
    panel_fake_start({.width = 100, .height = 50, .pages = 2});
    ASSERT_EQ(screen_control(SCREEN_CONTROL_MODE, 16), 0); // 1920 x 1080
    for (const uint32_t line : {400u, 7680u, 0u}) {
        screen_linux_get_screen_info(SCREEN_MAIN)->fix.line_length = line;
        screen_clear(0xFFFFFF);
        screen_line(0, 0, 1919, 1079, 1);
        screen_line(1919, 0, 1919, 1079, 2);
        screen_rectangle(0, 0, 1920, 1080, 3, 3, 1);
        screen_print("x", 0, 1000, 4);
        screen_put_pixel(1919, 1079, 5);
        const uint32_t colours[1920] = {};
        screen_rows(0, 0, 1920, 1080, {colours});
        EXPECT_EQ(screen_invalidate(), 1);
    }
}

// The driver's words behind `rotate` are one it keeps, three that are cleared and the id of the mode.
TEST(ScreenLinux, AVideoModeIsSetOnceWithItsTimingsInTheirPlaces)
{
    struct row {
        int id;
        uint32_t xres, yres, right, hsync, left, lower, vsync, upper, clock, interlaced, told_id;
        bool operator==(const row&) const = default;
    };
    panel_fake_start({.width = 100, .height = 50, .pages = 2});
    for (const row& r : {row{6, 1440, 240, 38, 124, 114, 4, 3, 15, 27'000'000, 1, 6},
                         row{5, 1920, 540, 88, 44, 148, 2, 5, 5, 74'250'000, 0, 5},
                         row{32, 1920, 1080, 638, 44, 148, 4, 5, 36, 74'250'000, 0, 32},
                         row{99, 640, 480, 16, 96, 48, 10, 2, 33, 25'200'000, 0, 1}}) { // no such mode
        panel_fake_modes.clear();
        screen_invalidate();
        ASSERT_EQ(screen_control(SCREEN_CONTROL_MODE, r.id), 0);
        ASSERT_EQ(screen_control(SCREEN_CONTROL_MODE, r.id), 0);
        ASSERT_EQ(panel_fake_modes.size(), 1u);
        const fb_var_screeninfo& v = panel_fake_modes[0];
        EXPECT_EQ((row{r.id, v.xres, v.yres, v.right_margin, v.hsync_len, v.left_margin, v.lower_margin,
                       v.vsync_len, v.upper_margin, v.pixclock, v.vmode, r.told_id}),
                  r)
            << r.id;
        std::array<uint32_t, sizeof v / 4> words;
        std::memcpy(words.data(), &v, sizeof v);
        const std::size_t at = offsetof(fb_var_screeninfo, rotate) / 4 + 1;
        EXPECT_EQ((std::vector(&words[at], &words[at] + 5)), (std::vector<uint32_t>{7, 0, 0, 0, r.told_id}));
        EXPECT_EQ(std::tuple(v.xoffset + v.yoffset, v.activate), std::tuple(0u, 192u));
    }
    screen_control(SCREEN_CONTROL_BLANK, 0);
    ASSERT_EQ(screen_control(SCREEN_CONTROL_MODE, 99), 0);
    EXPECT_EQ(panel_fake_modes.size(), 2u) << "a blanked output has forgotten its mode";
}

// The panel's identity from the text of its driver's file; empty when it gives none.
std::string lcd_id(const std::string& result, std::uint8_t mode, std::uint8_t sub_mode)
{
    const std::filesystem::path folder = testing::TempDir() + "panel_" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "read") << "old";
    std::ofstream(folder / "result") << result;
    cfg_set_str("screen_brenk", "panel_debugfs", folder.c_str());
    char text[SCREEN_LCDID_SIZE] = {};
    const int got = screen_get_lcdid(mode, sub_mode, text);
    std::string request;
    std::getline(std::ifstream(folder / "read"), request);
    EXPECT_EQ(request, "dcs 8 a1 00");
    std::filesystem::remove_all(folder);
    return got == 1 ? text : "";
}

TEST(ScreenBrenk, ThePanelsRecordIsEightBytesInTheirOrderAndItsFieldsBits)
{
    panel_fake_start({.width = 8, .height = 8});
    cfg_init();
    screen_brenk_init();
    const auto record = [](const std::string& first) {
        return "data[0]=" + first + "\ndata[1]=a8\ndata[2]=90\ndata[3]=3\ndata[4]=4\ndata[5]=5\ndata[6]=6\n";
    };
    // 10 0011 0 1, 101 0100 0, 1001 0000: SHARP, 3, 0, year 1101 = 13, month 4, day 01001 = 9, 0
    const std::string good = record("8d") + "data[7]=1ff\n";
    const char* const fields[] = {"0x8DA890", "SHARP", "0x3", "2023", "20230409", "0x0", "0x0", "0x8DA890"};
    for (std::uint8_t sub = 0; sub < std::size(fields); sub++)
        EXPECT_EQ(lcd_id(good, 3, sub), fields[sub]) << int{sub};
    for (const auto& [first, name] :
         {std::pair{"0", "UNKNOWN"}, {"40", "JDI"}, {"80", "SHARP"}, {"c0", "UNKNOWN"}})
        EXPECT_EQ(lcd_id(record(first) + "data[7]=7\n", 3, 1), name);
    const std::string bytes = "0x8d,0xa8,0x90,0x03,0x04,0x05,0x06,0xff";
    EXPECT_EQ(lcd_id("dcs read\n data[0]=1\ndata[1]=2\ndata[0]=\n" + good + "data[8]=8\ndata[0]=9\n", 0, 0),
              bytes);
    EXPECT_EQ(lcd_id(record("8d"), 0, 0), "") << "seven";
    EXPECT_EQ(lcd_id("data[1]=a8\n" + record("8d") + "data[8]=7\n", 0, 0), "") << "out of order";
}

} // namespace
