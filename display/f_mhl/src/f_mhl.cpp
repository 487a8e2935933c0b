#include "f_mhl/f_mhl.h"

#include "dcp/dcp.h"
#include "mhl/mhl.h"

namespace {

// Tests of mhlt.
constexpr std::uint32_t TEST_DDC = 3;
constexpr std::uint32_t TEST_HPD = 4;
constexpr std::uint32_t TEST_BIST = 5;

// A test that couldn't run has found 0.
int answer_result(int id, const char* name, int status, int result)
{
    dcp_printf(id, name, "%d", status != 0 ? result : 0);
    return status != 0 ? DCP_OK : DCP_ERROR;
}

int do_mhl_mhls(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mhls", "Enable/Disable MHL", DCP_OK);
    if (argc != 1)
        return dcp_answer(id, "mhls", " ", DCP_SYNTAX);
    const int done = mhl_switch(dcp_uint(argv[0]) != 0 ? 1 : 0);
    return dcp_answer(id, "mhls", " ", done != 0 ? DCP_OK : DCP_ERROR);
}

int do_mhl_mhlr(int id, int action, int argc, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mhlr", "Read MHL Test Result", DCP_OK);
    if (argc != 0)
        return dcp_answer(id, "mhlr", " ", DCP_SYNTAX);
    int result = 0;
    const int status = mhl_read(&result);
    return answer_result(id, "mhlr", status, result);
}

int do_mhl_mhlt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mhlt", "Run MHL BIST or HPD status test", DCP_OK);
    int result = 0;
    int status;
    switch (argc == 1 ? dcp_uint(argv[0]) : 0) {
    case TEST_DDC:
        status = mhl_run_ddc_test(&result);
        break;
    case TEST_HPD:
        status = mhl_run_hpd_test(&result);
        break;
    case TEST_BIST:
        status = mhl_run_bist(&result);
        break;
    default:
        return dcp_answer(id, "mhlt", " ", DCP_SYNTAX);
    }
    return answer_result(id, "mhlt", status, result);
}

// clang-format off
constexpr dcp_cmd f_mhl_cmd_tab[] = {
    { "mhls", "(0-1)", "%v", "mhls(func) MHL switch",                          do_mhl_mhls, DCP_GRP_PRODUCTION },
    { "mhlr", "",      "",   "mhlr(void) MHL read",                            do_mhl_mhlr, DCP_GRP_PRODUCTION },
    { "mhlt", "(3-5)", "%v", "mhlt(act) Run DDC test, HPD status or MHL BIST", do_mhl_mhlt, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_mhl_link;

} // namespace

void f_mhl_init()
{
    dcp_cmd_add(f_mhl_cmd_tab, &f_mhl_link);
}
