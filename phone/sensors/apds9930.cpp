// APDS-9930, light and proximity. A message begins with a command byte: bit 7 set, bits 6 and 5 the kind, the
// rest the register. Addresses and reset values from the data sheet's register map.
#include "board/chips.h"

namespace phone {

namespace {

constexpr std::uint8_t command_bit = 0x80;
constexpr std::uint8_t kind_mask = 0x60;
constexpr std::uint8_t kind_increment = 0x20;
constexpr std::uint8_t kind_special = 0x60;
constexpr std::uint8_t register_mask = 0x1F;

// A special function clears interrupts and moves no pointer. Without bit 7 the byte isn't a command.
bool command(chip& c, std::uint8_t byte)
{
    if ((byte & command_bit) == 0 || (byte & kind_mask) == kind_special)
        return false;
    c.pointer = byte & register_mask;
    c.step = (byte & kind_mask) == kind_increment ? 1 : 0;
    return true;
}

// clang-format off
constexpr reg_row regs[] = {
    // addr  reset  writable  on access
    { 0x00,  0x00,  0x7F },   // enable
    { 0x01,  0xFF,  0xFF },   // light integration time
    { 0x02,  0xFF,  0xFF },   // proximity time
    { 0x03,  0xFF,  0xFF },   // wait time
    { 0x04,  0x00,  0xFF },   // light threshold, low
    { 0x05,  0x00,  0xFF },
    { 0x06,  0x00,  0xFF },   // light threshold, high
    { 0x07,  0x00,  0xFF },
    { 0x08,  0x00,  0xFF },   // proximity threshold, low
    { 0x09,  0x00,  0xFF },
    { 0x0A,  0x00,  0xFF },   // proximity threshold, high
    { 0x0B,  0x00,  0xFF },
    { 0x0C,  0x00,  0xFF },   // persistence
    { 0x0D,  0x00,  0x07 },   // configuration
    { 0x0E,  0x00,  0xFF },   // proximity pulses
    { 0x0F,  0x00,  0xFF },   // gains and drive
    { 0x10,  0x00,  0x00 },   // reserved
    { 0x11,  0x00,  0x00 },   // reserved
    { 0x12,  0x39,  0x00 },   // who it is
    { 0x13,  0x00,  0x00 },   // status
    { 0x14,  0x5A,  0x00 },   // channel 0
    { 0x15,  0x01,  0x00 },
    { 0x16,  0x3C,  0x00 },   // channel 1
    { 0x17,  0x00,  0x00 },
    { 0x18,  0x2E,  0x00 },   // proximity
    { 0x19,  0x00,  0x00 },
    { 0x1A,  0x00,  0x00 },   // reserved
    { 0x1B,  0x00,  0x00 },   // reserved
    { 0x1C,  0x00,  0x00 },   // reserved
    { 0x1D,  0x00,  0x00 },   // reserved
    { 0x1E,  0x00,  0xFF },   // proximity offset
};
// clang-format on

} // namespace

constinit const chip_model apds9930 = {
    .name = "apds9930", .bus = 5, .addr = 0x39, .regs = regs, .command = command};

} // namespace phone
