// The ambient light sensor. A driver does the work (als_co_attach), and must be there before the first call;
// what it lacks gives 0.
#pragma once

#include <cstdint>

constexpr std::uint32_t ALS_MOST_GAIN = 5;

struct als_co {
    int (*start)();
    int (*stop)();
    std::uint32_t (*get)(std::uint32_t time_ms);
    int (*get_resistor)();
    int (*set_resistor)(std::uint32_t kind, std::uint32_t gain, std::uint32_t unused);
};

void als_init();
void als_co_attach(const als_co* p_co);

// Each gives 1, or something else on failure.
int als_start();
int als_stop();

// Sets gain 0 to ALS_MOST_GAIN of the part that `kind` names; 1 on success.
int als_set_resistor(std::uint32_t kind, std::uint32_t gain, std::uint32_t unused);
int als_get_resistor();

// Counts of the chip; 0 when not started.
std::uint32_t als_get(std::uint32_t time_ms);
