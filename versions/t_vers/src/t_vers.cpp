#include "t_vers/t_vers.h"

#include "dcp/dcp.h"
#include "vers/vers.h"

namespace {

void print(int id, int type)
{
    dcp_printf(id, "vers", "%s", vers_get(type, nullptr));
}

int do_vers(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "vers", "Parameters: 0=All, 1=QAT, 2=App OS 3=Modem", DCP_OK);
    switch (argc > 0 ? dcp_uint(argv[0]) : 0) {
    case 0:
        print(id, VERS_TYPE_QAT);
        print(id, VERS_TYPE_OS);
        print(id, VERS_TYPE_MODEM);
        return DCP_OK;
    case 1:
        print(id, VERS_TYPE_QAT);
        return DCP_OK;
    case 2:
        print(id, VERS_TYPE_OS);
        return DCP_OK;
    case 3:
        print(id, VERS_TYPE_MODEM);
        return DCP_OK;
    default:
        return DCP_ERROR;
    }
}

// clang-format off
constexpr dcp_cmd vers_cmd_tab[] = {
    { "vers", "[(0-3)]", "%v", "vers(val)", do_vers, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link vers_cmd_link;

} // namespace

void t_vers_init()
{
    dcp_cmd_add(vers_cmd_tab, &vers_cmd_link);
}
