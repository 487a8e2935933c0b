// The PN65's operations for stations, beside those that switch it on and off (nfc_pn65.cpp). Results are
// those of nfc.h.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frames.h"
#include "link.h"

namespace pn65 {

// Sends a row of the table, its pipe exchanged unless `pipe` is 0.
bool send_row(int row, unsigned pipe, answer& a);
bool send_frame(const frame& f, answer& a);

// One register.
bool write_register(std::uint32_t reg, std::uint32_t value);
bool read_register(std::uint32_t reg, std::uint8_t* p_value);

int nfc_pn65_selftest(const std::uint8_t* in, std::size_t count, std::uint8_t* out, std::uint8_t* p_outlen);
int nfc_pn65_detect_tag(int* p_result);
int nfc_pn65_swptest(int* p_result);
int nfc_pn65_polling(std::uint32_t mode, std::uint64_t microseconds, int* p_result);

} // namespace pn65
