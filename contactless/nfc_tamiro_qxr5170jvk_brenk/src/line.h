// The chip's lines: the serial line, the control device and the pins. A line that isn't open fails; it never
// stands for another descriptor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

namespace qxr5170jvk {

// Line speeds, by the numbers of `nfcb`.
constexpr std::uint32_t RATE_460800 = 0;
constexpr std::uint32_t RATE_115200 = 1;
constexpr std::uint32_t RATE_230400 = 2;

// The chip's own code of a rate; 0 for a rate that it doesn't have.
std::uint8_t baud_code(std::uint32_t rate);

// Opens the serial line, what is open before being closed. False if that fails.
bool Tamiro_open();
void Tamiro_close();

// What there is, at most `len` bytes; 0 or less for none. What came is told on standard output.
ssize_t Tamiro_read(std::uint8_t* buf, std::size_t len);
bool Tamiro_write(const std::uint8_t* buf, std::size_t len);

// Raw bytes at the speed of `rate`, readings that never block.
bool Tamiro_msmbaudrate(std::uint32_t rate);

// Each is one request to the control device: false if it can't be made.
bool Tamiro_set_cen(bool on);
bool Tamiro_set_pon(bool on);
bool Tamiro_set_tvdd(bool on);
bool Tamiro_set_hsel(bool hci);

bool Tamiro_set_sim(bool on);

// Holds the SIM's supply check open for `wait_us` and looks at it. False if a request fails.
bool Tamiro_check_sim_supply(std::uint32_t wait_us, int* p_result);

} // namespace qxr5170jvk
