// The console: line assembly, answers, terminators, and the commands that set them.
#include "cio_inner.h"

#include "check/check.h"
#include "scf/scf.h"

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

namespace {

constexpr int STATUS_WORDS = 8;
constexpr const char* cio_dcp_resp[STATUS_WORDS] = {"OK",      "ERROR", "SYNTAX", "NOT FOUND",
                                                    "BLOCKED", "",      "",       ""};

constexpr int BIN_TX_DONE = 2;
constexpr int DEFAULT_TERM0 = '\r';
constexpr int DEFAULT_TERM1 = '\n';

std::recursive_mutex cio_mutex; // guards the terminators, and keeps what belongs together in one piece

char cio_term[3] = "\r\n";
char cio_final[4] = "\r\n>";

int set_byte(char* p_byte, int value)
{
    return static_cast<unsigned char>(std::exchange(*p_byte, static_cast<char>(value)));
}

void show_terminators(int id, const char* name, int byte)
{
    dcp_printf(id, name, "0x%02x, 0x%02x", static_cast<unsigned char>(cio_term[byte]),
               static_cast<unsigned char>(cio_final[byte]));
}

// One value for both bytes, two for either; any other number of values is the default for both.
int do_cio_s3(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return DCP_OK;
    const bool given = argc == 1 || argc == 2;
    const int term0 = given ? dcp_int(argv[0]) : DEFAULT_TERM0;
    const int final0 = given ? dcp_int(argv[argc - 1]) : DEFAULT_TERM0;
    if (action == DCP_ACTION_SET)
        cio_s3_set(term0, final0);
    show_terminators(id, "s3", 0);
    return DCP_OK;
}

// The same for the second bytes; the prompt changes only when it is given.
int do_cio_s4(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return DCP_OK;
    const bool given = argc >= 1 && argc <= 3;
    const int term1 = given ? dcp_int(argv[0]) : DEFAULT_TERM1;
    const int final1 = given ? dcp_int(argv[argc == 1 ? 0 : 1]) : DEFAULT_TERM1;
    const int prompt = argc == 3 ? dcp_int(argv[2]) : cio_final[2];
    if (action == DCP_ACTION_SET)
        cio_s4_set(term1, final1, prompt);
    show_terminators(id, "s4", 1);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd cio_cmd_tab[] = {
    // name  range               format      help                   handler    group
    { "s3", "0xB[,0xB]",        "%x,%x",    "s3(ct,final)",        do_cio_s3, DCP_GRP_INVISIBLE },
    { "s4", "0xB[,0xB[,0xB]]",  "%x,%x,%x", "s4(lt,final,prompt)", do_cio_s4, DCP_GRP_INVISIBLE },
    {},
};
// clang-format on

dcp_cmd_link cio_cmd_obj;

void run_line(cio* p_me)
{
    // The byte that makes the line whole goes: a line end, or what came last into a full buffer.
    p_me->cmd.ln[p_me->cmd.len - 1] = 0;
    int status = DCP_NO_WORD;
    if (scf_clean(p_me->cmd.ln, "\r\n") > 0) {
        status = dcp_parse(p_me->clnt.id, p_me->cmd.ln);
        if (status == DCP_NOT_FOUND)
            status = p_me->parse_fn(p_me->cmd.ln, p_me->cmd.size);
    }
    const cio_hold hold;
    if (status >= DCP_OK && status < STATUS_WORDS)
        cio_print(p_me, cio_dcp_resp[status]);
    if (status != DCP_LATER)
        cio_print(p_me, cio_final);
    p_me->cmd.len = 0;
}

} // namespace

void cio_cmd_fn(void* p_cio, void*)
{
    auto* p_me = static_cast<cio*>(p_cio);
    const std::uint32_t room = p_me->cmd.size - p_me->cmd.len;
    const int got = p_me->p_dev_obj->rd(p_me->p_dev_obj, p_me->cmd.ln + p_me->cmd.len, room);
    if (got > 0)
        p_me->cmd.len += static_cast<std::uint32_t>(got);
    if (p_me->cmd.len == 0)
        return;
    const char last = p_me->cmd.ln[p_me->cmd.len - 1];
    if (last == '\n' || last == '\r' || p_me->cmd.len == p_me->cmd.size)
        run_line(p_me);
}

void cio_init(cio* p_me, char* p_ln, std::uint32_t size, const char* nm, const char* dev_nm,
              const void* p_cfg, const char* const* p_greet)
{
    p_me->cmd.len = 0;
    p_me->cmd.size = size;
    p_me->cmd.ln = p_ln ? p_ln : static_cast<char*>(std::malloc(size));
    HVT_CHECK(p_me->cmd.ln && size > 0);
    p_me->clnt = {0, cio_dspl, cio_bin_rx, cio_bin_tx, nm};
    p_me->clnt.id = dcp_clnt_add(&p_me->clnt);
    p_me->p_greet = p_greet;
    p_me->parse_fn = cio_parse;
    const cio_dev* p_dev = cio_dev_find(dev_nm);
    HVT_CHECK(p_dev != nullptr);
    p_me->p_dev_obj = p_dev->create(p_cfg);
    HVT_CHECK(p_me->p_dev_obj != nullptr);
    p_me->p_dev_obj->rd_cb = cio_cmd_fn;
    p_me->p_dev_obj->p_owner = p_me;
}

void cio_start(cio* p_me)
{
    p_me->p_dev_obj->open(p_me->p_dev_obj);
    if (!p_me->p_greet)
        return;
    for (const char* const* p_text = p_me->p_greet; *p_text; p_text++)
        cio_print(p_me, *p_text);
    cio_print(p_me, cio_final);
}

cio_hold::cio_hold()
{
    cio_mutex.lock();
}

cio_hold::~cio_hold()
{
    cio_mutex.unlock();
}

int cio_wr(cio* p_me, const void* buf, std::size_t len)
{
    const cio_hold hold;
    return p_me->p_dev_obj->wr(p_me->p_dev_obj, buf, len);
}

void cio_print(cio* p_me, const char* text)
{
    if (text && *text)
        cio_wr(p_me, text, std::strlen(text));
}

cio_parse_fn cio_parse_attach(cio* p_me, cio_parse_fn fn)
{
    return std::exchange(p_me->parse_fn, fn);
}

int cio_parse(char*, std::size_t)
{
    return DCP_NOT_FOUND;
}

void cio_dspl(dcp_client* p_clnt, int type, int, const char* text)
{
    auto* p_me = reinterpret_cast<cio*>(p_clnt);
    const cio_hold hold;
    cio_print(p_me, text);
    if (type >= 0 && type <= 2)
        cio_print(p_me, cio_dcp_resp[type]);
    if ((type >= 0 && type <= 2) || type == DCP_DSPL_FINAL)
        cio_print(p_me, cio_final);
    else if (type == DCP_DSPL_LINE)
        cio_print(p_me, cio_term);
}

void cio_bin_tx(dcp_client* p_clnt, const void* buf, std::size_t size, dcp_bin_cb cb, void* arg)
{
    cio_wr(reinterpret_cast<cio*>(p_clnt), buf, size);
    if (cb)
        cb(BIN_TX_DONE, arg);
}

void cio_bin_rx(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}

unsigned cio_s3_set(int term0, int final0)
{
    const cio_hold hold;
    const int old_term = set_byte(&cio_term[0], term0);
    const int old_final = set_byte(&cio_final[0], final0);
    return static_cast<unsigned>(old_term | old_final << 8);
}

unsigned cio_s4_set(int term1, int final1, int final2)
{
    const cio_hold hold;
    const int old_term = set_byte(&cio_term[1], term1);
    const int old_final = set_byte(&cio_final[1], final1);
    const int old_prompt = set_byte(&cio_final[2], final2);
    return static_cast<unsigned>(old_term | old_final << 8 | old_prompt << 16);
}

cio_report_lines::cio_report_lines() : s3(cio_s3_set('\r', 0)), s4(cio_s4_set('\n', 0, 0)) {}

cio_report_lines::~cio_report_lines()
{
    cio_s3_set(s3 & 0xFF, s3 >> 8 & 0xFF);
    cio_s4_set(s4 & 0xFF, s4 >> 8 & 0xFF, s4 >> 16 & 0xFF);
}

const char* cio_cmd_term()
{
    return cio_term;
}

const char* cio_cmd_final()
{
    return cio_final;
}

void cio_cmd_init()
{
    dcp_cmd_add(cio_cmd_tab, &cio_cmd_obj);
}
