#include "f_qat/f_qat.h"

#include <string_view>

#include "dcp/dcp.h"
#include "rev/rev.h"

namespace {

constexpr std::string_view VMRK_MARK = "@(#) ";

std::string_view rev_text(const char* id)
{
    const char* text = rev_get(id);
    return text != nullptr ? text : "";
}

int do_qat_qatv(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "qatv", "QAT version", DCP_OK);
    std::string_view vmrk = rev_text("vmrk_rev");
    vmrk.remove_prefix(vmrk.size() < VMRK_MARK.size() ? vmrk.size() : VMRK_MARK.size());
    dcp_printf(id, "qatv", "%s, %s", rev_text("space_num").data(), vmrk.data());
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd qat_cmd_tab[] = {
    { "qatv", "", "", "version()", do_qat_qatv, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link qat_cmd_link;

} // namespace

void f_qat_init()
{
    dcp_cmd_add(qat_cmd_tab, &qat_cmd_link);
}
