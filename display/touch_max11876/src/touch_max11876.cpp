#include "touch_max11876/touch_max11876.h"

#include <cstdio>
#include <iterator>
#include <string>

#include "config.h"
#include "measure.h"
#include "touch_max11876/report_queue.h"
#include "touch_v2/touch.h"

namespace {

constexpr unsigned ITERATIONS_DEFAULT = 10;
constexpr std::uint32_t RESULT_FAILED = UINT32_MAX; // -1

bool is_configured;

// Once in the life of the program, and again as long as it fails.
bool configure()
{
    touch_hwinfo info{};
    is_configured =
        is_configured || (touch_fmid(&info) != 0 && config_panel(max11876_set_of(info.config_id)));
    return is_configured;
}

void put_number(std::string& text, std::int32_t value)
{
    text += std::to_string(value);
    text += ',';
}

void put_extremes(std::string& text, const max11876_stats& stats)
{
    for (const std::int32_t value : {stats.min, stats.min_index, stats.max, stats.max_index})
        put_number(text, value);
}

void put_matrix(std::string& text, const max11876_matrix& matrix)
{
    for (const std::int32_t value : matrix)
        put_number(text, value);
}

bool test_reset(std::string&, unsigned)
{
    return chip_reset();
}

bool test_noise_largest(std::string& text, unsigned n)
{
    max11876_matrix noise;
    if (!do_noise_test(noise, n))
        return false;
    const max11876_stats stats = process_min_max_values(noise);
    put_number(text, stats.max);
    put_number(text, stats.max_index);
    return true;
}

bool test_noise(std::string& text, unsigned n)
{
    max11876_matrix noise;
    const bool done = do_noise_test(noise, n);
    put_matrix(text, noise);
    return done;
}

bool test_raw_extremes(std::string& text, unsigned n)
{
    max11876_matrix raw;
    if (!get_raw_pixel_matrix(raw, n))
        return false;
    put_extremes(text, process_min_max_values(raw));
    return true;
}

bool test_raw(std::string& text, unsigned n)
{
    max11876_matrix raw;
    if (!get_raw_pixel_matrix(raw, n))
        return false;
    put_matrix(text, raw);
    return true;
}

bool test_pixels(std::string& text, unsigned n)
{
    max11876_matrix differences;
    if (!do_pixel_test(differences, n))
        return false;
    for (std::size_t row = 0; row + 1 < MAX11876_ROWS; row++)
        for (std::size_t column = 0; column + 1 < MAX11876_COLUMNS; column++)
            put_number(text, differences[row * MAX11876_COLUMNS + column]);
    return true;
}

// What the tests of drive and sense lines share: both are measured, `tell` tells of one.
template <class Tell>
bool test_lines(unsigned n, Tell tell)
{
    max11876_lines drive, sense;
    if (!do_open_shorts_test(drive, sense, n))
        return false;
    tell(drive, sense);
    return true;
}

void put_statistics(std::string& text, const max11876_stats& stats)
{
    char parts[64];
    std::snprintf(parts, sizeof parts, "%f,%f,", static_cast<double>(stats.low_percent),
                  static_cast<double>(stats.high_percent));
    put_number(text, stats.average);
    text += parts;
    put_extremes(text, stats);
}

bool test_drive_statistics(std::string& text, unsigned n)
{
    return test_lines(n, [&](const auto& drive, const auto&) { put_statistics(text, drive.stats); });
}

bool test_drive(std::string& text, unsigned n)
{
    return test_lines(n, [&](const auto& drive, const auto&) { put_matrix(text, drive.pixels); });
}

bool test_sense_statistics(std::string& text, unsigned n)
{
    return test_lines(n, [&](const auto&, const auto& sense) { put_statistics(text, sense.stats); });
}

bool test_sense(std::string& text, unsigned n)
{
    return test_lines(n, [&](const auto&, const auto& sense) { put_matrix(text, sense.pixels); });
}

using test_fn = bool (*)(std::string& text, unsigned n);

// By test mode.
// clang-format off
constexpr test_fn tests[] = {
    test_reset,
    test_noise_largest,
    test_noise,
    test_raw_extremes,
    test_raw,
    nullptr,
    test_pixels,
    test_drive_statistics,
    test_drive,
    test_sense_statistics,
    test_sense,
};
// clang-format on

// A text without room for all of it is cut.
void hand_out(const std::string& text, const touch_test_mode_rec& rec)
{
    if (rec.size == 0)
        return;
    auto* const p = reinterpret_cast<char*>(rec.buffer);
    p[text.copy(p, rec.size - 1)] = '\0';
}

bool run(const touch_test_mode_rec& rec)
{
    const test_fn fn = rec.mode < std::size(tests) ? tests[rec.mode] : nullptr;
    const auto iterations = static_cast<std::int32_t>(rec.iterations);
    std::string text;
    report_queue_init();
    if (!configure() || fn == nullptr ||
        !fn(text, iterations < 0 ? ITERATIONS_DEFAULT : static_cast<unsigned>(iterations)))
        return false;
    hand_out(text, rec);
    return true;
}

int touch_max11876_test_mode(touch_test_mode_rec* p_rec)
{
    const bool done = run(*p_rec);
    p_rec->result = done ? 0 : RESULT_FAILED;
    return done ? 1 : 0;
}

constexpr touch_co touch_max11876_co = {
    .start = nullptr,
    .stop = nullptr,
    .start_evt_hnd = nullptr,
    .stop_evt_hnd = nullptr,
    .poll = nullptr,
    .selftest = nullptr,
    .fmdn = nullptr,
    .fmid = nullptr,
    .test_mode = nullptr,
    .test_mode_secondary = touch_max11876_test_mode,
};

} // namespace

// The flags are those of the panel's driver, which stay in force.
void touch_max11876_init()
{
    touch_co_attach(&touch_max11876_co, TOUCH_FLAG_POLLED);
}
