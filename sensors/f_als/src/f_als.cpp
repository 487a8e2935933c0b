#include "f_als/f_als.h"

#include "als/als.h"
#include "dcp/dcp.h"

namespace {

constexpr std::uint32_t MOST_TIME_MS = 5000;
constexpr std::uint32_t KIND_LIGHT = 15;
constexpr int DONE = 1;

int answer_blank(int id)
{
    return dcp_answer(id, "lsen", " ", DCP_OK);
}

int answer_value(int id, std::uint32_t value)
{
    dcp_printf(id, "lsen", "0x%X", value);
    return DCP_OK;
}

int echo(int id, int argc, const dcp_word* argv)
{
    if (argc == 1)
        dcp_printf(id, "lsen", "%d ", dcp_int(argv[0]));
    else if (argc == 2)
        dcp_printf(id, "lsen", "%d %d", dcp_int(argv[0]), dcp_int(argv[1]));
    else
        return answer_blank(id);
    return DCP_OK;
}

int lsen_stop(int id)
{
    const int result = als_stop();
    if (result == DONE)
        return answer_blank(id);
    dcp_printf(id, "lsen", "errno %d ", result);
    return DCP_ERROR;
}

// No driver has a gain of kind 0, so that one other than 0 fails and starts nothing.
int lsen_start(int id, std::uint32_t time_ms, std::uint32_t gain)
{
    int result = gain != 0 ? als_set_resistor(0, gain, 0) : DONE;
    if (result == DONE)
        result = als_start();
    if (result == DONE)
        return answer_value(id, als_get(time_ms));
    dcp_printf(id, "lsen", "start errno %d ", result);
    return DCP_ERROR;
}

// A sensor that can't be started reads as 0.
int lsen_gain(int id, int argc, const dcp_word* argv)
{
    als_start();
    if (argc == 2) {
        if (dcp_uint(argv[1]) > ALS_MOST_GAIN)
            return DCP_SYNTAX;
        als_set_resistor(KIND_LIGHT, dcp_uint(argv[1]), 0);
    }
    return answer_value(id, als_get(0));
}

int do_als_lsen(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "lsen", "Tests the lightsensor", DCP_OK);
    if (action == DCP_ACTION_READ)
        return echo(id, argc, argv);
    if (argc == 1 && dcp_uint(argv[0]) == 0)
        return lsen_stop(id);
    if ((argc == 2 || argc == 3) && dcp_uint(argv[0]) == 1 && dcp_uint(argv[1]) <= MOST_TIME_MS)
        return lsen_start(id, dcp_uint(argv[1]), argc == 3 ? dcp_uint(argv[2]) : 0);
    if ((argc == 1 || argc == 2) && dcp_uint(argv[0]) == 3)
        return lsen_gain(id, argc, argv);
    return DCP_SYNTAX;
}

// clang-format off
constexpr dcp_cmd f_als_cmd_tab[] = {
    { "lsen", "(0-3)[,(0x0-0x1388),(0x00-0xff)]", "%v,%v,%v", "test(act,[<time(msec)>/<gain>])", do_als_lsen,
      DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_als_link;

} // namespace

void f_als_init()
{
    dcp_cmd_add(f_als_cmd_tab, &f_als_link);
}
