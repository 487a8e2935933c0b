// The compass. A driver does the work (compass_co_attach), and must be there before the first call; what it
// lacks gives 0. A reading is x, y, z in steps of the chip, corrected by its sensitivities.
#pragma once

#include <cstdint>

using compass_reading = std::int16_t[3];

// In all three of a self test's reading: an interrupt line that doesn't behave, a measurement that didn't
// arrive.
constexpr std::int16_t COMPASS_BAD_LINE = 32766;
constexpr std::int16_t COMPASS_NO_DATA = 32767;

struct compass_co {
    void (*start)();
    void (*stop)();
    int (*get)(compass_reading reading);
    int (*selftest)(compass_reading reading);
    float (*get_temp)();
};

void compass_init();
void compass_co_attach(const compass_co* p_co);

// Starts the chip; nothing says whether that was done but the readings.
void compass_start();
void compass_stop();

// Measures once: 1, or 0 when no reading came.
int compass_get(compass_reading reading);

// Measures the chip's own coil: 1 when all is within its limits, else 0. The reading may be one of the
// markers; it is 0, 0, 0 when not started.
int compass_selftest(compass_reading reading);

float compass_get_temp();
