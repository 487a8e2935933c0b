// Loads new firmware into the PN65, in a thread of its own beside the console. The firmware comes from a
// closed library that the setting nfc_pn65_fw_dnld_path of module nfc_pn65_fw_dnld names; without it a
// download fails at once. Has its own way to the chip and shares nothing with the driver of its normal
// operation: who uses the chip during a download breaks the attempt.
#pragma once

#include <cstdint>

void nfc_pn65_fw_dnld_init(); // tier entry

// The state, `*p_status`: the number of the attempt times 8, and one of these.
constexpr std::uint32_t NFC_DNLD_IDLE = 0;
constexpr std::uint32_t NFC_DNLD_RUNNING = 1;
constexpr std::uint32_t NFC_DNLD_FAILED = 2;
constexpr std::uint32_t NFC_DNLD_DONE = 3;

// A gap of 0 tells the state and gives 0. Any other starts a download that leaves so many microseconds before
// each frame: 0, or 1 when one is under way or no thread can be had.
int nfc_pn65_fw_dnld(std::uint32_t gap_us, std::uint32_t* p_status);
