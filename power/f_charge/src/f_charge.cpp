#include "f_charge/f_charge.h"

#include <cstdio>
#include <string>

#include "charge/charge.h"
#include "dcp/dcp.h"

namespace {

constexpr int MOST_VALUES = 3; // of vbcct and scct

int status_of(int result)
{
    return result != 0 ? DCP_OK : DCP_ERROR;
}

struct mode_row {
    std::uint32_t first;
    std::uint32_t second;
    int mode;
};

// clang-format off
constexpr mode_row ebct_modes[] = {
    { 1, 0, CHARGE_OFF            },
    { 1, 1, CHARGE_USB            },
    { 1, 2, CHARGE_MODE_5         },
    { 4, 1, CHARGE_HOST_POWER_ON  },
    { 4, 0, CHARGE_HOST_POWER_OFF },
};
// clang-format on
constexpr std::uint32_t EBCT_CURRENT = 2; // the second value is the battery current in mA

int ebct_one(std::uint32_t value)
{
    switch (value) {
    case 0:
        return status_of(charge_set_mode(CHARGE_MODE_3));
    case 3:
        return status_of(charge_set_mode(CHARGE_MODE_4));
    default:
        return DCP_ERROR;
    }
}

int ebct_two(std::uint32_t first, std::uint32_t second)
{
    if (first == EBCT_CURRENT)
        return status_of(charge_set_current(second, 0));
    int status = DCP_SYNTAX; // unless the first value is known
    for (const mode_row& row : ebct_modes) {
        if (row.first != first)
            continue;
        if (row.second == second)
            return status_of(charge_set_mode(row.mode));
        status = DCP_ERROR;
    }
    return status;
}

int do_ebct(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ebct", "VBUS charging command", DCP_OK);
    switch (argc) {
    case 1:
        return dcp_answer(id, "ebct", " ", ebct_one(dcp_uint(argv[0])));
    case 2:
        return dcp_answer(id, "ebct", " ", ebct_two(dcp_uint(argv[0]), dcp_uint(argv[1])));
    default:
        return dcp_answer(id, "ebct", " ", DCP_SYNTAX);
    }
}

// Charging in a mode with the currents that stand behind the action. A charger whose currents can't be set is
// switched off again.
int charge_on(int mode, int argc, const dcp_word* argv)
{
    const std::uint32_t battery_ma = argc > 1 ? dcp_uint(argv[1]) : 0;
    const std::uint32_t input_ma = argc > 2 ? dcp_uint(argv[2]) : 0;
    if (charge_set_mode(mode) == 0)
        return 0;
    if (charge_set_current(battery_ma, input_ma) == 0) {
        charge_set_mode(CHARGE_OFF);
        return 0;
    }
    return 1;
}

int vbcct_action(int argc, const dcp_word* argv)
{
    switch (dcp_uint(argv[0])) {
    case 0:
        return status_of(charge_set_mode(CHARGE_OFF));
    case 1:
        return status_of(charge_on(CHARGE_USB, argc, argv));
    case 2:
        return status_of(charge_dump());
    default:
        return DCP_SYNTAX;
    }
}

// The list of currents is longer than a line of response may be.
void vbcct_range(int id, const char* what, int kind)
{
    char range[CHARGE_RANGE_SIZE];
    const std::string text = charge_get_range(range, kind) != 0
                                 ? std::string("Supported ") + what + " (" + range + ")\n"
                                 : "Supported currents (N/A)\n";
    dcp_print_long(id, "vbcct", text.c_str());
}

int vbcct_help(int id)
{
    dcp_printf(id, "vbcct", "VBUS Charging Control Test command \n");
    dcp_printf(id, "vbcct", "VBCCT=0 - Turn off charging\n");
    dcp_printf(id, "vbcct", "VBCCT=1,[<current_bat>,[<current_input>]] - Turn on charging\n");
    vbcct_range(id, "current_bat", CHARGE_RANGE_BATTERY);
    int limited = 0;
    if (charge_get_mode(CHARGE_GET_INPUT_LIMITED, &limited) != 0 && limited != 0)
        vbcct_range(id, "current_input", CHARGE_RANGE_INPUT);
    return DCP_OK;
}

int do_vbcct(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return vbcct_help(id);
    if (argc < 1 || argc > MOST_VALUES)
        return dcp_answer(id, "vbcct", " ", DCP_SYNTAX);
    return dcp_answer(id, "vbcct", " ", vbcct_action(argc, argv));
}

int scct_on(int id, int argc, const dcp_word* argv)
{
    int charger;
    if (charge_on(CHARGE_SIMPLE, argc, argv) == 0 || charge_get_mode(CHARGE_GET_STATUS, &charger) == 0)
        return dcp_answer(id, "scct", " ", DCP_ERROR);
    dcp_printf(id, "scct", "0x%x", static_cast<unsigned>(charger));
    return DCP_OK;
}

int do_scct(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "scct", "Simple Charging Control Test command", DCP_OK);
    if (argc < 1 || argc > MOST_VALUES)
        return dcp_answer(id, "scct", " ", DCP_SYNTAX);
    switch (dcp_uint(argv[0])) {
    case 0:
        return dcp_answer(id, "scct", " ", status_of(charge_set_mode(CHARGE_OFF)));
    case 1:
        return scct_on(id, argc, argv);
    default:
        return dcp_answer(id, "scct", " ", DCP_ERROR);
    }
}

// clang-format off
constexpr dcp_cmd f_charge_cmd_tab[] = {
    { "ebct",  "(0-3, 0-)",     "%d,%v",    "ebct(action[,current],[mode])",     do_ebct,  DCP_GRP_PRODUCTION },
    { "vbcct", "(0-1, W, W)",   "%v,%v,%v", "vbcct(action[,current[,current]])", do_vbcct, DCP_GRP_PRODUCTION },
    { "scct",  "(0-3, 0-)",     "%v,%v",    "scct(action[,current],[mode])",     do_scct,  DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_charge_link;

} // namespace

void f_charge_init()
{
    dcp_cmd_add(f_charge_cmd_tab, &f_charge_link);
}
