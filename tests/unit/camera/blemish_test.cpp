// Pictures whose marks are known by how they were made.
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

#include "unit/camera/camera_desk.h"

namespace {

constexpr std::uint32_t edge = 5; // of a cell

struct Blemish : testing::Test {
    const camera_desk desk;
};

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

TEST_F(Blemish, ADarkCellIsTheDarkestSpotWhereverItLies)
{
    constexpr std::uint32_t cols = 24, rows = 20;
    for (std::uint32_t r = 0; r < rows; r++)
        for (std::uint32_t c = 0; c < cols; c++) {
            desk_picture picture(cols * edge, rows * edge, 200);
            picture.box(c * edge, r * edge, edge, edge, 160);
            const camera_blemish_result found = judge(picture, config());
            EXPECT_GE(found.spots, 1u) << r << "," << c;
            // 20 percent below its neighbours in each of its pixels
            EXPECT_EQ(
                std::tuple(found.spot_col, found.spot_row, found.specks, found.speck_col, found.speck_row),
                std::tuple(c * edge, r * edge, edge * edge, c * edge, r * edge));
        }
}

TEST_F(Blemish, BothSidesOfEachLimit)
{
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

// A meta image of even cells, which a test changes; what the unfocused pass finds with one limit of 150 or so
// and the others out of reach.
struct cells {
    static constexpr std::uint32_t rows = 20, cols = 24;
    std::vector<std::uint32_t> meta = std::vector<std::uint32_t>(rows * cols, 1000);

    std::uint32_t& at(std::size_t row, std::size_t col) { return meta[row * cols + col]; }
    std::uint32_t found(std::uint32_t camera_blemish_config::*limit, std::uint32_t value)
    {
        static std::array<camera_blemish_spot, CAMERA_BLEMISH_ROOM> spots;
        camera_blemish_config c = config();
        c.inner_threshold = c.edge_threshold = c.corner_threshold = 5000;
        c.*limit = value;
        return camera_blemish_unfocused_spot_detect({nullptr, meta.data(), rows, cols, 5, 2, 2}, c, spots);
    }
};

TEST_F(Blemish, EdgesAreHeldAgainstALineOfWholeSteps)
{
    // From its end on, `step` more each cell, but the last `rest` more than that; cell `place` of it is dark.
    // On the far sides the line lies one cell behind.
    struct {
        std::uint32_t row, col, down, right;
        int step, rest;
        std::uint32_t place, dark;
    } const rows[] = {
        {3, 0, 0, 1, 10, 7, 5, 892},    // 1050 expected
        {3, 0, 0, 1, -10, -5, 7, 790},  // 930
        {3, 15, 0, 1, 10, 7, 5, 883},   // 1040
        {0, 0, 1, 0, 10, 0, 5, 892},    // 1050
        {0, 23, 1, 0, -10, -5, 7, 790}, // 930
        {17, 0, 0, 1, 10, 0, 5, 892},   // 1050
        {17, 15, 0, 1, 10, 0, 5, 883},  // 1040
        {11, 0, 1, 0, 10, 0, 5, 883},   // 1040
        {11, 23, 1, 0, 10, 0, 5, 883},  // 1040
    };
    for (const auto& r : rows) {
        cells c;
        for (std::uint32_t i = 0; i <= 8; i++)
            c.at(r.row + r.down * i, r.col + r.right * i) =
                static_cast<std::uint32_t>(1000 + r.step * static_cast<int>(i) + (i == 8 ? r.rest : 0));
        c.at(r.row + r.down * r.place, r.col + r.right * r.place) = r.dark;
        EXPECT_EQ(c.found(&camera_blemish_config::edge_threshold, 150), 1u) << r.row << "," << r.col;
        EXPECT_EQ(c.found(&camera_blemish_config::edge_threshold, 152), 0u) << r.row << "," << r.col;
    }
}

TEST_F(Blemish, CornersAreHeldAgainstTwoCells)
{
    struct {
        std::uint32_t row, col, a_row, a_col, b_row, b_col;
    } const rows[] = {
        {0, 0, 0, 3, 3, 0}, {0, 23, 0, 20, 3, 23}, {19, 0, 16, 0, 19, 4}, {19, 23, 19, 20, 16, 23}};
    for (const auto& r : rows) {
        cells c;
        c.at(r.row, r.col) = 849;
        c.at(r.a_row, r.a_col) = 800;
        c.at(r.b_row, r.b_col) = 1200;
        EXPECT_EQ(c.found(&camera_blemish_config::corner_threshold, 150), 1u) << r.row << "," << r.col;
        EXPECT_EQ(c.found(&camera_blemish_config::corner_threshold, 152), 0u) << r.row << "," << r.col;
    }
}

TEST_F(Blemish, KernelsTakeTheCellsBehindTheirGap)
{
    // 150 per mille below even cells, 244 below seven even ones and one twice as bright
    for (const auto& [row, col, down] : {std::tuple{2u, 12u, 0}, {17u, 12u, 0}, {10u, 3u, 1}})
        for (int away = -9; away <= 9; away++) {
            if (away == 0)
                continue;
            cells c;
            c.at(row, col) = 850;
            c.at(row + static_cast<unsigned>(away * down), col + static_cast<unsigned>(away * (1 - down))) =
                2000;
            EXPECT_EQ(c.found(&camera_blemish_config::inner_threshold, 200),
                      std::abs(away) >= 5 && std::abs(away) <= 8 ? 1u : 0u)
                << row << " " << away;
        }
}

TEST_F(Blemish, TheOuterBandsHaveALimitOfTheirOwn)
{
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

TEST_F(Blemish, SpecksAreFoundToThePixelAndAtTheirLimit)
{
    // 200 * (1 - 0.1) is 180
    for (const auto& [level, count] : {std::pair{181, 0}, {179, 1}}) {
        desk_picture picture(120, 100, 200);
        picture.at(61, 58) = static_cast<std::uint8_t>(level); // no sample of its cell
        const camera_blemish_result r = judge(picture, config());
        EXPECT_EQ(std::tuple(r.specks, r.speck_col, r.speck_row, r.spots),
                  std::tuple(static_cast<unsigned>(count), count != 0 ? 60u : 0u, count != 0 ? 55u : 0u, 0u));
    }
}

TEST_F(Blemish, AnyStepsGiveTheSameMean)
{
    desk_picture picture(120, 100, 200);
    picture.at(61, 58) = 179;
    picture.at(3, 98) = 179; // at the border
    for (const auto& [rows, cols] : {std::pair{1u, 1u}, {1u, 3u}, {4u, 1u}, {9u, 2u}}) {
        camera_blemish_config c = config();
        c.row_step = rows;
        c.col_step = cols;
        EXPECT_EQ(judge(picture, c).specks, 2u) << rows << "," << cols;
    }
}

TEST_F(Blemish, BlackHasNoMarksAndAFullListEndsAPass)
{
    desk_picture black(120, 100, 0);
    EXPECT_EQ(judge(black, config()).spots, 0u);
    EXPECT_EQ(judge(black, config()).specks, 0u);
    desk_picture dotted(400, 300, 200);
    for (std::uint32_t y = 1; y < 300; y += 2)
        for (std::uint32_t x = 1; x < 400; x += 2)
            dotted.at(x, y) = 0;
    EXPECT_EQ(judge(dotted, config()).specks, CAMERA_BLEMISH_FULL);
}

TEST_F(Blemish, EntriesNearALaterOneAreItsDuplicates)
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

TEST_F(Blemish, RowsAreAsLongAsTheirCells)
{
    desk_picture picture(121, 101, 200); // 24 cells make 120 pixels
    picture.at(30, 50) = 100;            // pixel 50 * 121 + 30 = 50 * 120 + 80
    const camera_blemish_result r = judge(picture, config());
    EXPECT_EQ(std::tuple(r.specks, r.speck_col, r.speck_row), std::tuple(1u, 80u, 50u));
}

TEST_F(Blemish, LargeBlocksAreSummedAsSmallOnes)
{
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

TEST_F(Blemish, WhatDoesntFitIsRefused)
{
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
