// MN88552, the broadcast demodulator: three register files at three addresses of bus 4.
#include "board/chips.h"
#include "board/file_chip.h"

namespace phone {

namespace {

// clang-format off
constexpr reg_row known_tuner[] = {
    // addr  reset  writable
    { 0x01,  0x52,  0x00 },   // chip id
};

constexpr reg_row known_wide[] = {
    { 0x01,  0x53,  0x00 },
};

constexpr reg_row known_narrow[] = {
    { 0x01,  0x54,  0x00 },
};
// clang-format on

constexpr auto tuner = whole_file(known_tuner);
constexpr auto wide = whole_file(known_wide);
constexpr auto narrow = whole_file(known_narrow);

} // namespace

constinit const chip_model mn88552_tuner = {
    .name = "mn88552 tuner control", .bus = 4, .addr = 0x68, .regs = tuner};
constinit const chip_model mn88552_wide = {.name = "mn88552 wide path", .bus = 4, .addr = 0x69, .regs = wide};
constinit const chip_model mn88552_narrow = {
    .name = "mn88552 narrow path", .bus = 4, .addr = 0x6A, .regs = narrow};

} // namespace phone
