// The parts of the general image test, on planes and lines made for it.
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "unit/camera/camera_desk.h"

namespace {

// A picture as planes, black, with a frame whose inside fills it but for a border.
struct planes {
    std::int32_t width, height;
    std::vector<std::uint8_t> y, u, v;
    cam_gen_data data{};

    planes(std::int32_t w, std::int32_t h)
        : width(w), height(h), y(static_cast<std::size_t>(w * h), 16),
          u(static_cast<std::size_t>(w * h / 2), 128), v(u)
    {
        data.size = {w, h};
        data.planes = {y.data(), u.data(), v.data()};
        data.frame_found = 1;
        data.corners[0] = {10, 10};
        data.corners[1] = {w - 10, 10};
        data.corners[2] = {10, h - 10};
        data.corners[3] = {w - 10, h - 10};
    }
    void box(int x, int top, int w, int h, int luma, int cu = 128, int cv = 128)
    {
        for (int row = top; row < top + h; row++)
            for (int col = x; col < x + w; col++) {
                const auto i = static_cast<std::size_t>(row * width + col);
                y[i] = static_cast<std::uint8_t>(luma);
                u[i / 2] = static_cast<std::uint8_t>(cu);
                v[i / 2] = static_cast<std::uint8_t>(cv);
            }
    }
};

// Each test finds the parameters as they are at the start.
struct General : testing::Test {
    void SetUp() override { camera_general_init(); }
    void TearDown() override { camera_general_init(); }
};

constexpr int red_y = 90, red_u = 100, red_v = 210;

std::uint32_t edge_of(const cam_gen_point (&middles)[4], int half = 8, cam_gen_point* p_corners = nullptr)
{
    planes p(640, 480);
    for (const cam_gen_point& m : middles)
        p.box(m.x - half, m.y - half, 2 * half, 2 * half, red_y, red_u, red_v);
    p.data.frame_found = 0;
    const std::uint32_t word = cam_gen_edge_do_test(p.data);
    EXPECT_EQ(p.data.frame_found, word == 0 ? 1u : 0u);
    if (p_corners != nullptr)
        std::copy_n(p.data.corners, 4, p_corners);
    return word;
}

// '.' dark, '-' between, '#' bright.
bool shows(const std::string& line, std::uint32_t count, std::uint8_t bar, std::uint8_t gap)
{
    std::vector<std::uint8_t> samples;
    for (const char c : line)
        samples.push_back(c == '#' ? 120 : c == '-' ? 90 : 40);
    return cam_gen_mountain_chk({samples.data(), 1, static_cast<std::int32_t>(samples.size()), bar, gap}, 80,
                                100, count);
}

} // namespace

TEST_F(General, ColoursOfPixels)
{
    std::uint8_t y = 235, u = 128, v = 128;
    const cam_gen_planes one = {&y, &u, &v};
    const auto rgb = [&](int luma, int cu, int cv) {
        y = static_cast<std::uint8_t>(luma);
        u = static_cast<std::uint8_t>(cu);
        v = static_cast<std::uint8_t>(cv);
        const cam_gen_rgb c = camera_general_get_rgb(one, {1, 1}, {0, 0});
        return std::vector<int>{c.r, c.g, c.b};
    };
    using list = std::vector<int>;
    EXPECT_EQ(rgb(16, 128, 128), (list{0, 0, 0}));
    EXPECT_EQ(rgb(235, 128, 128), (list{254, 254, 254}));
    EXPECT_EQ(rgb(255, 128, 240), (list{255, 187, 255})); // 239 * 1192 - 833 * 112 = 191592, / 1024
    EXPECT_EQ(rgb(0, 0, 255), (list{184, 0, 0}));         // -16 * 1192 + 1634 * 127 = 188446
    struct {
        std::uint8_t r, g, b;
        int hue, saturation, value;
    } const rows[] = {
        {255, 0, 0, 0, 100, 100},     {0, 255, 0, 120, 100, 100},  {0, 0, 255, 240, 100, 100},
        {255, 255, 0, 60, 100, 100},  {0, 0, 0, 0, 0, 0},          {128, 128, 128, 0, 0, 50},
        {200, 100, 101, 359, 50, 78}, {255, 0, 43, 349, 100, 100}, {100, 200, 150, 150, 50, 78},
        {60, 100, 200, 222, 70, 78},
    };
    for (const auto& row : rows) {
        const cam_gen_hsv h = camera_general_get_hsv({row.r, row.g, row.b});
        EXPECT_EQ(h.hue, row.hue) << int{row.r} << "," << int{row.g} << "," << int{row.b};
        EXPECT_EQ(std::tuple(h.saturation, h.value), std::tuple(row.saturation, row.value));
    }
}

TEST_F(General, EachLimitHasItsDefaultAndItsWidth)
{
    constexpr int no = -1;
    const int defaults[80] = {
        20,  50, 5,  no, no, no, no, no, no, no, no, no, no, no, no, no, // 16
        25,  50, 0,  20, 40, 50, 0,  20, 30, 30, 0,  20, 30, 20, no, no, // 32
        100, 80, no, no, no, no, no, no, no, no, no, no, no, no, no, no, // 48
        15,  20, no, no, no, no, no, no, no, no, no, no, no, no, no, no, // 64
        3,   40, 3,  35, no, no, no, no, no, no, no, no, no, no, no, no, // 80
    };
    for (std::uint32_t id = 0; id < 120; id++) {
        const int expected = id < 16 || id > 95 ? no : defaults[id - 16];
        std::uint32_t value = 0;
        EXPECT_EQ(camera_general_get_param(id, &value), expected == no ? 0 : 1) << id;
        if (expected == no) {
            EXPECT_EQ(camera_general_set_param(id, 1), 0) << id;
            continue;
        }
        EXPECT_EQ(value, static_cast<std::uint32_t>(expected)) << id;
        EXPECT_EQ(camera_general_set_param(id, 0x1234F), 1);
        camera_general_get_param(id, &value);
        EXPECT_EQ(value, id == 18 ? 0x1234Fu : 0x4Fu) << id;
    }
}

TEST_F(General, TheFramesShape)
{
    struct {
        const char* what;
        cam_gen_point middles[4];
        std::uint32_t word;
    } const rows[] = {
        {"4:3", {{60, 45}, {580, 45}, {60, 435}, {580, 435}}, 0},
        {"just not too flat", {{60, 60}, {580, 60}, {60, 420}, {580, 420}}, 0},      // 26 : 24
        {"too flat", {{60, 67}, {580, 67}, {60, 413}, {580, 413}}, 64},              // 26 : 23.07
        {"top longer by a tenth", {{46, 45}, {592, 45}, {70, 435}, {566, 435}}, 32}, // 546 : 496
        {"top nearly so", {{46, 45}, {591, 45}, {70, 435}, {566, 435}}, 0},          // 545 : 496
        {"left shorter", {{60, 80}, {580, 40}, {60, 430}, {580, 440}}, 32},          // 350 : 400
    };
    for (const auto& row : rows)
        EXPECT_EQ(edge_of(row.middles), row.word) << row.what;
    // Middles cut to whole pixels, then a quarter of 520 / 20 + 390 / 15 inwards each
    cam_gen_point c[4];
    EXPECT_EQ(edge_of(rows[0].middles, 8, c), 0u);
    const cam_gen_point expected[] = {{72, 57}, {566, 57}, {72, 421}, {566, 421}};
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(c[i].x, expected[i].x) << i;
        EXPECT_EQ(c[i].y, expected[i].y) << i;
    }
}

TEST_F(General, RunsOfRed)
{
    // A block counts when its run is longer than 5 and ends inside its rectangle, 128 x 96.
    EXPECT_EQ(edge_of({{60, 45}, {580, 45}, {60, 435}, {580, 435}}, 3), 0u);
    camera_general_set_param(18, 6);
    EXPECT_EQ(edge_of({{60, 45}, {580, 45}, {60, 435}, {580, 435}}, 3), 0xF10u);
    camera_general_init();
    EXPECT_EQ(edge_of({{120, 45}, {580, 45}, {60, 435}, {580, 435}}), 0x110u) << "reaches the end at 128";
    EXPECT_EQ(edge_of({{60, 45}, {632, 45}, {60, 435}, {580, 435}}), 0x210u) << "reaches the picture's end";
    EXPECT_EQ(edge_of({{60, 45}, {580, 45}, {60, 472}, {580, 435}}), 0x410u) << "reaches the lower end";
    camera_general_set_param(17, 255);
    EXPECT_EQ(edge_of({{60, 45}, {580, 45}, {60, 435}, {580, 435}}), 0xF10u) << "not red enough";
    camera_general_set_param(17, 0);
    camera_general_set_param(16, 255);
    EXPECT_EQ(edge_of({{60, 45}, {580, 45}, {60, 435}, {580, 435}}), 0xF10u) << "everything is red";
}

TEST_F(General, RedIsWhatExceedsBothOtherColoursByTheLimit)
{
    for (const int luma : {60, 90, 150})
        for (const int cu : {60, 90, 100, 128, 140})
            for (const int cv : {150, 180, 210, 250}) {
                planes p(640, 480);
                for (const int x : {60, 580})
                    for (const int y : {45, 435})
                        p.box(x - 8, y - 8, 16, 16, luma, cu, cv);
                const cam_gen_rgb c = camera_general_get_rgb(p.data.planes, p.data.size, {60, 45});
                const int excess = c.r - std::max(c.g, c.b);
                if (excess < 1 || excess > 254)
                    continue;
                camera_general_set_param(17, static_cast<std::uint32_t>(excess));
                EXPECT_EQ(cam_gen_edge_do_test(p.data), 0u) << luma << "," << cu << "," << cv;
                camera_general_set_param(17, static_cast<std::uint32_t>(excess + 1));
                EXPECT_EQ(cam_gen_edge_do_test(p.data), 0xF10u) << luma << "," << cu << "," << cv;
            }
}

TEST_F(General, PatchesAtBothSidesOfTheirLimits)
{
    planes p(1020, 1020); // a frame of 1000 x 1000
    // Hue, saturation and value of a colour that stands in all patches: (200, 100, 100) by the pixel formula
    const cam_gen_rgb seen = [&] {
        p.box(0, 0, 1020, 1020, 126, 115, 168);
        return camera_general_get_rgb(p.data.planes, p.data.size, {500, 500});
    }();
    const cam_gen_hsv hsv = camera_general_get_hsv(seen);
    const auto word = [&](std::uint32_t id, std::uint32_t value) {
        camera_general_init();
        for (const std::uint32_t limit : {33, 36, 37, 40, 41, 44, 45})
            camera_general_set_param(limit, 0);
        camera_general_set_param(32, 100);
        for (const std::uint32_t tolerance : {35, 39, 43})
            camera_general_set_param(tolerance, 240);
        camera_general_set_param(id, value);
        return cam_gen_color_do_test(p.data);
    };
    EXPECT_EQ(word(32, 100), 0u);
    EXPECT_EQ(word(32, hsv.saturation), 0u);
    EXPECT_EQ(word(32, hsv.saturation - 1u), 0x120u);
    EXPECT_EQ(word(33, hsv.value), 0u);
    EXPECT_EQ(word(33, hsv.value + 1u), 0x140u);
    for (std::uint32_t i = 1; i < 4; i++) {
        const std::uint32_t first = 30 + i * 4, bit = 0x100u << i;
        EXPECT_EQ(word(first + 2, hsv.saturation), 0u);
        EXPECT_EQ(word(first + 2, hsv.saturation + 1u), bit | 0x20);
        EXPECT_EQ(word(first + 3, hsv.value), 0u);
        EXPECT_EQ(word(first + 3, hsv.value + 1u), bit | 0x40);
        const std::uint32_t target = (i - 1) * 120;
        const std::uint32_t off = std::min((hsv.hue + 360 - target) % 360, (target + 360 - hsv.hue) % 360);
        EXPECT_EQ(word(first + 1, off), 0u) << i;
        EXPECT_EQ(word(first + 1, off - 1), bit | 0x10) << i;
    }
}

TEST_F(General, PatchesLieInTheirPlaces)
{
    // White, 254 of 255, to the pixel: a line of black in it makes 98 percent of 99.
    for (const std::uint32_t least : {33, 37, 41, 45})
        camera_general_set_param(least, 99);
    for (const std::uint32_t saturation : {36, 40, 44})
        camera_general_set_param(saturation, 0);
    for (const std::uint32_t tolerance : {35, 39, 43})
        camera_general_set_param(tolerance, 240);
    planes p(1020, 1020); // a frame of 1000 x 1000, from 10 on
    constexpr int x = 730, tops[] = {200, 370, 540, 710};
    for (const int top : tops)
        p.box(x, top, 101, 126, 235);
    EXPECT_EQ(cam_gen_color_do_test(p.data), 0u);
    for (int i = 0; i < 4; i++) {
        const int top = tops[i];
        const int lines[][4] = {
            {x, top, 1, 126}, {x + 100, top, 1, 126}, {x, top, 101, 1}, {x, top + 125, 101, 1}};
        for (const auto& line : lines) {
            p.box(line[0], line[1], line[2], line[3], 16);
            EXPECT_EQ(cam_gen_color_do_test(p.data), 0x40u | 0x100u << i) << line[0] << "," << line[1];
            p.box(line[0], line[1], line[2], line[3], 235);
        }
    }
}

TEST_F(General, FlareLinesLieInTheirPlaces)
{
    // Lines of 130 and 170 pixels of a frame that is 1001 wide: bars and gaps of 6 at least. The third gap is
    // known with the line's last pixel, and a fourth bar begins behind it.
    struct {
        int x, y, length;
        bool down;
    } const lines[] = {
        {10, 510, 130, false}, {880, 510, 130, false}, {510, 10, 170, true}, {510, 840, 170, true}};
    const auto word = [&](int width_of_bar, int start) {
        planes p(1040, 1040);
        for (cam_gen_point& corner : p.data.corners)
            corner = {corner.x > 500 ? 1010 : 10, corner.y > 500 ? 1010 : 10};
        for (const auto& line : lines)
            for (const int at : {start, 40, line.length - 7 - width_of_bar, line.length})
                p.box(line.x + (line.down ? 0 : at), line.y + (line.down ? at : 0),
                      line.down ? 1 : width_of_bar, line.down ? width_of_bar : 1, 200);
        return cam_gen_flare_do_test(p.data);
    };
    EXPECT_EQ(word(6, 6), 0u);
    EXPECT_EQ(word(5, 6), 0xF10u) << "bars too narrow";
    EXPECT_EQ(word(6, 5), 0xF10u) << "the dark start too short";
}

TEST_F(General, BarsOfALine)
{
    EXPECT_TRUE(shows("...###...###...###....", 3, 2, 2));
    EXPECT_FALSE(shows("...###...###..........", 3, 2, 2));
    EXPECT_FALSE(shows("...###...###...###...###...", 3, 2, 2));
    EXPECT_TRUE(shows("...###...###...###...###...", 4, 2, 2));
    EXPECT_FALSE(shows("...###...###...###", 3, 2, 2)) << "ends in a bar";
    EXPECT_FALSE(shows("...###...###...###..", 3, 2, 2)) << "a gap isn't known before its end";
    EXPECT_TRUE(shows("..-##-..-##-...-##-...", 3, 2, 2)) << "slopes";
    EXPECT_FALSE(shows("..-##-..-.#....###...", 3, 2, 2)) << "a slope that turns back";
    EXPECT_FALSE(shows("...###-##...###...###...", 3, 2, 2)) << "a falling slope that rises";
    EXPECT_FALSE(shows("...#...###...###...", 3, 2, 2)) << "a bar too narrow";
    EXPECT_FALSE(shows("...###.###...###...", 3, 2, 2)) << "a gap too narrow";
    EXPECT_TRUE(shows("...###.###...###...", 3, 2, 1));
    EXPECT_FALSE(shows("#...###...###...", 3, 2, 2)) << "no dark start";
    EXPECT_FALSE(shows("", 0, 1, 1));
    EXPECT_TRUE(shows("....", 0, 1, 1));
    EXPECT_TRUE(shows(".#.#.#...", 3, 0, 0)) << "least widths count from 1";
}

TEST_F(General, ContrastOfLines)
{
    constexpr std::int32_t width = 100, height = 60;
    const auto passes = [](int dark, int bright, int count, std::uint32_t wanted, std::uint8_t least) {
        std::vector<std::uint8_t> block(width * height, static_cast<std::uint8_t>(dark));
        for (int n = 0; n < count; n++)
            for (int row = 0; row < height; row++)
                std::fill_n(&block[static_cast<std::size_t>(row * width + 15 + n * 10)], 5,
                            static_cast<std::uint8_t>(bright));
        return cam_gen_chk_ctf(block.data(), {width, height}, wanted, least);
    };
    // (105 - 45) / 150 is 40 percent
    EXPECT_TRUE(passes(45, 105, 6, 3, 39));
    EXPECT_FALSE(passes(45, 105, 6, 3, 40)) << "exactly the least doesn't count";
    EXPECT_TRUE(passes(45, 105, 6, 5, 39));
    EXPECT_FALSE(passes(45, 105, 6, 6, 39)) << "the last line runs on to the end";
    EXPECT_FALSE(passes(30, 30, 6, 1, 0)) << "no start";
    EXPECT_FALSE(passes(30, 88, 6, 3, 10)) << "lines that don't reach 90";
    EXPECT_TRUE(passes(30, 92, 6, 3, 10));
    EXPECT_FALSE(passes(200, 250, 6, 1, 0)) << "no dark stretch before";
    std::vector<std::uint8_t> even(width * height);
    for (std::size_t i = 0; i < even.size(); i++)
        even[i] = i / 10 % 2 == 0 ? 16 : 200;
    EXPECT_FALSE(cam_gen_chk_ctf(even.data(), {width, height}, 1, 0))
        << "each dark stretch is just too short";
}

TEST_F(General, BlocksOfLinesLieInTheirPlaces)
{
    // Blocks of 200 x 120, from the corner inwards. In one row, and those beside it: bright up to `start`, a
    // dark stretch, then lines of which the fourth is the block's last column.
    constexpr int dark = 16, bright = 95; // two of three rows don't reach 70
    const auto word = [](int row, int start) {
        planes p(1020, 1020);
        const cam_gen_point* c = p.data.corners;
        const cam_gen_point starts[] = {c[0], c[1], c[2], c[3], {410, 450}};
        for (int block = 0; block < 5; block++) {
            const bool left = block == 1 || block == 3, up = block == 2 || block == 3;
            for (int y = std::max(row - 1, 0); y <= row + 1; y++)
                for (int x = 0; x < 200; x++)
                    p.box(starts[block].x + (left ? -x : x), starts[block].y + (up ? -y : y), 1, 1,
                          x < start || (x >= 139 && (x - 139) / 10 % 2 == 0) ? bright : dark);
        }
        return cam_gen_resolution_do_test(p.data);
    };
    EXPECT_EQ(word(40, 118), 0u);
    EXPECT_EQ(word(40, 119), 0x1F10u) << "a dark stretch of 20 is no longer than 20";
    for (const int row : {0, 20, 60, 80})
        EXPECT_EQ(word(row, 0), 0u) << row;
    EXPECT_EQ(word(100, 0), 0x1F10u);
    // The dark rows before count for the next
    EXPECT_EQ(word(0, 139), 0x1F10u) << "begins at once, with what is no line";
    camera_general_set_param(80, 4);
    EXPECT_EQ(word(40, 118), 0x1010u);
    camera_general_set_param(82, 4);
    EXPECT_EQ(word(40, 118), 0x1F10u);
}

TEST_F(General, ContrastsBehindABadOneStayForTheNextRow)
{
    // Row 2 of six has lines of 20, 73, 73, 73 percent, row 0 one of 73.
    std::vector<std::uint8_t> block(200 * 60, 16);
    const auto paint = [&](int row, std::initializer_list<std::uint8_t> levels) {
        for (int y = std::max(row - 1, 0); y <= row + 1; y++) {
            int x = 50;
            for (const std::uint8_t level : levels)
                for (int i = 0; i < 10; i++)
                    block[static_cast<std::size_t>(y * 200 + x++)] = level;
        }
    };
    paint(20, {75, 49, 200, 30, 200, 30, 200, 30, 200});
    EXPECT_FALSE(cam_gen_chk_ctf(block.data(), {200, 60}, 4, 40));
    paint(0, {200, 30, 200});
    EXPECT_TRUE(cam_gen_chk_ctf(block.data(), {200, 60}, 4, 40));
    EXPECT_FALSE(cam_gen_chk_ctf(block.data(), {200, 60}, 5, 40));
}

TEST_F(General, TheRampMayBowButNotTurn)
{
    const auto word = [](double bow, double swing, int at, double jump) {
        planes p(420, 420);
        // The line is measured from a quarter of the frame to three quarters: 110 to 310, at 0.28 of its
        // width.
        for (int row = 0; row < 420; row++) {
            const double t = (row - 110) / 200.0;
            double level = 60 + 120 * t + bow * std::sin(t * M_PI) + swing * std::sin(2 * t * M_PI);
            if (row >= at && row < at + 12)
                level += jump;
            p.box(118, row, 10, 1, static_cast<int>(std::lround(level)));
        }
        return cam_gen_solarization_do_test(p.data);
    };
    EXPECT_EQ(word(0, 0, 0, 0), 0u);
    EXPECT_EQ(word(30, 0, 0, 0), 0u);
    EXPECT_EQ(word(-20, 15, 0, 0), 0u);
    // Away from the middle and the quarter points, by less and by more than 15 above and 20 below
    EXPECT_EQ(word(0, 0, 130, 13), 0u);
    EXPECT_EQ(word(0, 0, 130, 17), 5u);
    EXPECT_EQ(word(0, 0, 130, -18), 0u);
    EXPECT_EQ(word(0, 0, 130, -22), 5u);
    camera_general_set_param(64, 20);
    EXPECT_EQ(word(0, 0, 130, 17), 0u);
    camera_general_init();
    planes p(420, 420);
    for (cam_gen_point& corner : p.data.corners)
        corner.y = 2;
    EXPECT_EQ(cam_gen_solarization_do_test(p.data), 2u);
    for (cam_gen_point& corner : p.data.corners)
        corner.y = 200;
    EXPECT_EQ(cam_gen_solarization_do_test(p.data), 3u);
    p.data.frame_found = 0;
    EXPECT_EQ(cam_gen_solarization_do_test(p.data), 1u);
}

TEST_F(General, TheRampIsReadFromOneColumnAndFiveRows)
{
    // Column 10 + 0.28 * 400, rows 110 to 310 and two more at either end
    const auto word = [](int column, int first, int last) {
        planes p(420, 420);
        for (int row = 0; row < 420; row++)
            p.box(column, row, 1, 1,
                  row < first || row > last ? 250 : std::max(0, 20 + 60 * (row - 110) / 200));
        return cam_gen_solarization_do_test(p.data);
    };
    EXPECT_EQ(word(122, 108, 312), 0u);
    EXPECT_EQ(word(122, 109, 312), 5u);
    EXPECT_EQ(word(122, 108, 311), 5u);
    planes bent(420, 420);
    for (int row = 0; row < 420; row++)
        bent.box(122, row, 1, 1, row < 200 ? 100 : 200); // and nothing but black beside it
    EXPECT_EQ(cam_gen_solarization_do_test(bent.data), 5u);
}

TEST_F(General, PlanesOfBothLayoutsAndWhatIsRefused)
{
    // Each sample says where it is: brightness 1 to 8, U 20 on, V 40 on.
    const std::uint8_t packed[] = {1, 20, 2, 40, 3, 21, 4, 41, 5, 22, 6, 42, 7, 23, 8, 43};
    const std::uint8_t planar[] = {1, 2, 3, 4, 5, 6, 7, 8, 40, 20, 41, 21};
    std::uint8_t y[8], u[4], v[4];
    const auto extract = [&](std::span<const std::uint8_t> bytes, std::uint32_t w, std::uint32_t h) {
        const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
        return cam_gen_extract_yuv({exact.data(), w, h, static_cast<std::uint32_t>(exact.size())}, {y, u, v});
    };
    using list = std::vector<int>;
    {
        const camera_desk desk(0);
        EXPECT_EQ(extract(packed, 4, 2), 1);
        EXPECT_EQ(list(y, y + 8), (list{1, 2, 3, 4, 5, 6, 7, 8}));
        EXPECT_EQ(list(u, u + 4), (list{20, 21, 22, 23}));
        EXPECT_EQ(list(v, v + 4), (list{40, 41, 42, 43}));
        EXPECT_EQ(extract(std::span(packed, 15), 4, 2), 0);
    }
    {
        const camera_desk desk(2);
        EXPECT_EQ(extract(planar, 4, 2), 1);
        EXPECT_EQ(list(u, u + 4), (list{20, 21, 20, 21}));
        EXPECT_EQ(list(v, v + 4), (list{40, 41, 40, 41}));
        EXPECT_EQ(extract(planar, 3, 2), 0);
        EXPECT_EQ(extract(std::span(planar, 11), 4, 2), 0);
    }
    const camera_desk desk(1);
    EXPECT_EQ(extract(packed, 4, 2), 0);
}
