#include "f_mdml/f_mdml.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "mdml/mdml.h"

namespace {

struct mdml_row {
    bool needs_text;
    int (*call)(const char* text);
};

// By the first value.
constexpr mdml_row mdml_map[] = {
    {false, [](const char*) { return mdml_off(); }},
    {true, mdml_on},
    {true, mdml_set_mask},
    {false, mdml_rm_log},
};

int print_help(int id)
{
    dcp_printf(id, "mdml", "Control modem logs");
    dcp_printf(id, "mdml", "0              = Turn modem logs off");
    dcp_printf(id, "mdml", "1,<timestamp>  = Turn modem logs on");
    dcp_printf(id, "mdml", "2,<path>       = Set log mask");
    dcp_printf(id, "mdml", "3,<timestamph> = Remove log");
    return DCP_OK;
}

int do_mdml_mdml(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return print_help(id);
    if (argc == 0)
        return DCP_ERROR;
    if (argc > 2)
        return dcp_answer(id, "mdml", " ", DCP_SYNTAX);
    const std::uint32_t op = dcp_uint(argv[0]);
    const char* const text = argc == 2 ? dcp_text(argv[1]) : nullptr;
    if (op >= sizeof mdml_map / sizeof mdml_map[0] || (mdml_map[op].needs_text && text == nullptr))
        return DCP_SYNTAX;
    const bool done = mdml_present() && mdml_map[op].call(text) == 0;
    return dcp_answer(id, "mdml", " ", done ? DCP_OK : DCP_ERROR);
}

constexpr dcp_cmd f_mdml_cmd_tab[] = {
    {"mdml", "0x0-0x03[,(...)}", "%v,%t", "MDML(option)", do_mdml_mdml, DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link f_mdml_cmd_link;

} // namespace

void f_mdml_init()
{
    dcp_cmd_add(f_mdml_cmd_tab, &f_mdml_cmd_link);
}
