// The vibration measurement with a driver of the test's own: what it does in which order, and what comes out
// of samples whose sums are known.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <numbers>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include "unit/plat_fake.h"
#include "vibrator/vibrator.h"

namespace {

struct sample {
    float axis[4];
};

std::function<float(int i, int axis)> signal_of;
std::vector<std::string> told; // what the driver was asked for
int data_fd = -1;
bool data_opens;

void tell(const std::string& what)
{
    told.push_back(what + " at " + std::to_string(plat_fake_now_us() % 1000000 / 1000));
}

sample& at(const void* p_buf, int index)
{
    return static_cast<sample*>(const_cast<void*>(p_buf))[index];
}

int fake_capture(int count, std::uint32_t period, std::uint32_t mode, void* p_buf)
{
    tell("capture " + std::to_string(count) + " " + std::to_string(period) + " " + std::to_string(mode));
    for (int i = 0; i < count && signal_of; i++)
        for (int axis = 0; axis < 4; axis++)
            at(p_buf, i).axis[axis] = signal_of(i, axis);
    return signal_of ? 1 : 0;
}

constexpr vibrator_co whole_co = {
    nullptr,
    [] {
        tell("stop");
        return 0;
    },
    [](int number, int level) {
        tell("start " + std::to_string(number) + " " + std::to_string(level));
        return level == -2 ? 1 : 0;
    },
    [] { return static_cast<int>(sizeof(sample)); },
    [](const void* p_buf, int index, int axis) { return at(p_buf, index).axis[axis]; },
    [](void* p_buf, int index, int axis, float value) { at(p_buf, index).axis[axis] = value; },
    fake_capture};

struct Vibration : testing::Test {
    vibrator_co co = whole_co;
    vibm_cfg cfg = {7, 1, 500, 256, 10};
    vibr_result result = {};

    void SetUp() override
    {
        plat_fake_reset();
        plat_fake_co.open = [](const char* path, int, mode_t) {
            if (!data_opens || std::strcmp(path, "/system/hvtdebug/vibt_data.txt") != 0)
                return -1;
            if (data_fd >= 0)
                close(data_fd);
            data_fd = memfd_create("data", 0);
            return dup(data_fd);
        };
        data_opens = true;
        told.clear();
        signal_of = nullptr;
        vibrator_co_attach(&co);
        vibr_measure_set_cfg(&cfg);
        ASSERT_EQ(vibr_measure_init(), 1);
    }
    void TearDown() override
    {
        vibr_measure_exit();
        vibr_measure_set_cfg(nullptr);
    }

    static std::string data()
    {
        std::string text(static_cast<std::size_t>(lseek(data_fd, 0, SEEK_END)), ' ');
        EXPECT_EQ(pread(data_fd, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
        return text;
    }

    // The bin of `n` in which the frequency lies, from the formula that adds one.
    double bin() const { return result.frequency * cfg.samples * cfg.sample_period / 1e6 - 1; }
};

float tone(double bin, int i, int n, double amplitude)
{
    return static_cast<float>(amplitude * std::sin(2 * std::numbers::pi * bin * i / n + 0.3));
}

// The derivative favours high frequencies: amplitudes of tones whose derivatives are as given.
double for_slope(double slope, double bin, int n)
{
    return slope / (2 * std::sin(std::numbers::pi * bin / n));
}

TEST_F(Vibration, RunsTheMotorAroundTheCapture)
{
    signal_of = [](int i, int) { return tone(20, i, 256, 100); };
    EXPECT_EQ(vibr_measure(&result, 1234), 1);
    const std::string start = std::to_string(plat_fake_now_us() % 1000000 / 1000 - 10);
    const std::string then = std::to_string(plat_fake_now_us() % 1000000 / 1000);
    EXPECT_EQ(told, (std::vector<std::string>{"start 0 1234 at " + start, "capture 266 500 7 at " + then,
                                              "stop at " + then}));
    told.clear();
    EXPECT_EQ(vibr_measure(&result, 0), 1);
    ASSERT_EQ(told.size(), 1u) << "level 0 leaves the motor alone";
    EXPECT_TRUE(told[0].starts_with("capture"));
    told.clear();
    EXPECT_EQ(vibr_measure(&result, -2), 0);
    EXPECT_EQ(told.size(), 1u) << "no motor, no capture";
}

TEST_F(Vibration, WithNothingToCaptureTheMotorIsSwitchedOffAtAnyLevel)
{
    for (const int level : {0, -1}) {
        told.clear();
        EXPECT_EQ(vibr_measure(&result, level), 0);
        EXPECT_TRUE(told.back().starts_with("stop")) << level;
    }
    signal_of = [](int i, int) { return tone(20, i, 256, 100); };
    struct row {
        std::uint32_t samples, skip, period;
        bool captures;
    };
    const row rows[] = {
        {256, 0, 500, false}, {1400, 101, 500, false}, {256, 0xFFFFFF80, 500, false},
        {256, 10, 0, false},  {149, 10, 500, true}, // too few to analyse
    };
    for (const row& r : rows) {
        cfg = {7, 1, r.period, r.samples, r.skip};
        told.clear();
        EXPECT_EQ(vibr_measure(&result, 1), 0) << r.samples << " " << r.skip;
        EXPECT_EQ(told.size(), r.captures ? 3u : 2u) << r.samples << " " << r.skip;
        EXPECT_TRUE(told.back().starts_with("stop"));
    }
    cfg = {7, 1, 500, 1400, 100}; // the most that fits
    EXPECT_EQ(vibr_measure(&result, 1), 1);
    cfg = {7, 1, 500, 150, 1};
    EXPECT_EQ(vibr_measure(&result, 1), 1);
    vibr_measure_set_cfg(nullptr);
    EXPECT_EQ(vibr_measure(&result, 1), 0);
}

TEST_F(Vibration, ATableWithHolesFailsTheMeasurement)
{
    signal_of = [](int i, int) { return tone(20, i, 256, 100); };
    const auto fails_with = [&](auto hole) {
        co = whole_co;
        hole(co);
        told.clear();
        ASSERT_EQ(vibr_measure_init(), 1);
        EXPECT_EQ(vibr_measure(&result, 1), 0);
        EXPECT_EQ(told.size(), 2u);
    };
    fails_with([](vibrator_co& c) { c.sample_size = nullptr; });
    fails_with([](vibrator_co& c) { c.sample_get = nullptr; });
    fails_with([](vibrator_co& c) { c.sample_set = nullptr; });
    fails_with([](vibrator_co& c) { c.capture = nullptr; });
    co = whole_co;
    co.start_with_level = nullptr;
    EXPECT_EQ(vibr_measure(&result, 1), 0);
    EXPECT_NE(vibrator_start(), 0);
}

TEST_F(Vibration, TheSwingIsTheLargestWayBetweenTurningPoints)
{
    // From sample 10 on: turning points of x at 12 (30), 15 (-20.5), 17 (10), then level. The ways: 0 to 30,
    // 30 to -20.5 (50 in whole steps), 30.5. A flat peak is none, nor is a slope. y: the first way begins at
    // the first sample analysed. z: the last sample that can be one.
    const float x[] = {0, 15, 30, 10, -10, -20.5F, 0, 10, 10};
    const float y[] = {200, 100, 0, 0, 1, 0};
    signal_of = [&](int i, int axis) -> float {
        const auto at = static_cast<std::size_t>(i - 10);
        if (i < 10)
            return axis == 0 ? 1000.0F * static_cast<float>(i % 2) : 200;
        if (axis == 0)
            return at < std::size(x) ? x[at] : 10;
        if (axis == 1)
            return at < std::size(y) ? y[at] : 0;
        return i < 264 ? static_cast<float>(i) : i == 264 ? 1000 : 0;
    };
    ASSERT_EQ(vibr_measure(&result, 1), 1);
    EXPECT_DOUBLE_EQ(result.amplitude[0], std::sqrt(50 / 200.0));
    EXPECT_DOUBLE_EQ(result.amplitude[1], std::sqrt(199 / 200.0)) << "from 200 to the peak of 1";
    EXPECT_DOUBLE_EQ(result.amplitude[2], std::sqrt(990 / 200.0))
        << "from 10 to the last sample that can be a peak";
}

TEST_F(Vibration, TheMainAxisIsThatOfTheLargestSwing)
{
    struct row {
        float swing[3];
        double bin;
    };
    // Each axis has a square wave of a tone of its own: bins 8, 16 and 32.
    const row rows[] = {{{90, 50, 20}, 8},  {{50, 90, 20}, 16}, {{20, 50, 90}, 32},
                        {{90, 90, 20}, 16}, {{90, 20, 90}, 32}, {{20, 90, 90}, 32}};
    for (const row& r : rows) {
        signal_of = [&](int i, int axis) -> float {
            if (axis == 3)
                return 0;
            const double phase = std::fmod(i * (8 << axis) / 256.0, 1.0);
            const double triangle = phase < 0.5 ? 4 * phase - 1 : 3 - 4 * phase;
            return static_cast<float>(triangle) * r.swing[axis] / 2;
        };
        ASSERT_EQ(vibr_measure(&result, 1), 1);
        EXPECT_NEAR(bin(), r.bin, 1e-9);
    }
}

TEST_F(Vibration, OfTwoPeaksTheStrongOneCountsAndOfTwoCloseOnesThatWhichIsPreferred)
{
    struct row {
        double low, high; // heights at bins 20 and 60
        std::uint32_t prefer_higher;
        double bin;
    };
    // clang-format off
    const row rows[] = {
        {100, 60, 1, 20}, {100, 60, 0, 20}, {60, 100, 1, 60}, {60, 100, 0, 60}, // one stands clear
        {100, 80, 1, 60}, {100, 80, 0, 20}, {80, 100, 1, 60}, {80, 100, 0, 20}, // close: the one preferred
    };
    // clang-format on
    for (const row& r : rows) {
        cfg.prefer_higher = r.prefer_higher;
        signal_of = [&](int i, int axis) -> float {
            return axis != 0 ? 0
                             : tone(20, i, 256, for_slope(r.low, 20, 256)) +
                                   tone(60, i, 256, for_slope(r.high, 60, 256));
        };
        ASSERT_EQ(vibr_measure(&result, 1), 1);
        EXPECT_NEAR(bin(), r.bin, 1e-9) << r.low << " " << r.high << " " << r.prefer_higher;
    }
    // Bin 20 of 256 samples of 500 us: (20 + 1) * 1000000 / 256 / 500
    EXPECT_DOUBLE_EQ(result.frequency, 21 * 1000000.0 / 256 / 500);
    signal_of = [](int, int) { return 5.0F; };
    ASSERT_EQ(vibr_measure(&result, 1), 1);
    EXPECT_EQ(result.frequency, 0) << "a motor that doesn't move has no frequency";
}

TEST_F(Vibration, TheDataFileHasSixColumnsAndNothingOfAnEarlierMeasurement)
{
    cfg = {7, 1, 500, 200, 10}; // no power of two
    const auto calm = [](int i, int axis) {
        return axis == 3 ? static_cast<float>(i) : tone(25, i, 200, 50);
    };
    signal_of = calm;
    ASSERT_EQ(vibr_measure(&result, 1), 1);
    const std::string first = data();
    std::istringstream lines(first);
    int count = 0;
    for (std::string line; std::getline(lines, line); count++) {
        int number;
        double x, y, z, fourth, height;
        ASSERT_EQ(std::sscanf(line.c_str(), "%d   %lf   %lf   %lf   %lf   %lf", &number, &x, &y, &z, &fourth,
                              &height),
                  6);
        EXPECT_EQ(number, count + 1);
        if (count < 199) { // behind the last one nothing was captured
            EXPECT_NEAR(x, tone(25, count + 11, 200, 50) - tone(25, count + 10, 200, 50), 1e-4)
                << "the derivative";
        }
        EXPECT_EQ(fourth, count + 10) << "as it was captured";
        EXPECT_GE(height, 0);
    }
    EXPECT_EQ(count, 200);
    signal_of = [](int i, int) { return static_cast<float>(i * i % 977); };
    ASSERT_EQ(vibr_measure(&result, 1), 1);
    EXPECT_NE(data(), first);
    signal_of = calm;
    ASSERT_EQ(vibr_measure(&result, 1), 1);
    EXPECT_EQ(data(), first);
    data_opens = false;
    EXPECT_EQ(vibr_measure(&result, 1), 0);
}

} // namespace
