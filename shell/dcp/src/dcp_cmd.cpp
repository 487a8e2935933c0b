// The rows of the tables as text, and the shell's own commands: help, list, case.
#include "dcp_inner.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr std::uint32_t ALL_GROUPS = 255;

constexpr const char* group_lines[] = {
    "invisible   0x01", "standard    0x02", "production  0x04",
    "software    0x08", "precond     0x10", "deprecated  0x20",
};

// Shows the rows of a group mask whose names begin with `pattern`, in list order: how many.
int show_rows(int id, const char* pattern, std::uint32_t mask, int form)
{
    const std::size_t len = std::strlen(pattern);
    int shown = 0;
    for (dcp_cmd_link* p_link = dcp_cmd_tab_next(nullptr); p_link; p_link = dcp_cmd_tab_next(p_link)) {
        for (const dcp_cmd* p_cmd = p_link->p_tab; p_cmd->fn; p_cmd++) {
            if (((p_cmd->grp & mask) == 0 && p_cmd->grp != 0) || std::strncmp(p_cmd->name, pattern, len) != 0)
                continue;
            char txt[DCP_CMD_LINE];
            dcp_cmd_dspl(txt, p_cmd, form);
            dcp_resp_dspl(id, DCP_DSPL_LINE, 1, txt);
            shown++;
        }
    }
    return shown;
}

// Without a pattern the list is sorted by first letter, and within a letter by the order of the tables.
int dcp_do_help(int id, int action, int argc, const dcp_word* argv, const char* name, int form)
{
    if (action == DCP_ACTION_TEST) {
        for (const char* line : group_lines)
            dcp_printf(id, name, "%s", line);
        return DCP_OK;
    }
    const char* pattern = argc > 0 ? dcp_text(argv[0]) : nullptr;
    const std::uint32_t mask = argc > 1 ? dcp_uint(argv[1]) : ALL_GROUPS;
    int shown = 0;
    if (pattern)
        shown = show_rows(id, pattern, mask, form);
    else
        for (char letter[2] = "a"; letter[0] <= 'z'; letter[0]++)
            shown += show_rows(id, letter, mask, form);
    return shown > 0 ? DCP_OK : DCP_NOT_FOUND;
}

int do_dcp_help(int id, int action, int argc, const dcp_word* argv)
{
    return dcp_do_help(id, action, argc, argv, "help", 1);
}

int do_dcp_list(int id, int action, int argc, const dcp_word* argv)
{
    return dcp_do_help(id, action, argc, argv, "list", 0);
}

int do_dcp_case(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return DCP_OK;
    if (action == DCP_ACTION_SET && argc > 0)
        dcp_case_set(dcp_uint(argv[0]) == 1);
    dcp_printf(id, "case", "%s", dcp_case_get() ? "true" : "false");
    return DCP_OK;
}

} // namespace

// clang-format off
const dcp_cmd dcp_cmd_tab[] = {
    // name    range                  format     help                  handler      group
    { "help", "[\"a..z\"[,(1-15)]]", "%s,%v",  "help(string,group)", do_dcp_help, DCP_GRP_STANDARD  },
    { "list", "[\"a..z\"[,(1-15)]]", "%s, %v", "list(string,group)", do_dcp_list, DCP_GRP_STANDARD  },
    { "case", "[(0,1)]",             "%d",     "case(en)",           do_dcp_case, DCP_GRP_INVISIBLE },
    {},
};
// clang-format on

int dcp_cmd_cnt(const dcp_cmd_link* p_link)
{
    int count = 0;
    while (p_link->p_tab[count].fn)
        count++;
    return count;
}

const dcp_cmd* dcp_cmd_sel(const dcp_cmd_link* p_link, int i)
{
    return &p_link->p_tab[i];
}

const char* dcp_cmd_str(const dcp_cmd* p_cmd, int i)
{
    const char* const fields[] = {p_cmd->name, p_cmd->range, p_cmd->format, p_cmd->help};
    return i >= 0 && i < 4 ? fields[i] : nullptr;
}

const char* dcp_cmd_help(const dcp_cmd* p_cmd)
{
    return p_cmd->help;
}

const char* dcp_cmd_range(const dcp_cmd* p_cmd)
{
    return p_cmd->range;
}

const char* dcp_cmd_format(const dcp_cmd* p_cmd)
{
    return p_cmd->format;
}

std::uint32_t dcp_cmd_grp(const dcp_cmd* p_cmd)
{
    return p_cmd->grp;
}

void dcp_cmd_dspl(char* p_txt, const dcp_cmd* p_cmd, int form)
{
    if (form == 1)
        std::snprintf(p_txt, DCP_CMD_LINE, "%-10.10s%-50.57s%.32s", p_cmd->name, p_cmd->range, p_cmd->help);
    else
        std::snprintf(p_txt, DCP_CMD_LINE, "%-10.10s", p_cmd->name);
}
