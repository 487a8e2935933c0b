// The vibration motor, and the measurement of it: the motor runs, a driver captures acceleration, and the
// swing of each axis and the frequency come out. A driver does the work (vibrator_co_attach) and must be
// there before the first call; without its capture entries or without a configuration (vibr_measure_set_cfg)
// a measurement runs the motor and fails. vibr_test measures on a thread of its own; all else here is the
// caller's.
#pragma once

#include <cstdint>

constexpr int VIBRATOR_DEFAULT_LEVEL = -1;

struct vibrator_co {
    int (*start)();
    int (*stop)();
    int (*start_with_level)(int number, int level);
    int (*sample_size)(); // bytes of a sample in the buffer
    float (*sample_get)(const void* p_buf, int index, int axis);
    void (*sample_set)(void* p_buf, int index, int axis, float value);
    int (*capture)(int count, std::uint32_t sample_period, std::uint32_t mode, void* p_buf); // 0 on failure
};

void vibrator_init();
void vibrator_co_attach(const vibrator_co* p_co);

// Each gives 0, or something else on failure or without such a driver.
int vibrator_start();
int vibrator_stop();
int vibrator_start_with_level(int number, int level);

struct vibm_cfg {
    std::uint32_t mode;
    std::uint32_t prefer_higher; // of two peaks that are close: 1 takes the higher frequency, 0 the lower
    std::uint32_t sample_period; // us
    std::uint32_t samples;       // to analyse, at least VIBM_LEAST_SAMPLES
    std::uint32_t skip;          // before them, at least 1; both together stay below VIBM_SAMPLES
};

constexpr std::uint32_t VIBM_SAMPLES = 1501;
constexpr std::uint32_t VIBM_LEAST_SAMPLES = 150;

void vibr_measure_set_cfg(const vibm_cfg* p_cfg);

struct vibr_result {
    double amplitude[3];
    double frequency; // Hz
};

// Makes and frees the buffers: 1, or 0 when there is no memory.
int vibr_measure_init();
void vibr_measure_exit();

// One measurement, between init and exit. With level 0 the motor is left as it is. 1, or 0 on failure, with
// nothing defined in `p_result`.
int vibr_measure(vibr_result* p_result, int level);

// Modes of vibr_test.
constexpr int VIBR_STOP = 0;
constexpr int VIBR_REPEAT = 1;
constexpr int VIBR_ONCE = 2;

// Tells of a measurement: "v=..., freq=..." or that it failed, with a line end. Called on the test's thread.
using vibr_report_fn = void (*)(const char* text);

// Starts a test on its thread, or stops the repeating one and waits for its last report. 0; 1 when a test is
// still at work, for a thread that can't be made, or with nothing to stop.
int vibr_test(int mode, int level, vibr_report_fn report);

// The last measurement that succeeded; zeros before the first.
vibr_result vibr_last_result();
