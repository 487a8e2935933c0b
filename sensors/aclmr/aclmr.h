// The accelerometer. A driver does the work (aclmr_co_attach), and must be there before the first call. What
// a driver lacks gives 0, the state of the ROM 255. Vectors are x, y, z in milli-g.
#pragma once

#include <cstddef>
#include <cstdint>

using aclmr_vector = float[3];

constexpr int ACLMR_NO_ROM_STATE = 255;
constexpr int ACLMR_NOT_STARTED = 255; // of aclmr_store_offset

// One sample as text: a time difference of 16 bits and three values, each with a comma.
constexpr std::size_t ACLMR_SAMPLE_TEXT = 25;

struct aclmr_co {
    int (*store_offset)();
    int (*offset_calibration)(const aclmr_vector vector);
    void (*start)();
    void (*stop)();
    int (*chip_id)();
    int (*get)(aclmr_vector vector);
    int (*get_samples)(int count, int mode, int bandwidth, char* text);
    int (*get_offset)(aclmr_vector vector);
    int (*get_rom_state)();
    int (*selftest)(aclmr_vector vector);
    int (*get_temp)();
    int (*nvm_backup)();
};

void aclmr_init();
void aclmr_co_attach(const aclmr_co* p_co);

// Starts the chip; nothing says whether that was done but the readings.
void aclmr_start();
void aclmr_stop();

// Unless told, each gives 1, or 0 on failure.
int aclmr_get(aclmr_vector vector);
int aclmr_get_offset(aclmr_vector vector);
int aclmr_selftest(aclmr_vector vector);

// Keeps the wanted offsets, in milli-g, for the next start.
int aclmr_offset_calibration(const aclmr_vector vector);

// Waits for `count` samples and writes them, "%d,%.0f,%.0f,%.0f," each: the time since the sample before in
// 100 us, x, y, z. `text` has room for ACLMR_SAMPLE_TEXT characters a sample and a NUL.
int aclmr_get_samples(int count, int mode, int bandwidth, char* text);

// The chip's self test: a bit for each part that failed, or ACLMR_NOT_STARTED.
int aclmr_store_offset();

int aclmr_chip_id();       // 0 when not started
int aclmr_get_rom_state(); // ACLMR_NO_ROM_STATE for none
int aclmr_get_temp();

// Copies the chip's memory into its unit.
std::uint16_t aclmr_nvm_backup();
