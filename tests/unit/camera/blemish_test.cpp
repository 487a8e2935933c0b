// Pictures whose marks are known by how they were made.
#include <gtest/gtest.h>

#include "unit/camera/camera_desk.h"

namespace {

constexpr std::uint32_t edge = 5; // of a cell

camera_blemish_config config()
{
    camera_blemish_config c;
    camconf_get_camb_config(&c);
    return c;
}

camera_blemish_result judge(desk_picture& picture, const camera_blemish_config& c)
{
    camera_blemish_result r = {9, 9, 9, 9, 9, 9};
    const camera_snapshot snapshot = picture.snapshot();
    EXPECT_EQ(camera_blemish_do_test(&c, &r, &snapshot), 1);
    return r;
}

} // namespace

TEST(Blemish, ADarkCellIsTheDarkestSpotWhereverItLies)
{
    const camera_desk desk;
    constexpr std::uint32_t cols = 24, rows = 20;
    for (std::uint32_t r = 0; r < rows; r++)
        for (std::uint32_t c = 0; c < cols; c++) {
            desk_picture picture(cols * edge, rows * edge, 200);
            picture.box(c * edge, r * edge, edge, edge, 160);
            const camera_blemish_result found = judge(picture, config());
            EXPECT_GE(found.spots, 1u) << r << "," << c;
            EXPECT_EQ(found.spot_col, c * edge) << r << "," << c;
            EXPECT_EQ(found.spot_row, r * edge) << r << "," << c;
            // 20 percent below its neighbours in each of its pixels
            EXPECT_EQ(found.specks, edge * edge) << r << "," << c;
            EXPECT_EQ(found.speck_col, c * edge);
            EXPECT_EQ(found.speck_row, r * edge);
        }
}

TEST(Blemish, BothSidesOfEachLimit)
{
    const camera_desk desk;
    struct {
        const char* what;
        std::uint32_t camera_blemish_config::*limit;
        std::uint32_t row, col;
    } const rows[] = {
        {"horizontal kernel", &camera_blemish_config::inner_threshold, 2, 12},
        {"vertical kernel", &camera_blemish_config::inner_threshold, 10, 0},
        {"horizontal kernel below", &camera_blemish_config::inner_threshold, 18, 11},
        {"left edge", &camera_blemish_config::edge_threshold, 5, 0},
        {"right edge below", &camera_blemish_config::edge_threshold, 16, 23},
        {"end of a row", &camera_blemish_config::edge_threshold, 3, 20},
        {"corner", &camera_blemish_config::corner_threshold, 0, 0},
        {"corner", &camera_blemish_config::corner_threshold, 19, 23},
    };
    for (const auto& row : rows) {
        desk_picture picture(24 * edge, 20 * edge, 200);
        picture.box(row.col * edge, row.row * edge, edge, edge, 170); // 150 per mille
        for (const std::uint32_t limit : {149, 151}) {
            camera_blemish_config c = config();
            c.inner_threshold = c.edge_threshold = c.corner_threshold = 900;
            c.*row.limit = limit;
            EXPECT_EQ(judge(picture, c).spots, limit < 150 ? 1u : 0u) << row.what << " " << limit;
        }
        camera_blemish_config c = config();
        c.inner_threshold = 900;
        c.corner_threshold = 100;
        c.edge_threshold = 0; // switches the corners off too
        EXPECT_EQ(judge(picture, c).spots, 0u) << row.what;
    }
}

TEST(Blemish, TheOuterBandsHaveALimitOfTheirOwn)
{
    const camera_desk desk;
    desk_picture picture(24 * edge, 40 * edge, 200);
    camera_blemish_config c = config();
    c.kernel_length = c.kernel_gap = 1;
    c.outer_threshold = 160;
    c.outer_cols = 3;
    c.outer_rows = 10;
    struct {
        std::uint32_t row, col;
        bool outer;
    } const rows[] = {{9, 2, true},   {9, 3, false},   {10, 2, false},
                      {30, 21, true}, {30, 20, false}, {29, 21, false}};
    for (const auto& row : rows) {
        picture.box(0, 0, 24 * edge, 40 * edge, 200);
        picture.box(row.col * edge, row.row * edge, edge, edge, 170);
        EXPECT_EQ(judge(picture, c).spots, row.outer ? 0u : 1u) << row.row << "," << row.col;
    }
}

TEST(Blemish, SpecksAreFoundToThePixelAndAtTheirLimit)
{
    const camera_desk desk;
    // 200 * (1 - 0.1) is 180
    for (const auto& [level, count] : {std::pair{181, 0}, {179, 1}}) {
        desk_picture picture(120, 100, 200);
        picture.at(61, 58) = static_cast<std::uint8_t>(level); // no sample of its cell
        const camera_blemish_result r = judge(picture, config());
        EXPECT_EQ(r.specks, static_cast<unsigned>(count));
        EXPECT_EQ(r.speck_col, count != 0 ? 60u : 0u);
        EXPECT_EQ(r.speck_row, count != 0 ? 55u : 0u);
        EXPECT_EQ(r.spots, 0u);
    }
}

TEST(Blemish, BlackHasNoMarksAndAFullListEndsAPass)
{
    const camera_desk desk;
    desk_picture black(120, 100, 0);
    EXPECT_EQ(judge(black, config()).spots, 0u);
    EXPECT_EQ(judge(black, config()).specks, 0u);
    desk_picture dotted(400, 300, 200);
    for (std::uint32_t y = 1; y < 300; y += 2)
        for (std::uint32_t x = 1; x < 400; x += 2)
            dotted.at(x, y) = 0;
    EXPECT_EQ(judge(dotted, config()).specks, CAMERA_BLEMISH_FULL);
}

TEST(Blemish, EntriesNearALaterOneAreItsDuplicates)
{
    using spots = std::vector<camera_blemish_spot>;
    EXPECT_EQ(camera_blemish_merge(spots{}), 0u);
    EXPECT_EQ(camera_blemish_merge(spots{{10, 10, 1}, {13, 13, 1}, {16, 10, 1}, {19, 13, 1}}), 1u)
        << "a chain";
    EXPECT_EQ(camera_blemish_merge(spots{{10, 10, 1}, {14, 10, 1}, {10, 14, 1}}), 3u);
    EXPECT_EQ(camera_blemish_merge(spots{{10, 10, 1}, {7, 7, 1}}), 1u);
    EXPECT_EQ(camera_blemish_merge(spots{{3, 3, 1}, {2, 4, 1}}), 2u) << "a row below 3 never matches";
    EXPECT_EQ(camera_blemish_merge(spots{{3, 3, 1}, {3, 3, 1}}), 1u);
}

TEST(Blemish, RowsAreAsLongAsTheirCells)
{
    const camera_desk desk;
    desk_picture picture(121, 101, 200); // 24 cells make 120 pixels
    picture.at(30, 50) = 100;            // pixel 50 * 121 + 30 = 50 * 120 + 80
    const camera_blemish_result r = judge(picture, config());
    EXPECT_EQ(r.specks, 1u);
    EXPECT_EQ(r.speck_col, 80u);
    EXPECT_EQ(r.speck_row, 50u);
}

TEST(Blemish, LargeBlocksAreSummedAsSmallOnes)
{
    const camera_desk desk;
    for (const std::uint32_t size : {7u, 256u, 257u, 2600u}) {
        std::vector<std::uint8_t> y(std::size_t{size} * size * 2, 3);
        y[0] = 7;
        y[y.size() - 1] = 250; // sampled only with steps of 1
        std::uint32_t meta[2];
        const camera_blemish_image image = {y.data(), meta, 1, 2, size, 1, 1};
        camera_blemish_make_meta_image(image);
        EXPECT_EQ(meta[0], size * size * 3 + 4) << size;
        EXPECT_EQ(meta[1], size * size * 3 + 247) << size;
    }
}

TEST(Blemish, WhatDoesntFitIsRefused)
{
    const camera_desk desk;
    desk_picture picture(120, 100, 200);
    camera_blemish_result r;
    const camera_blemish_config c = config();
    camera_snapshot s = picture.snapshot();
    s.format = 2;
    EXPECT_EQ(camera_blemish_do_test(&c, &r, &s), 0);
    s.format = 5;
    EXPECT_EQ(camera_blemish_do_test(&c, &r, &s), 1);
    s.nbr_of_bytes = 120 * 100 - 1;
    EXPECT_EQ(camera_blemish_do_test(&c, &r, &s), 0);
    s = picture.snapshot();
    s.width = 122; // bit value 2
    EXPECT_EQ(camera_blemish_do_test(&c, &r, &s), 0);
    camera_blemish_config wide = c;
    wide.block_size = 21; // four rows of cells
    s = picture.snapshot();
    EXPECT_EQ(camera_blemish_do_test(&wide, &r, &s), 0);
}
