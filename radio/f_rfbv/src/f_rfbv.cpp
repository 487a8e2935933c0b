#include "f_rfbv/f_rfbv.h"

#include "dcp/dcp.h"
#include "rfbv/rfbv.h"

namespace {

int do_rfbv_read(int id, int action, int argc, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "rfbv", "Read RF ID", DCP_OK);
    if (argc != 0)
        return dcp_answer(id, "rfbv", "", DCP_SYNTAX);
    unsigned pin;
    int value;
    if (rfbv_read(&pin, &value) == 0)
        return dcp_answer(id, "rfbv", "", DCP_ERROR);
    dcp_printf(id, "rfbv", "%u, %d", pin, value);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_rfbv_cmd_tab[] = {
    { "rfbv", "", "", "rfbv", do_rfbv_read, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_rfbv_link;

} // namespace

void f_rfbv_init()
{
    dcp_cmd_add(f_rfbv_cmd_tab, &f_rfbv_link);
}
