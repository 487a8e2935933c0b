#include "f_battery/f_battery.h"

#include <iterator>

#include "battery/battery.h"
#include "dcp/dcp.h"

namespace {

constexpr int MOST_VALUES = 4;

int answer_reading(int id, int result, int value)
{
    if (result == 0)
        return dcp_answer(id, "batc", " ", DCP_ERROR);
    dcp_printf(id, "batc", "%d", value);
    return DCP_OK;
}

// The value at `i`, 0 if it was left out.
dcp_word value_at(int i, int argc, const dcp_word* argv)
{
    return i < argc ? argv[i] : 0;
}

int batc_voltage(int id, int, const dcp_word*)
{
    int mv = 0;
    const int result = battery_read_voltage(&mv);
    return answer_reading(id, result, mv);
}

int batc_current(int id, int, const dcp_word*)
{
    int ma = 0;
    const int result = battery_read_current(&ma);
    return answer_reading(id, result, ma);
}

int batc_capacity(int id, int argc, const dcp_word* argv)
{
    int percent;
    int mv = dcp_int(value_at(1, argc, argv));
    int ma = dcp_int(value_at(2, argc, argv));
    if (battery_read_capacity(&percent, &mv, &ma) == 0)
        return dcp_answer(id, "batc", " ", DCP_ERROR);
    dcp_printf(id, "batc", "%d,%d,%d", percent, mv, ma);
    return DCP_OK;
}

int batc_type(int id, int, const dcp_word*)
{
    int type = 0;
    const int result = battery_read_type(&type);
    return answer_reading(id, result, type);
}

int batc_temp(int id, int, const dcp_word*)
{
    int degrees;
    int mv;
    if (battery_read_temp(&degrees) == 0 || battery_read_temp_mv(&mv) == 0)
        return dcp_answer(id, "batc", " ", DCP_ERROR);
    dcp_printf(id, "batc", "%d,%d", degrees, mv);
    return DCP_OK;
}

int batc_config(int id, int argc, const dcp_word* argv)
{
    const battery_cfg cfg = {
        .algorithm = dcp_uint(value_at(1, argc, argv)),
        .model = dcp_uint(value_at(2, argc, argv)),
        .ires_mohm = dcp_uint(value_at(3, argc, argv)),
        .type_path = nullptr,
        .temp_path = nullptr,
    };
    battery_set_cfg(&cfg);
    return dcp_answer(id, "batc", " ", DCP_OK);
}

using batc_fn = int (*)(int id, int argc, const dcp_word* argv);

// By function number, from 1.
constexpr batc_fn batc_functions[] = {
    batc_voltage, batc_current, batc_capacity, batc_type, batc_temp, batc_config,
};

constexpr const char* batc_help[] = {
    "Battery control",
    "BATC=1              - Read battery voltage (mV)",
    "BATC=2              - Read battery current (mA)",
    "BATC=3              - Read battery capacity, voltage & current (%,mV,mA)",
    "BATC=4              - Read battery type, (0=Unkown, 1 2)",
    "BATC=5              - Read battery temperature (C)",
    "BATC=6              - Set/get config (algorithm, model, ires)",
};

int do_batc(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        for (const char* line : batc_help)
            dcp_printf(id, "batc", "%s", line);
        return DCP_OK;
    }
    if (argc < 1 || argc > MOST_VALUES)
        return DCP_SYNTAX;
    const std::uint32_t function = dcp_uint(argv[0]);
    if (function < 1 || function > std::size(batc_functions))
        return DCP_SYNTAX;
    return batc_functions[function - 1](id, argc, argv);
}

// clang-format off
constexpr dcp_cmd f_battery_cmd_tab[] = {
    { "batc", "(1-6)", "%v,%v,%v,%v", "batc(function)", do_batc, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_battery_link;

} // namespace

void f_battery_init()
{
    dcp_cmd_add(f_battery_cmd_tab, &f_battery_link);
}
