#include "measure.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "protocol.h"
#include "touch_max11876/report_queue.h"

namespace {

constexpr unsigned ANSWER_MS = 50;
constexpr unsigned RESET_MS = 500;
constexpr int MOST_REPORTS = 200; // that a new frame may be behind

// Takes the next frame; false when none comes.
bool next_frame(max11876_report& frame)
{
    for (int i = 0; i < MOST_REPORTS; i++) {
        if (!next_report(&frame))
            return false;
        if (max11876_report_is(frame, MAX11876_FRAME))
            return true;
    }
    return false;
}

// The same for a frame with another number than `*p_counter`, which takes the new one.
bool new_frame(max11876_report& frame, unsigned* p_counter)
{
    for (int i = 0; i < MOST_REPORTS; i++) {
        if (!next_frame(frame))
            return false;
        if (max11876_frame_counter(frame) != *p_counter) {
            *p_counter = max11876_frame_counter(frame);
            return true;
        }
    }
    return false;
}

// Hands the nodes of n frames to `fn`, each frame once, however often it is reported. The first two reports
// may be of a former mode.
template <class Fn>
bool read_frames(unsigned n, Fn fn)
{
    max11876_report frame;
    if (!next_frame(frame) || !next_frame(frame))
        return false;
    unsigned counter = max11876_frame_counter(frame);
    for (; n > 0; n--) {
        if (!new_frame(frame, &counter))
            return false;
        for (std::size_t i = 0; i < MAX11876_PIXELS; i++)
            fn(i, max11876_frame_pixel(frame, i));
    }
    return true;
}

bool accumulate_raw_pixel_reports(max11876_matrix& sum, unsigned n)
{
    sum.fill(0);
    return read_frames(n, [&](std::size_t i, std::int32_t value) { sum[i] += value; });
}

// Both pieces of a test run, whatever the first gives: a controller that isn't put back would spoil the next
// test.
bool both(bool measured, bool put_back)
{
    return measured && put_back;
}

bool prepare_measurement()
{
    return send_commands(MAX11876_0028, MAX11876_MEASURE, MAX11876_0026);
}

// The sum of n frames of offsets in a mode.
bool capture_offsets(const char* mode_text, max11876_matrix& offsets, unsigned n)
{
    bool measured = set_scan_frequency() && prepare_measurement() && send_command(MAX11876_MEASURE) &&
                    command_expecting(MAX11876_OFFSETS, MAX11876_MODE_SET, ANSWER_MS) &&
                    (mode_text != max11876_pixel_mode || set_report_mode(MAX11876_RAW_REPORTS)) &&
                    set_report_mode(mode_text);
    report_queue_empty();
    measured = measured && accumulate_raw_pixel_reports(offsets, n);
    return both(measured, send_commands(MAX11876_SLEEP, MAX11876_NO_REPORTS, MAX11876_NO_REPORTS) &&
                              command_expecting(MAX11876_RESET, MAX11876_RESET_DONE, RESET_MS));
}

void negate(max11876_matrix& matrix)
{
    for (std::int32_t& value : matrix)
        value = -value;
}

void divide(max11876_matrix& matrix, unsigned n)
{
    for (std::int32_t& value : matrix)
        value /= static_cast<std::int32_t>(n);
}

void subtract(max11876_matrix& matrix, const max11876_matrix& offsets)
{
    std::transform(matrix.begin(), matrix.end(), offsets.begin(), matrix.begin(), std::minus());
}

// Sums of n frames to averages without offsets, and what is to be said of them.
void process_pixels(max11876_lines& lines, max11876_matrix& offsets, unsigned n)
{
    divide(lines.pixels, n);
    divide(offsets, n);
    subtract(lines.pixels, offsets);
    max11876_stats& s = lines.stats;
    s = process_min_max_values(lines.pixels);
    std::int32_t sum = 0;
    for (const std::int32_t value : lines.pixels)
        sum += value;
    s.average = sum / static_cast<std::int32_t>(MAX11876_PIXELS);
    if (s.average == 0)
        return;
    const auto average = static_cast<float>(s.average);
    s.low_percent = static_cast<float>(s.average - s.min) / average;
    s.high_percent = static_cast<float>(s.max - s.average) / average;
}

bool measure_raw(max11876_matrix& sum, unsigned n)
{
    max11876_matrix offsets;
    const bool measured = capture_offsets(max11876_pixel_mode.c_str(), offsets, n) && set_scan_frequency() &&
                          prepare_measurement() && set_report_mode(MAX11876_RAW_REPORTS) &&
                          accumulate_raw_pixel_reports(sum, n);
    if (!both(measured, send_commands(MAX11876_MEASURE, MAX11876_NO_REPORTS, MAX11876_0028)))
        return false;
    divide(sum, n);
    divide(offsets, n);
    subtract(sum, offsets);
    return true;
}

// One half of open and shorts; the sense lines' frames have the opposite sign.
bool measure_lines(const char* mode_text, bool negative, max11876_lines& lines, unsigned n)
{
    max11876_matrix offsets;
    const bool measured = capture_offsets(mode_text, offsets, n) && set_scan_frequency() &&
                          prepare_measurement() && set_report_mode(mode_text) &&
                          accumulate_raw_pixel_reports(lines.pixels, n);
    const bool done = both(measured, send_commands(MAX11876_MEASURE, MAX11876_NO_REPORTS, MAX11876_MEASURE));
    report_queue_empty();
    if (!done)
        return false;
    if (negative) {
        negate(offsets);
        negate(lines.pixels);
    }
    process_pixels(lines, offsets, n);
    return true;
}

} // namespace

max11876_stats process_min_max_values(const max11876_matrix& matrix)
{
    const auto min = std::min_element(matrix.begin(), matrix.end());
    const auto max = std::max_element(matrix.begin(), matrix.end());
    max11876_stats stats{};
    stats.min = *min;
    stats.max = *max;
    stats.min_index = static_cast<std::int32_t>(min - matrix.begin());
    stats.max_index = static_cast<std::int32_t>(max - matrix.begin());
    return stats;
}

bool do_noise_test(max11876_matrix& out, unsigned n)
{
    out.fill(0);
    if (n == 0)
        return true;
    max11876_matrix low, high;
    low.fill(std::numeric_limits<std::int32_t>::max());
    high.fill(std::numeric_limits<std::int32_t>::min());
    const bool measured = set_report_mode(MAX11876_RAW_REPORTS) && send_command(MAX11876_MEASURE) &&
                          read_frames(n, [&](std::size_t i, std::int32_t value) {
                              low[i] = std::min(low[i], value);
                              high[i] = std::max(high[i], value);
                          });
    if (!both(measured, send_commands(MAX11876_NO_REPORTS, MAX11876_MEASURE)))
        return false;
    std::transform(high.begin(), high.end(), low.begin(), out.begin(), std::minus());
    return true;
}

bool get_raw_pixel_matrix(max11876_matrix& out, unsigned n)
{
    static max11876_matrix last;
    if (n != 0) {
        max11876_matrix now;
        if (!measure_raw(now, n))
            return false;
        last = now;
    }
    out = last;
    return true;
}

bool do_pixel_test(max11876_matrix& out, unsigned n)
{
    if (!get_raw_pixel_matrix(out, n))
        return false;
    constexpr std::size_t compared = MAX11876_COLUMNS - 1; // the last column has no right neighbour
    for (std::size_t row = 0; row < MAX11876_ROWS; row++)
        for (std::size_t i = row * MAX11876_COLUMNS; i < row * MAX11876_COLUMNS + compared; i++)
            out[i] = std::abs(out[i + 1] - out[i]);
    for (std::size_t row = 0; row + 1 < MAX11876_ROWS; row++)
        for (std::size_t i = row * MAX11876_COLUMNS; i < row * MAX11876_COLUMNS + compared; i++)
            out[i] = std::abs(out[i + MAX11876_COLUMNS] - out[i]);
    return true;
}

bool do_open_shorts_test(max11876_lines& drive, max11876_lines& sense, unsigned n)
{
    static max11876_lines last_drive, last_sense;
    if (n != 0) {
        if (!measure_lines(MAX11876_DRIVE, false, drive, n) || !measure_lines(MAX11876_SENSE, true, sense, n))
            return false;
        last_drive = drive;
        last_sense = sense;
    }
    drive = last_drive;
    sense = last_sense;
    return true;
}

bool chip_reset()
{
    return command_report_expect_retry(MAX11876_RESET, MAX11876_RESET_DONE, RESET_MS) == REPORT_OK;
}
