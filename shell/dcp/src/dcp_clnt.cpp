// The clients, and what is sent to them.
#include "dcp_inner.h"

#include "check/check.h"
#include "scf/scf.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

namespace {

constexpr int CLIENT_SLOTS = 10;

void dcp_dspl_def(dcp_client*, int type, int, const char* text)
{
    if (type == DCP_DSPL_LINE || type == DCP_DSPL_DUMP)
        std::fputs(text, stdout);
    std::fputs("\r\n", stdout);
}

void dcp_bin_rx_def(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}

void dcp_bin_tx_def(dcp_client*, const void*, std::size_t, dcp_bin_cb, void*) {}

dcp_client dcp_clnt_def = {0, dcp_dspl_def, dcp_bin_rx_def, dcp_bin_tx_def, ""};

// The last one is never given away, so that every id that dcp_clnt_add can give has a client.
dcp_client* dcp_clnt[CLIENT_SLOTS + 1];
int dcp_def_clnt;

} // namespace

void dcp_clnt_init()
{
    std::fill(std::begin(dcp_clnt), std::end(dcp_clnt), &dcp_clnt_def);
    dcp_def_clnt = 0;
}

int dcp_clnt_add(dcp_client* p_clnt)
{
    HVT_CHECK(p_clnt && p_clnt->dspl_fn && p_clnt->bin_rx && p_clnt->bin_tx);
    for (int id = 0; id < CLIENT_SLOTS; id++) {
        if (dcp_clnt[id]->dspl_fn != dcp_dspl_def)
            continue;
        dcp_clnt[id] = p_clnt;
        return id;
    }
    return CLIENT_SLOTS;
}

void dcp_clnt_rem(int id)
{
    HVT_CHECK(id >= 0 && id <= CLIENT_SLOTS);
    dcp_clnt[id] = &dcp_clnt_def;
}

dcp_client* dcp_get_clnt(int id)
{
    HVT_CHECK(id >= 0 && id <= CLIENT_SLOTS);
    return dcp_clnt[id];
}

dcp_client* dcp_get_def_clnt()
{
    return dcp_clnt[dcp_def_clnt];
}

int dcp_set_def_clnt(int id)
{
    HVT_CHECK(id >= 0 && id <= CLIENT_SLOTS);
    return std::exchange(dcp_def_clnt, id);
}

int dcp_get_clnt_id(const char* name)
{
    for (int id = 0; id <= CLIENT_SLOTS; id++)
        if (dcp_clnt[id]->nm && std::strcmp(dcp_clnt[id]->nm, name) == 0)
            return id;
    return -1;
}

void dcp_printf(int id, const char* name, const char* fmt, ...)
{
    char txt[DCP_MAX_RESPONSE + 1];
    std::size_t n = std::min(std::strlen(name), DCP_MAX_RESPONSE);
    std::memcpy(txt, name, n);
    if (n < DCP_MAX_RESPONSE)
        txt[n++] = ':';
    std::va_list args;
    va_start(args, fmt);
    if (std::vsnprintf(txt + n, sizeof txt - n, fmt, args) < 0)
        txt[n] = 0; // a character that this locale can't show
    va_end(args);
    if (!dcp_case_get())
        scf_case_to_upper(txt, n);
    dcp_resp_dspl(id, DCP_DSPL_LINE, 0, txt);
}

void dcp_print_long(int id, const char* name, const char* text)
{
    std::string line = std::string(name) + ':';
    if (!dcp_case_get())
        scf_case_to_upper(line.data(), line.size());
    line += text;
    dcp_resp_dspl(id, DCP_DSPL_LINE, 0, line.c_str());
}

int dcp_answer(int id, const char* name, const char* text, int status)
{
    dcp_printf(id, name, "%s", text);
    return status;
}

void dcp_print_raw(int id, const char* text)
{
    dcp_resp_dspl(id, DCP_DSPL_RAW, 0, text);
}

void dcp_resp_dspl(int id, int type, int more, const char* text)
{
    dcp_client* p_clnt = dcp_get_clnt(id);
    p_clnt->dspl_fn(p_clnt, type, more, text);
}

void dcp_bin_tx(int id, const void* buf, std::size_t size, dcp_bin_cb cb, void* arg)
{
    dcp_client* p_clnt = dcp_get_clnt(id);
    p_clnt->bin_tx(p_clnt, buf, size, cb, arg);
}

void dcp_bin_rx(int id, void* buf, std::size_t size, dcp_bin_cb cb, void* arg)
{
    dcp_client* p_clnt = dcp_get_clnt(id);
    p_clnt->bin_rx(p_clnt, buf, size, cb, arg);
}
