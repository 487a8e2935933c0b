#include "camera_cv.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace {

constexpr int block = 5, samples = 9, length = 4, gap = 4, reach = length + gap;
constexpr double inner = 0.03, focused = 0.1;
constexpr int search_percent = 20, red_excess = 50, run_length = 5;

// Rows as long as whole blocks.
cv::Mat whole_blocks(const std::uint8_t* picture, int width, int height)
{
    const int cols = width / block * block;
    return cv::Mat(height / block * block, cols, CV_8U, const_cast<std::uint8_t*>(picture),
                   static_cast<size_t>(cols));
}

cv::Mat meta_image(const cv::Mat& y)
{
    cv::Mat kernel = cv::Mat::zeros(block, block, CV_32F), sums, meta;
    for (int i = 0; i < block; i += 2)
        for (int j = 0; j < block; j += 2)
            kernel.at<float>(i, j) = 1;
    cv::filter2D(y, sums, CV_32F, kernel);
    cv::resize(sums, meta, y.size() / block, 0, 0, cv::INTER_NEAREST_EXACT);
    return meta;
}

// One less the cell as a part of the mean of cells some way off along a row or a column.
cv::Mat darkness(const cv::Mat& meta, bool along)
{
    cv::Mat kernel = cv::Mat::zeros(1, 2 * reach + 1, CV_32F), sums, part;
    for (int k = 1; k <= length; k++)
        kernel.at<float>(0, reach - gap - k) = kernel.at<float>(0, reach + gap + k) = 1.0f / (2 * length);
    cv::filter2D(meta, sums, CV_32F, along ? kernel : cv::Mat(kernel.t()));
    cv::divide(meta, sums, part);
    return cv::Mat(1 - part);
}

std::uint32_t merged(const cv::Mat& dark, double* p_most, cv::Point* p_at)
{
    std::vector<cv::Point> places;
    cv::Mat mask = dark >= inner;
    cv::findNonZero(mask, places);
    auto left = static_cast<std::uint32_t>(places.size());
    for (size_t i = 0; i < places.size(); i++)
        for (size_t j = i + 1; j < places.size(); j++)
            if (std::abs(places[i].x - places[j].x) <= 3 && std::abs(places[i].y - places[j].y) <= 3) {
                left--;
                break;
            }
    cv::minMaxLoc(dark, nullptr, p_most, nullptr, p_at);
    return left;
}

// The first long enough run of a line of the mask; 0 for none.
int run_centre(const std::uint8_t* p, int count, std::size_t step, int from)
{
    int run = 0, start = 0, end = 0;
    for (int i = 0; i < count; i++) {
        if (p[static_cast<std::size_t>(i) * step] != 0) {
            if (++run == 1)
                start = from + i;
            if (run > run_length)
                end = from + i;
        } else {
            run = 0;
            if (end != 0)
                return (start + end) / 2;
        }
    }
    return 0;
}

} // namespace

cv_blemish_words cv_blemish(const std::uint8_t* picture, int width, int height)
{
    cv::setNumThreads(1);
    const cv::Mat y = whole_blocks(picture, width, height), meta = meta_image(y);
    cv::Mat dark(meta.size(), CV_32F);
    darkness(meta, false).copyTo(dark);
    const cv::Mat along = darkness(meta, true);
    for (const cv::Range rows : {cv::Range(0, reach), cv::Range(meta.rows - reach, meta.rows)})
        along.rowRange(rows).copyTo(dark.rowRange(rows));
    cv_blemish_words result{};
    double most;
    cv::Point at;
    result.words[0] = merged(dark, &most, &at);
    if (result.words[0] != 0) {
        result.words[2] = static_cast<std::uint32_t>(at.x * block);
        result.words[3] = static_cast<std::uint32_t>(at.y * block);
    }
    cv::Mat around, limits, limit, mask, part;
    cv::boxFilter(meta, around, CV_32F, {3, 3}, {-1, -1}, false);
    cv::subtract(around, meta, around);
    around *= (1 - focused) / (8 * samples);
    cv::resize(around, limits, y.size(), 0, 0, cv::INTER_NEAREST_EXACT);
    cv::Mat pixels;
    y.convertTo(pixels, CV_32F);
    cv::compare(pixels, limits, mask, cv::CMP_LE);
    result.words[1] = static_cast<std::uint32_t>(cv::countNonZero(mask));
    if (result.words[1] != 0) {
        cv::divide(pixels, limits, part);
        cv::minMaxLoc(part, &most, nullptr, &at, nullptr, mask);
        result.words[4] = static_cast<std::uint32_t>(at.x / block * block);
        result.words[5] = static_cast<std::uint32_t>(at.y / block * block);
    }
    return result;
}

cv_corners_found cv_corners(const std::uint8_t* picture, int width, int height)
{
    cv::setNumThreads(1);
    const cv::Mat y(height, width, CV_8U, const_cast<std::uint8_t*>(picture));
    const cv::Mat vu(height / 2, width / 2, CV_8UC2,
                     const_cast<std::uint8_t*>(picture) + static_cast<size_t>(width) * height);
    const int w = search_percent * width / 100 & ~1, h = search_percent * height / 100 & ~1;
    cv_corners_found found{};
    for (int i = 0; i < 4; i++) {
        const cv::Rect area(i % 2 == 0 ? 0 : width - w, i < 2 ? 0 : height - h, w, h);
        cv::Mat rgb, channels[3], over_green, over_blue;
        cv::cvtColorTwoPlane(y(area), vu(cv::Rect(area.x / 2, area.y / 2, w / 2, h / 2)), rgb,
                             cv::COLOR_YUV2RGB_NV21);
        cv::split(rgb, channels);
        cv::subtract(channels[0], channels[1], over_green);
        cv::subtract(channels[0], channels[2], over_blue);
        const cv::Mat mask = (over_green >= red_excess) & (over_blue >= red_excess);
        long sum_x = 0, count_x = 0, sum_y = 0, count_y = 0;
        for (int row = 0; row < h; row++)
            if (const int c = run_centre(mask.ptr(row), w, 1, area.x); c != 0) {
                sum_x += c;
                count_x++;
            }
        for (int col = 0; col < w; col++)
            if (const int c = run_centre(mask.ptr() + col, h, mask.step, area.y); c != 0) {
                sum_y += c;
                count_y++;
            }
        if (count_x != 0 && count_y != 0) {
            found.count++;
            found.sum += sum_x / count_x + sum_y / count_y;
        }
    }
    return found;
}
