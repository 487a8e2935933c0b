#include "f_compass/f_compass.h"

#include "compass/compass.h"
#include "dcp/dcp.h"

namespace {

int answer_reading(int id, const compass_reading reading)
{
    dcp_printf(id, "ecmt", "%d,%d,%d", reading[0], reading[1], reading[2]);
    return DCP_OK;
}

int ecmt_stop(int id)
{
    compass_stop();
    return dcp_answer(id, "ecmt", "", DCP_OK);
}

int ecmt_start(int id)
{
    compass_start();
    return dcp_answer(id, "ecmt", "", DCP_OK);
}

int ecmt_get(int id)
{
    compass_reading reading;
    return compass_get(reading) != 0 ? answer_reading(id, reading) : DCP_ERROR;
}

// The values say what happened; the verdict is the station's.
int ecmt_selftest(int id)
{
    compass_reading reading = {};
    compass_selftest(reading);
    return answer_reading(id, reading);
}

int ecmt_temp(int id)
{
    dcp_printf(id, "ecmt", "%.1f", static_cast<double>(compass_get_temp()));
    return DCP_OK;
}

// The bare form stops the compass.
int do_compass_ecmt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ecmt", "Tests the compass", DCP_OK);
    switch (argc > 0 ? dcp_uint(argv[0]) : 0) {
    case 0:
        return ecmt_stop(id);
    case 1:
        return ecmt_start(id);
    case 2:
        return ecmt_get(id);
    case 5:
        return ecmt_selftest(id);
    case 6:
        return ecmt_temp(id);
    default:
        return DCP_ERROR;
    }
}

// clang-format off
constexpr dcp_cmd f_compass_cmd_tab[] = {
    { "ecmt", "(0-6)", "%v", "test(act)", do_compass_ecmt, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_compass_link;

} // namespace

void f_compass_init()
{
    dcp_cmd_add(f_compass_cmd_tab, &f_compass_link);
}
