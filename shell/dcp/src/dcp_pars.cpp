// The parser: one line in, one call of a handler.
#include "dcp_inner.h"

#include "check/check.h"
#include "nav/nav.h"

#include <atomic>

static_assert(DCP_MAX_VALUES == NAV_MAX_VALUES);
static_assert(DCP_ACTION_SET == NAV_SET && DCP_ACTION_READ == NAV_READ && DCP_ACTION_TEST == NAV_TEST);

namespace {

std::atomic<int> dcp_case_en = 1; // a late report of another thread asks for it
int dcp_parser_blocked;
dcp_line_fn dcp_cmd_line_cb; // null: lines pass as they are
dcp_parse_fn dcp_parse_ext;

dcp_cmd_link dcp_cmd_obj;

int dcp_parse_ext_def(int, char* line)
{
    return *line ? DCP_NOT_FOUND : DCP_OK;
}

void show_usage(int id, const dcp_cmd* p_cmd)
{
    char txt[DCP_CMD_LINE];
    dcp_cmd_dspl(txt, p_cmd, 1);
    dcp_resp_dspl(id, DCP_DSPL_LINE, 0, txt);
}

} // namespace

void dcp_init()
{
    dcp_clnt_init();
    dcp_case_en = 1;
    dcp_parser_blocked = 0;
    dcp_cmd_line_cb = nullptr;
    dcp_parse_ext = dcp_parse_ext_def;
    dcp_tab_init();
    dcp_cmd_add(dcp_cmd_tab, &dcp_cmd_obj);
}

int dcp_parse(int id, char* line)
{
    HVT_CHECK(line != nullptr);
    if (dcp_cmd_line_cb)
        line = dcp_cmd_line_cb(line);
    char* pos = line;
    std::size_t len;
    char* const name = nav_get_name(&len, &pos);
    const dcp_cmd* p_cmd = dcp_case_en ? dcp_tab_find(name, len) : dcp_tab_find_folded(name, len);
    if (!p_cmd)
        return dcp_parse_ext(id, line);
    int action = nav_get_action(&pos);
    nav_values values; // a handler reads no more of it than argc says
    const int argc = nav_get_val(&values, &pos, p_cmd->format);
    if (argc < 0)
        action = NAV_SYNTAX;
    if (dcp_parser_blocked && !(p_cmd->grp & DCP_GRP_UNBLOCKED))
        return DCP_BLOCKED;
    if (action == NAV_SYNTAX) {
        show_usage(id, p_cmd);
        return DCP_SYNTAX;
    }
    const int status = p_cmd->fn(id, action, argc, values.word);
    if (action == NAV_TEST)
        show_usage(id, p_cmd);
    return status;
}

dcp_parse_fn dcp_parser_add(dcp_parse_fn fn)
{
    const dcp_parse_fn former = dcp_parse_ext;
    dcp_parse_ext = fn ? fn : dcp_parse_ext_def;
    return former;
}

void dcp_attach_cmd_line_cb(dcp_line_fn fn)
{
    dcp_cmd_line_cb = fn;
}

void dcp_block_parser(int flag)
{
    dcp_parser_blocked = flag;
}

int dcp_case_get()
{
    return dcp_case_en;
}

void dcp_case_set(int flag)
{
    dcp_case_en = flag;
}
