// SiI8334, the MHL transmitter: five register files at five addresses of bus 4.
#include "board/chips.h"
#include "board/file_chip.h"

namespace phone {

namespace {

// clang-format off
constexpr reg_row known_main[] = {
    // addr  reset  writable
    { 0x00,  0x01,  0x00 },   // vendor, low byte
    { 0x01,  0x00,  0x00 },   // vendor, high byte
    { 0x02,  0x34,  0x00 },   // device, low byte
    { 0x03,  0x83,  0x00 },   // device, high byte
    { 0x04,  0xB0,  0x00 },   // revision
};
// clang-format on

constexpr auto main_file = whole_file(known_main);
constexpr auto plain_file = whole_file({});

} // namespace

constinit const chip_model sii8334_main = {.name = "sii8334", .bus = 4, .addr = 0x39, .regs = main_file};
constinit const chip_model sii8334_page1 = {
    .name = "sii8334 page 1", .bus = 4, .addr = 0x3D, .regs = plain_file};
constinit const chip_model sii8334_page2 = {
    .name = "sii8334 page 2", .bus = 4, .addr = 0x49, .regs = plain_file};
constinit const chip_model sii8334_page3 = {
    .name = "sii8334 page 3", .bus = 4, .addr = 0x4D, .regs = plain_file};
constinit const chip_model sii8334_cbus = {
    .name = "sii8334 control bus", .bus = 4, .addr = 0x64, .regs = plain_file};

} // namespace phone
