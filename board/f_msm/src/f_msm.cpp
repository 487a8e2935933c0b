#include "f_msm/f_msm.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "msm/msm.h"

namespace {

int do_msm_pvsr(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "pvsr", "Read processor voltage setting", DCP_OK);
    if (argc != 1 || dcp_uint(argv[0]) != 1)
        return dcp_answer(id, "pvsr", " ", DCP_SYNTAX);
    int value;
    if (msm_pvs_read(&value) != 0)
        return dcp_answer(id, "pvsr", " ", DCP_ERROR);
    dcp_printf(id, "pvsr", "0x%x", static_cast<unsigned>(value));
    return DCP_OK;
}

int do_msm_msmv(int id, int action, int argc, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "msmv", "Product device ID, Feature ID, Version ID", DCP_OK);
    if (argc != 0)
        return dcp_answer(id, "msmv", " ", DCP_SYNTAX);
    std::uint32_t val[3];
    if (msm_version_read(val) != 0)
        return dcp_answer(id, "msmv", " ", DCP_ERROR);
    dcp_printf(id, "msmv", "0x%x,0x%x,0x%x", val[0], val[1], val[2]);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_msm_cmd_tab[] = {
    { "pvsr", "1", "%v", "PVSR", do_msm_pvsr, DCP_GRP_PRODUCTION },
    { "msmv", "",  "",   "MSMV", do_msm_msmv, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_msm_link;

} // namespace

void f_msm_init()
{
    dcp_cmd_add(f_msm_cmd_tab, &f_msm_link);
}
