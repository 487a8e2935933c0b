#include "f_backcap/f_backcap.h"

#include "backcap/backcap.h"
#include "dcp/dcp.h"

namespace {

int set_mode(int argc, const dcp_word* argv)
{
    if (argc != 1 || dcp_uint(argv[0]) > 1)
        return DCP_SYNTAX;
    return backcap_set_mode(dcp_int(argv[0])) != 0 ? DCP_OK : DCP_ERROR;
}

int do_bact(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bact", "Backup Capacitor Control Test command", DCP_OK);
    const int status = set_mode(argc, argv);
    return dcp_answer(id, "bact", " ", status);
}

// clang-format off
constexpr dcp_cmd f_backcap_cmd_tab[] = {
    { "bact", "(0-1)", "%d", "bact(action)", do_bact, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_backcap_link;

} // namespace

void f_backcap_init()
{
    dcp_cmd_add(f_backcap_cmd_tab, &f_backcap_link);
}
