#include "f_modem/f_modem.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "modem/modem.h"
#include "scf/scf.h"

namespace {

constexpr unsigned DECIMAL = 10;
constexpr std::uint32_t SWITCH_GET = 0;
constexpr std::uint32_t SWITCH_SET = 1;

std::uint8_t fuse_data[0x10000];

int status_of(int result)
{
    return result != 0 ? DCP_OK : DCP_ERROR;
}

std::uint32_t only_value(int argc, const dcp_word* argv)
{
    return argc == 1 ? dcp_uint(argv[0]) : 0;
}

int do_modem_mdmb(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_TEST)
        return dcp_answer(id, "mdmb", "", status_of(modem_boot(only_value(argc, argv))));
    dcp_printf(id, "mdmb", "Boots modem");
    dcp_printf(id, "mdmb", "0: Waits for modem up");
    dcp_printf(id, "mdmb", "1: Kickstarts MDM");
    dcp_printf(id, "mdmb", "2: Brings GSS out of reset");
    return DCP_OK;
}

int read_switch(int id)
{
    std::uint32_t value = 0;
    if (modem_switch_get(&value) != 1)
        return dcp_answer(id, "mdsw", " ", DCP_ERROR);
    dcp_printf(id, "mdsw", "%d", static_cast<int>(value));
    return DCP_OK;
}

int do_modem_mdsw(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mdsw", "Modem switch", DCP_OK);
    const std::uint32_t op = argc >= 1 ? dcp_uint(argv[0]) : SWITCH_GET;
    if (op == SWITCH_GET && argc < 2)
        return read_switch(id);
    if (op != SWITCH_SET || argc != 2)
        return dcp_answer(id, "mdsw", " ", DCP_SYNTAX);
    if (modem_switch_set(dcp_uint(argv[1])) != 1)
        return dcp_answer(id, "mdsw", " ", DCP_ERROR);
    return dcp_answer(id, "mdsw", "", DCP_OK);
}

int do_modem_mdmr(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mdmr", "Reset modem", DCP_OK);
    return dcp_answer(id, "mdmr", "", status_of(modem_reset(only_value(argc, argv))));
}

int fuse(char* text)
{
    scf_clean(text, " ");
    const int count = scf_str_to_uint8(fuse_data, sizeof fuse_data, text, DECIMAL);
    return status_of(modem_fuse(fuse_data, static_cast<std::size_t>(count)));
}

int do_modem_mdmf(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mdmf", "Fuse modem", DCP_OK);
    return dcp_answer(id, "mdmf", "", argc == 1 ? fuse(dcp_text(argv[0])) : DCP_ERROR);
}

int do_modem_mdmid(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mdmid", "Read modem id", DCP_OK);
    std::uint32_t value = 0;
    if (modem_id(&value) == 0)
        return dcp_answer(id, "mdmid", "", DCP_ERROR);
    dcp_printf(id, "mdmid", "0x%x", value);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_modem_cmd_tab[] = {
    { "mdmb",  "(0-2)",       "%v",    "modem_boot(val)",   do_modem_mdmb,  DCP_GRP_STANDARD },
    { "mdsw",  "(0,1),(0-2)", "%v,%v", "modem_switch(val)", do_modem_mdsw,  DCP_GRP_STANDARD },
    { "mdmr",  "W",           "%v",    "modem_reset(val)",  do_modem_mdmr,  DCP_GRP_STANDARD },
    { "mdmf",  "...",         "%t",    "modem_fuse(data)",  do_modem_mdmf,  DCP_GRP_STANDARD },
    { "mdmid", "",            "",      "modem_id",          do_modem_mdmid, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link f_modem_cmd_link;

} // namespace

void f_modem_init()
{
    dcp_cmd_add(f_modem_cmd_tab, &f_modem_cmd_link);
}
