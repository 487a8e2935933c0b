// The proximity sensor. A driver does the work (prx_co_attach), and must be there before the first call; what
// it lacks gives 0.
#pragma once

#include <cstdint>

// Settings by number; a driver passes over those that it lacks.
constexpr int PRX_LOW_THRESHOLD = 5;
constexpr int PRX_HIGH_THRESHOLD = 6;
constexpr int PRX_PULSES = 7;
constexpr int PRX_GAIN = 8;  // 0 to 3
constexpr int PRX_DRIVE = 9; // 0 to 7, least last

struct prx_co {
    int (*reg_set)(int id, std::uint32_t value);
    int (*start)();
    int (*adc)(std::uint32_t* p_value);
    int (*digital)(std::uint32_t* p_value);
};

void prx_init();
void prx_co_attach(const prx_co* p_co);

// Each gives 1, or 0 on failure.
int prx_set_reg(int id, std::uint32_t value);
int prx_start();

// The reading, in counts.
int prx_adc(std::uint32_t* p_value);

// 1 when something is near; the reading as well, 0 if there is none.
int prx_digital(std::uint32_t* p_value);
