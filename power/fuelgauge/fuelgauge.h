// The fuel gauge: the battery's voltage and current once more, and what a gauge chip of its own would offer.
// Drivers supply the operations, slot by slot; on a phone without such a chip most slots stay empty. Not for
// capacity estimates, which are `battery`'s.
#pragma once

#include <cstdint>

// Results.
constexpr int FUELGAUGE_DONE = 0;  // done, nothing to tell
constexpr int FUELGAUGE_VALUE = 1; // done, the value tells
constexpr int FUELGAUGE_BAD_REQUEST = 2;
constexpr int FUELGAUGE_FAILED = 3;
constexpr int FUELGAUGE_MISSING = 4; // no driver has the operation

struct fg_co {
    int (*read_voltage)(int* p_mv);
    int (*read_current)(int* p_ma);
    int (*flash_cal)(std::uintptr_t path);
    int (*flash_firmware)(std::uintptr_t path);
    int (*write_custom)(std::uint32_t reg, std::uint32_t data);
    int (*read_custom)(std::uint32_t reg, int* p_val);
    int (*init_capacity)();
    int (*read_capacity)(int* p_percent);
    int (*calibrate)();
};

// Empties all slots.
void fuelgauge_init();

// Takes over the slots that aren't null. Only during start-up.
void fuelgauge_cmd_co_attach(const fg_co* p_co);

int fuelgauge_read_voltage(int* p_mv);
int fuelgauge_read_current(int* p_ma); // negative while the battery gives off current

// `path` is what the requester has for the file, 0 for the driver's own.
int fuelgauge_flash_cal(std::uintptr_t path);
int fuelgauge_flash_firmware(std::uintptr_t path);

int fuelgauge_write_custom(std::uint32_t reg, std::uint32_t data);
int fuelgauge_read_custom(std::uint32_t reg, int* p_val);
int fuelgauge_init_capacity();
int fuelgauge_read_capacity(int* p_percent);
int fuelgauge_calibrate();
