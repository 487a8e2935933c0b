#include "f_prox/f_prox.h"

#include <iterator>

#include "dcp/dcp.h"
#include "prx/prx.h"

namespace {

int answer_blank(int id, int status)
{
    return dcp_answer(id, "proxs", " ", status);
}

int proxs_start(int id, int, const dcp_word*)
{
    return answer_blank(id, prx_start() != 0 ? DCP_OK : DCP_ERROR);
}

int proxs_adc(int id, int, const dcp_word*)
{
    std::uint32_t value;
    if (prx_adc(&value) == 0)
        return answer_blank(id, DCP_ERROR);
    dcp_printf(id, "proxs", "0x%04X", value);
    return DCP_OK;
}

int proxs_near(int id, int argc, const dcp_word* argv)
{
    constexpr int MOST_VALUES = 5;
    if (argc > MOST_VALUES)
        return answer_blank(id, DCP_SYNTAX);
    for (int i = 1; i < argc; i++)
        prx_set_reg(i - 1, dcp_uint(argv[i])); // settings of other chips
    std::uint32_t value;
    if (prx_digital(&value) != 1)
        return answer_blank(id, DCP_ERROR);
    dcp_printf(id, "proxs", "0x%02X", value);
    return DCP_OK;
}

int proxs_set(int id, int argc, const dcp_word* argv)
{
    constexpr int MOST_VALUES = 6;
    if (argc > MOST_VALUES)
        return answer_blank(id, DCP_SYNTAX);
    for (int i = argc - 1; i >= 1; i--)
        prx_set_reg(PRX_LOW_THRESHOLD + i - 1, dcp_uint(argv[i]));
    std::uint32_t value;
    const int near = prx_digital(&value);
    dcp_printf(id, "proxs", "%d,0x%04X", near, value);
    return DCP_OK;
}

using proxs_fn = int (*)(int id, int argc, const dcp_word* argv);

// By action, from 0.
constexpr proxs_fn proxs_actions[] = {proxs_start, proxs_adc, proxs_near, proxs_set};

int do_prox_sensor(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "proxs", "Tests the proximity sensor", DCP_OK);
    if (argc < 1 || dcp_uint(argv[0]) >= std::size(proxs_actions))
        return answer_blank(id, DCP_SYNTAX);
    return proxs_actions[dcp_uint(argv[0])](id, argc, argv);
}

// clang-format off
constexpr dcp_cmd f_prox_cmd_tab[] = {
    { "proxs", "(0-3)[,(0-0xFFFF),(0-0xFFFF),(0-0xFF),(0-0x3),(0-0xF)]", "%d,%v,%v,%v,%v,%v",
      "test(act,p1,p2,p3,p4,p5,p6)", do_prox_sensor, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_prox_link;

} // namespace

void f_prox_init()
{
    dcp_cmd_add(f_prox_cmd_tab, &f_prox_link);
}
