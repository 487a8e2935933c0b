// AK8963, the compass. Addresses and reset values from the data sheet's register map; the three sensitivity
// values are this sample's.
#include "board/chips.h"

namespace phone {

namespace {

void soft_reset(chip& c, std::uint8_t written)
{
    if ((written & 0x01) != 0)
        chip_reset(c);
}

// clang-format off
constexpr reg_row regs[] = {
    // addr  reset  writable  on access
    { 0x00,  0x48,  0x00 },   // who it is
    { 0x01,  0x9A,  0x00 },   // information
    { 0x02,  0x00,  0x00 },   // status 1
    { 0x03,  0x00,  0x00 },   // x
    { 0x04,  0x00,  0x00 },   // x
    { 0x05,  0x00,  0x00 },   // y
    { 0x06,  0x00,  0x00 },   // y
    { 0x07,  0x00,  0x00 },   // z
    { 0x08,  0x00,  0x00 },   // z
    { 0x09,  0x00,  0x00 },   // status 2
    { 0x0A,  0x00,  0x1F },   // control 1: mode and width
    { 0x0B,  0x00,  0x00,     nullptr, soft_reset },   // control 2: soft reset
    { 0x0C,  0x00,  0x40 },   // self test
    { 0x0D,  0x00,  0x00 },   // shipping test
    { 0x0E,  0x00,  0x00 },   // shipping test
    { 0x0F,  0x00,  0xFF },   // bus disable
    { 0x10,  0xAC,  0x00 },   // sensitivity x
    { 0x11,  0xAE,  0x00 },   // sensitivity y
    { 0x12,  0xA3,  0x00 },   // sensitivity z
};
// clang-format on

} // namespace

constinit const chip_model ak8963 = {.name = "ak8963", .bus = 5, .addr = 0x0C, .regs = regs};

} // namespace phone
