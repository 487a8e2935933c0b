#include "f_syscfg/f_syscfg.h"

#include <cstdio>

#include "dcp/dcp.h"
#include "syscfg/syscfg.h"

namespace {

// An operation's result as a status.
int answer_result(int id, const char* name, int result)
{
    return dcp_answer(id, name, " ", result == 0 || result == 1 || result == 2 ? result : DCP_ERROR);
}

int sysmode_help(int id)
{
    int count;
    const char* const* const p_modes = syscfg_get_modes(&count);
    dcp_printf(id, "sysmode", "%s", "Set system mode");
    for (int i = 0; i < count; i++)
        dcp_printf(id, "sysmode", "%d %s", i, p_modes[i]);
    return DCP_OK;
}

int do_syscfg_mode(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return sysmode_help(id);
    if (argc != 1)
        return dcp_answer(id, "sysmode", " ", DCP_SYNTAX);
    return answer_result(id, "sysmode", syscfg_set_mode(dcp_uint(argv[0])));
}

// A long path with a long text passes a plain line of response.
int syscfg_help(int id)
{
    int count;
    const char* const* const p_settings = syscfg_get_settings(&count);
    for (int i = 0; i < count; i++) {
        const char* const current = syscfg_get_setting(static_cast<unsigned>(i));
        char text[512];
        std::snprintf(text, sizeof text, "%d %s = %s", i, p_settings[i], current != nullptr ? current : "");
        dcp_print_long(id, "syscfg", text);
    }
    return DCP_OK;
}

int do_syscfg(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return syscfg_help(id);
    if (argc != 2 || dcp_text(argv[1]) == nullptr)
        return dcp_answer(id, "syscfg", " ", DCP_SYNTAX);
    return answer_result(id, "syscfg", syscfg_set_setting(dcp_uint(argv[0]), dcp_text(argv[1])));
}

int do_syscfg_ip(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ipcfg", "Set last digits of IP address", DCP_OK);
    if (argc != 1)
        return dcp_answer(id, "ipcfg", " ", DCP_SYNTAX);
    return answer_result(id, "ipcfg", syscfg_set_ip_addr(dcp_uint(argv[0])));
}

// clang-format off
constexpr dcp_cmd f_syscfg_cmd_tab[] = {
    { "sysmode", "0-3",               "%v",    "SYSMODE(level)", do_syscfg_mode, DCP_GRP_PRODUCTION },
    { "syscfg",  "0-...,\"setting\"", "%v,%s", "SYSCFG(num)",    do_syscfg,      DCP_GRP_PRODUCTION },
    { "ipcfg",   "(0-255)",           "%d",    "ipcfg(ipaddr)",  do_syscfg_ip,   DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_syscfg_link;

} // namespace

void f_syscfg_init()
{
    dcp_cmd_add(f_syscfg_cmd_tab, &f_syscfg_link);
}
