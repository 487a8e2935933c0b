#include "f_mpvc/f_mpvc.h"

#include "dcp/dcp.h"
#include "mpvc/mpvc.h"

namespace {

constexpr std::int32_t FORMAT_LEFT_OUT = -1;

int do_mpvc(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mpvc", "Set mic bias on/off", DCP_OK);
    if (argc != 1)
        return dcp_answer(id, "mpvc", " ", DCP_SYNTAX);
    if (dcp_uint(argv[0]) > 1)
        return DCP_SYNTAX;
    return dcp_answer(id, "mpvc", " ", mpvc_set(dcp_int(argv[0])) == 0 ? DCP_OK : DCP_ERROR);
}

int do_vadet_read(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "vadet", "Read MICBIAS ADC ", DCP_OK);
    if (argc != 1 && argc != 2)
        return dcp_answer(id, "vadet", " ", DCP_SYNTAX);
    const std::int32_t format = argc == 2 && dcp_int(argv[1]) != FORMAT_LEFT_OUT ? dcp_int(argv[1]) : 0;
    int value = 0;
    if (vadet_read(dcp_int(argv[0]), format, &value) != VADET_OK)
        return dcp_answer(id, "vadet", "", DCP_ERROR);
    dcp_printf(id, "vadet", "0x%x", static_cast<unsigned>(value));
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_mpvc_cmd_tab[] = {
    { "mpvc",  "0x0-0x01",    "%v",       "MPVC(on/off)",           do_mpvc,       DCP_GRP_PRODUCTION },
    { "vadet", "0x1[,(0-1)]", "%v,%v,%v", "VADET(function,format)", do_vadet_read, DCP_GRP_PRODUCTION },
    { nullptr, nullptr, nullptr, nullptr, nullptr, 0 },
};
// clang-format on

dcp_cmd_link f_mpvc_link;

} // namespace

void f_mpvc_init()
{
    dcp_cmd_add(f_mpvc_cmd_tab, &f_mpvc_link);
}
