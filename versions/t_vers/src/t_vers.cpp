#include "t_vers/t_vers.h"

#include <initializer_list>

#include "dcp/dcp.h"
#include "vers/vers.h"

namespace {

// One line; a version that can't be read is an empty one.
int print(int id, int type)
{
    const char* const text = vers_get(type, nullptr);
    dcp_printf(id, "vers", "%s", text != nullptr ? text : "");
    return text != nullptr ? DCP_OK : DCP_ERROR;
}

int print_all(int id)
{
    int status = DCP_OK;
    for (const int type : {VERS_TYPE_QAT, VERS_TYPE_OS, VERS_TYPE_MODEM})
        if (print(id, type) != DCP_OK)
            status = DCP_ERROR;
    return status;
}

int do_vers(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "vers", "Parameters: 0=All, 1=QAT, 2=App OS 3=Modem", DCP_OK);
    switch (argc > 0 ? dcp_uint(argv[0]) : 0) {
    case 0:
        return print_all(id);
    case 1:
        return print(id, VERS_TYPE_QAT);
    case 2:
        return print(id, VERS_TYPE_OS);
    case 3:
        return print(id, VERS_TYPE_MODEM);
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
