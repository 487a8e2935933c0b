// The SIM: whether a card is there, and the test of its contacts. A driver does the work (sim_co_attach).
// Operations give 0 on success; 2 is a test, or an operation, that the driver doesn't have; anything else is
// a failure.
#pragma once

#include <cstdint>

constexpr int SIM_OK = 0;
constexpr int SIM_FAILED = 1;
constexpr int SIM_NO_SUCH_TEST = 2;

struct sim_co {
    int (*detect)(std::uint8_t* p_present);
    int (*ct)(std::uint8_t kind, std::uint8_t* p_result);
};

void sim_init();
void sim_co_attach(const sim_co* p_co);

// Where cards are: the low four bits for slot 1, the high four for slot 2.
int sim_detect(std::uint8_t* p_present);

// Runs a test of the contacts, which may take seconds; `kind` is 0 to 2, plus 16 times the slot where one is
// meant. The result is 0 for good contacts.
int sim_ct(std::uint8_t kind, std::uint8_t* p_result);
