// The modem's processor as far as a station has to do with it: waiting until it is up, resetting it, its
// antenna switch, its fuses and its number. A driver does the work (modem_co_attach). Not the channel of
// packets to it: that is ftm_linux. All operations give 1 on success, and 0 on failure or where the driver
// has no such operation.
#pragma once

#include <cstddef>
#include <cstdint>

// What modem_boot is to do; anything else counts as MODEM_WAIT.
constexpr std::uint32_t MODEM_WAIT = 0;
constexpr std::uint32_t MODEM_KICKSTART = 1;
constexpr std::uint32_t MODEM_OUT_OF_RESET = 2;

struct modem_co {
    int (*boot)(std::uint32_t mode);
    int (*reset)(std::uint32_t value);
    int (*switch_get)(std::uint32_t* p_value);
    int (*switch_set)(std::uint32_t value);
    int (*fuse)(const std::uint8_t* p_data, std::size_t size);
    int (*id)(std::uint32_t* p_value);
};

void modem_init();
void modem_co_attach(const modem_co* p_co);

// Waits until the modem is up, up to 80 s, during which the caller is blocked.
int modem_boot(std::uint32_t mode);

int modem_reset(std::uint32_t value);
int modem_switch_get(std::uint32_t* p_value);
int modem_switch_set(std::uint32_t value);
int modem_fuse(const std::uint8_t* p_data, std::size_t size);
int modem_id(std::uint32_t* p_value);
