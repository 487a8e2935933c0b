// The hardware platform that the program runs on: set once by the board module, read by who depends on it.
#pragma once

#include <cstdint>

struct hwp {
    std::uint32_t family;
    std::uint32_t model;
    std::uint8_t rev;
};

// Puts the built-in default in force: family 0, model 0, revision 1.
void hwp_init();

// Makes the given platform current and gives the former one in `*p_old`.
void hwp_set(hwp* p_old, std::uint32_t family, std::uint32_t model, std::uint8_t rev);

void hwp_get(hwp* p_out);

// A family's name for people to read; empty for an unknown one.
const char* hwp_long_nm_get(std::uint32_t family);
