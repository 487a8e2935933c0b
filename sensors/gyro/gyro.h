// The gyroscope. A driver does the work (gyro_co_attach), and must be there before the first call; what it
// lacks gives 0. Vectors are x, y, z in degrees a second.
#pragma once

using gyro_rate = double[3];
using gyro_offset = float[3];

constexpr int GYRO_NOT_STARTED = 255; // of gyro_self_test

struct gyro_co {
    int (*store_offset)();
    int (*offset_calibration)(const gyro_offset wanted);
    void (*start)();
    void (*stop)();
    int (*chip_id)();
    int (*get)(gyro_rate rate);
    int (*get_offset)(gyro_offset offset);
    int (*self_test)(int* p_result);
    float (*get_temp)();
    int (*calc_rms)();
    int (*rw_temp_ta)(float* p_degrees);
    int (*init_ta)();
    int (*get_calibrated)(gyro_rate rate);
    int (*backup)(int* p_result);
};

void gyro_init();
void gyro_co_attach(const gyro_co* p_co);

void gyro_start();
void gyro_stop();

// Unless told, each gives 1, or 0 on failure.
int gyro_get(gyro_rate rate);
int gyro_get_calibrated(gyro_rate rate);
int gyro_get_offset(gyro_offset offset);

// Keeps the wanted correction for the next start.
int gyro_offset_calibration(const gyro_offset wanted);

// `*p_result`: a bit for each part that failed, or GYRO_NOT_STARTED.
int gyro_self_test(int* p_result);

int gyro_chip_id();    // 0 when not started
float gyro_get_temp(); // degrees; 0 when not started

// Reads the temperature that is kept, for the largest float in `*p_degrees`; else keeps that.
int gyro_rw_temp_ta(float* p_degrees);
int gyro_init_ta();

// Copies the chip's memory into its unit; `*p_result` is 1 when the memory was read.
int gyro_backup(int* p_result);
