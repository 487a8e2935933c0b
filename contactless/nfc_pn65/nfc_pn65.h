// The driver of the PN65, the first contactless chip (chip number 1 of nfc.h): fixed sequences of frames over
// I2C, each sent and answered in the caller's thread. It is no stack: it judges of an answer what a test
// needs and nothing else. The download of the chip's firmware goes another way (nfc_pn65_fw_dnld.h).
#pragma once

#include <array>
#include <cstdint>

void nfc_pn65_init(); // tier entry

// What the start writes to four of the chip's registers, in the order of the start.
using nfc_pn65_cfg = std::array<std::uint8_t, 4>;

void nfc_pn65_conf(const nfc_pn65_cfg& cfg);
