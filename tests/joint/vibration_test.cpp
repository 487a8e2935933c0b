// The measurement of the vibration motor, whole: this product has no driver that captures, so the test brings
// one, which reads the accelerometer's queue as fast as it fills.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <string>
#include <vector>

#include "attr/attr.h"
#include "cfg/cfg.h"
#include "core/core.h"
#include "i2c/i2c.h"
#include "joint/joint.h"
#include "phone/clock_once.h"
#include "runner/file_text.h"
#include "tmr/tmr.h"
#include "vibrator/vibrator.h"

namespace {

using sample = std::array<float, 4>; // milli-g, and a number

constexpr i2c_cfg_row chips[] = {{"bmi055-aclm", 5, 0x18}, {"", 0, 0}};

int motor_level(int, int level)
{
    return attr_write("/sys/hvt/hvt-vib/vib", std::to_string(level).c_str());
}

int motor_stop()
{
    return attr_write("/sys/hvt/hvt-vib/vib", "0");
}

float sample_get(const void* p_buf, int index, int axis)
{
    return static_cast<const sample*>(p_buf)[index][static_cast<std::size_t>(axis)];
}

void sample_set(void* p_buf, int index, int axis, float value)
{
    static_cast<sample*>(p_buf)[index][static_cast<std::size_t>(axis)] = value;
}

// 1024 steps of 1000 milli-g, twelve bits in the upper part of sixteen.
float milli_g(const std::uint8_t* p)
{
    const int steps = static_cast<std::int16_t>(p[0] | p[1] << 8) / 16;
    return static_cast<float>(steps) / 1.024F;
}

int capture(int count, std::uint32_t, std::uint32_t, void* p_buf)
{
    constexpr std::uint8_t queue = 0x3F;
    i2c_handle hnd;
    if (i2c_open(&hnd, "bmi055-aclm", 0, 0) < 0)
        return 0;
    i2c_write_reg8(&hnd, 0x10, 0x0F); // 1000 Hz, a frame in 0.5 ms
    i2c_write_reg8(&hnd, 0x3E, 0x40);
    i2c_write(&hnd, &queue, 1);
    for (int i = 0; i < count;) {
        std::uint8_t bytes[6] = {};
        i2c_read(&hnd, bytes, sizeof bytes);
        if (bytes[4] == 0 && bytes[5] == 0) // z has the phone's weight
            continue;
        static_cast<sample*>(p_buf)[i] = {milli_g(bytes), milli_g(bytes + 2), milli_g(bytes + 4),
                                          static_cast<float>(i)};
        i++;
    }
    i2c_close(&hnd);
    return 1;
}

constexpr vibrator_co driver = {
    nullptr,    motor_stop, motor_level, [] { return static_cast<int>(sizeof(sample)); },
    sample_get, sample_set, capture};

// 400 samples are 200 ms: five time constants of the motor.
constexpr vibm_cfg measurement = {
    .mode = 0, .prefer_higher = 0, .sample_period = 500, .samples = 1024, .skip = 400};

std::vector<std::string> reports;
std::atomic<int> report_count;

struct VibrationJoint : Joint {
    static void SetUpTestSuite()
    {
        Joint::SetUpTestSuite();
        ask("tremble off");
        tmr_init();
        core_init(); // for what the loop is to do; none runs
        cfg_init();
        i2c_cfg(chips);
        vibrator_co_attach(&driver);
        vibr_measure_set_cfg(&measurement);
    }
    static void TearDownTestSuite()
    {
        // A next start joins the last thread, since no loop does.
        run_fast();
        if (vibr_test(VIBR_REPEAT, 0, report) == 0)
            vibr_test(VIBR_STOP, 0, nullptr);
        Joint::TearDownTestSuite();
    }

    void SetUp() override
    {
        reports.clear();
        report_count = 0;
    }
    void TearDown() override
    {
        ask("clock hold");
        ask("speed 1");
    }

    static void run_fast()
    {
        ask("speed 1000");
        ask("clock run");
    }
    static void report(const char* text)
    {
        reports.emplace_back(text);
        report_count++;
    }
};

// The motor turns at mV * 7 / 120 Hz and shakes by 900, 620 and 140 mg at 175 Hz, with the square of the
// frequency at others; the accelerometer's filter of 1000 Hz divides that by 1 + (f / 1000)^2. From one
// turning point to the next it is twice that, seen at 2000 samples a second.
double expected_amplitude(double mg, double hz)
{
    const double peak = mg * std::pow(hz / 175, 2) / (1 + std::pow(hz / 1000, 2));
    return std::sqrt(2 * peak / 200);
}

TEST_F(VibrationJoint, FindsTheMotorsFrequencyAndAmplitudes)
{
    struct row {
        int mv;
        double hz;
        int bin; // of 2000 / 1024 Hz, the nearest
    };
    for (const row& r : {row{3000, 175, 90}, row{2000, 700 / 6.0, 60}}) {
        vibr_result result = {};
        int measured = 0;
        ASSERT_EQ(vibr_measure_init(), 1);
        EXPECT_EQ(step_until_done([&] { measured = vibr_measure(&result, r.mv); }), 10 + 712);
        vibr_measure_exit();
        ASSERT_EQ(measured, 1);
        EXPECT_DOUBLE_EQ(result.frequency, (r.bin + 1) * 1000000.0 / 1024 / 500);
        const double mg[3] = {900, 620, 140};
        for (int axis = 0; axis < 3; axis++)
            EXPECT_NEAR(result.amplitude[axis], expected_amplitude(mg[axis], r.hz), 0.02)
                << r.mv << " " << axis;
        EXPECT_EQ(file_text(dir + "/root/sys/hvt/hvt-vib/vib"), "0");
    }
}

TEST_F(VibrationJoint, ReportsAndKeepsEachMeasurementUntilItIsStopped)
{
    run_fast();
    ASSERT_EQ(vibr_test(VIBR_REPEAT, 3000, report), 0);
    struct sigaction action = {};
    sigaction(SIGQUIT, nullptr, &action);
    EXPECT_NE(action.sa_handler, SIG_DFL);
    EXPECT_EQ(vibr_test(VIBR_ONCE, 3000, report), 1) << "one at a time";
    while (report_count < 3)
        tmr_msleep(100);
    EXPECT_EQ(vibr_test(VIBR_STOP, 0, nullptr), 0);
    EXPECT_EQ(vibr_test(VIBR_STOP, 0, nullptr), 1);
    sigaction(SIGQUIT, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
    std::string kept;
    for (const std::string& text : reports) {
        EXPECT_TRUE(text.starts_with("v=3000, freq=")) << text;
        kept += text.size() <= 99 ? text : "";
    }
    EXPECT_EQ(file_text(dir + "/root/system/hvtdebug/vibt_result.txt"), kept);
    const vibr_result last = vibr_last_result();
    char text[256];
    std::snprintf(text, sizeof text, "v=3000, freq=%.6f, amplX=%1.6f, amplY=%1.6f, amplZ=%1.6f\n",
                  last.frequency, last.amplitude[0], last.amplitude[1], last.amplitude[2]);
    EXPECT_EQ(reports.back(), text);
}

TEST_F(VibrationJoint, AStopRightBehindTheStartIsNotLost)
{
    run_fast();
    for (int turn = 0; turn < 50; turn++) {
        ASSERT_EQ(vibr_test(VIBR_REPEAT, 3000, report), 0);
        ASSERT_EQ(vibr_test(VIBR_STOP, 0, nullptr), 0);
    }
    EXPECT_LE(report_count, 50);
}

TEST_F(VibrationJoint, OneThatHasReportedMakesRoomForTheNext)
{
    run_fast();
    for (int turn = 1; turn <= 10; turn++) {
        ASSERT_EQ(vibr_test(VIBR_ONCE, 3000, report), 0) << turn;
        while (report_count < turn)
            tmr_msleep(100);
    }
    EXPECT_EQ(vibr_test(VIBR_STOP, 0, nullptr), 1) << "that is for repeating ones";
}

} // namespace
