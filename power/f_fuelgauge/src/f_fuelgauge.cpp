#include "f_fuelgauge/f_fuelgauge.h"

#include <iterator>

#include "dcp/dcp.h"
#include "fuelgauge/fuelgauge.h"

namespace {

constexpr int MOST_VALUES = 4;

constexpr std::uint32_t FLASH_CAL = 0;
constexpr std::uint32_t FLASH_FIRMWARE = 1;
constexpr std::uint32_t CUSTOM_WRITE = 0;
constexpr std::uint32_t CUSTOM_READ = 1;
constexpr std::uint32_t CALIBRATE_JUDGED = 1;

// Each takes the values behind the function number, and gives a result of the fuel gauge.
int fgct_voltage(int argc, const dcp_word*, int* p_val)
{
    return argc == 0 ? fuelgauge_read_voltage(p_val) : FUELGAUGE_BAD_REQUEST;
}

int fgct_current(int argc, const dcp_word*, int* p_val)
{
    return argc == 0 ? fuelgauge_read_current(p_val) : FUELGAUGE_BAD_REQUEST;
}

int fgct_flash(int argc, const dcp_word* argv, int*)
{
    if (argc != 1 && argc != 2)
        return FUELGAUGE_BAD_REQUEST;
    const std::uintptr_t path = argc == 2 ? argv[1] : 0;
    switch (dcp_uint(argv[0])) {
    case FLASH_CAL:
        return fuelgauge_flash_cal(path);
    case FLASH_FIRMWARE:
        return fuelgauge_flash_firmware(path);
    default:
        return FUELGAUGE_BAD_REQUEST;
    }
}

int fgct_custom(int argc, const dcp_word* argv, int* p_val)
{
    if (argc == 3 && dcp_uint(argv[0]) == CUSTOM_WRITE)
        return fuelgauge_write_custom(dcp_uint(argv[1]), dcp_uint(argv[2]));
    if (argc == 2 && dcp_uint(argv[0]) == CUSTOM_READ)
        return fuelgauge_read_custom(dcp_uint(argv[1]), p_val);
    return FUELGAUGE_BAD_REQUEST;
}

int fgct_init_capacity(int argc, const dcp_word*, int*)
{
    return argc == 0 ? fuelgauge_init_capacity() : FUELGAUGE_BAD_REQUEST;
}

int fgct_capacity(int argc, const dcp_word*, int* p_val)
{
    return argc == 0 ? fuelgauge_read_capacity(p_val) : FUELGAUGE_BAD_REQUEST;
}

int fgct_calibrate(int argc, const dcp_word*, int*)
{
    return argc == 0 ? fuelgauge_calibrate() : FUELGAUGE_BAD_REQUEST;
}

int answer(int id, int result, int value)
{
    if (result == FUELGAUGE_VALUE) {
        dcp_printf(id, "fgct", " %d", value);
        return DCP_OK;
    }
    dcp_printf(id, "fgct", " ");
    switch (result) {
    case FUELGAUGE_DONE:
        return DCP_OK;
    case FUELGAUGE_BAD_REQUEST:
        return DCP_SYNTAX;
    case FUELGAUGE_MISSING:
        return DCP_NOT_FOUND;
    default:
        return DCP_ERROR;
    }
}

// The calibration whose failure is a verdict and no error.
int answer_judged(int id, int result)
{
    if (result == FUELGAUGE_BAD_REQUEST || result == FUELGAUGE_MISSING)
        return answer(id, result, 0);
    dcp_printf(id, "fgct", "%d", result == FUELGAUGE_FAILED ? 0 : 1);
    return DCP_OK;
}

using fgct_fn = int (*)(int argc, const dcp_word* argv, int* p_val);

constexpr std::uint32_t CALIBRATE = 7;

// By function number, from 1.
constexpr fgct_fn fgct_functions[] = {
    fgct_voltage, fgct_current, fgct_flash, fgct_custom, fgct_init_capacity, fgct_capacity, fgct_calibrate,
};

constexpr const char* fgct_help[] = {
    "Fuelgauge test",
    "FGCT=1 - Read battery voltage",
    "FGCT=2 - Read battery current",
    "FGCT=3,<options>,<path> - Flash cal data and firmware",
    "FGCT=4,0,<reg>,<data> - Custom write",
    "FGCT=4,1,<reg> - Custom read",
    "FGCT=5 - Initialize fg component for battery capacity",
    "FGCT=6 - Read battery capacity from component",
    "FGCT=7 - Calibrate fuelgauge block",
};

int do_fgct(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET) {
        for (const char* line : fgct_help)
            dcp_printf(id, "fgct", "%s", line);
        return DCP_OK;
    }
    if (argc < 1 || argc > MOST_VALUES)
        return DCP_SYNTAX;
    const std::uint32_t function = dcp_uint(argv[0]);
    if (function == CALIBRATE && argc == 2 && dcp_uint(argv[1]) == CALIBRATE_JUDGED)
        return answer_judged(id, fuelgauge_calibrate());
    if (function < 1 || function > std::size(fgct_functions))
        return answer(id, FUELGAUGE_BAD_REQUEST, 0);
    int value = 0;
    const int result = fgct_functions[function - 1](argc - 1, argv + 1, &value);
    return answer(id, result, value);
}

// clang-format off
constexpr dcp_cmd f_fuelgauge_cmd_tab[] = {
    { "fgct", "(0-4)[,(0-1)[,(0x0000-0xFFFF)]]", "%v,%v,%v", "fgct()", do_fgct, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_fuelgauge_link;

} // namespace

void f_fuelgauge_init()
{
    dcp_cmd_add(f_fuelgauge_cmd_tab, &f_fuelgauge_link);
}
