#include "f_smps/f_smps.h"

#include "dcp/dcp.h"
#include "smps/smps.h"

namespace {

// The verdict is the answer: 0 switched, 1 not.
int do_smps(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "smps", "smps cpu regulator control test", DCP_OK);
    if (argc != 2 || dcp_uint(argv[1]) > 1)
        return DCP_SYNTAX;
    const int switched = smps_regulator_switch(dcp_uint(argv[0]), dcp_uint(argv[1]));
    dcp_printf(id, "smps", "%s", switched != 0 ? "0" : "1");
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_smps_cmd_tab[] = {
    { "smps", "(0-9),(0-1)", "%v,%v", "smps(reg,op)", do_smps, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link f_smps_link;

} // namespace

void f_smps_init()
{
    dcp_cmd_add(f_smps_cmd_tab, &f_smps_link);
}
