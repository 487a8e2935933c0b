// The command shell: the list of all command tables, the parser that turns one text line into a call of a
// command's handler, and the handlers' means of answering. It knows nothing of ports and line ends: those are
// the client's (the console, the bridge of the menu scripts). dcp_init comes before everything else in main;
// tables and clients are added during start-up and stay. A parse keeps all it has on the caller's stack.
#pragma once

#include <cstddef>
#include <cstdint>

#include "dlnk/dlnk.h"

// One value of a line. A number is a 32-bit value, zero-extended; a text is a pointer into the line.
using dcp_word = std::uintptr_t;

inline std::uint32_t dcp_uint(dcp_word word)
{
    return static_cast<std::uint32_t>(word);
}
inline std::int32_t dcp_int(dcp_word word)
{
    return static_cast<std::int32_t>(dcp_uint(word));
}
inline char* dcp_text(dcp_word word)
{
    return reinterpret_cast<char*>(word);
}

// Status of a handler, of dcp_parse and of a parser extension. 5 to 7 show no word, 8 means that the answer
// comes later as a line of its own.
constexpr int DCP_OK = 0;
constexpr int DCP_ERROR = 1;
constexpr int DCP_SYNTAX = 2;
constexpr int DCP_NOT_FOUND = 3;
constexpr int DCP_BLOCKED = 4;
constexpr int DCP_NO_WORD = 5;
constexpr int DCP_LATER = 8;

// What the line asks of a handler: `name` or `name=...`, `name?...`, `name=?...`.
constexpr int DCP_ACTION_SET = 0;
constexpr int DCP_ACTION_READ = 1;
constexpr int DCP_ACTION_TEST = 2;

// Group bits of a command. A row of group 0 is listed under every mask.
constexpr std::uint32_t DCP_GRP_INVISIBLE = 0x01;
constexpr std::uint32_t DCP_GRP_STANDARD = 0x02;
constexpr std::uint32_t DCP_GRP_PRODUCTION = 0x04;
constexpr std::uint32_t DCP_GRP_SOFTWARE = 0x08;
constexpr std::uint32_t DCP_GRP_PRECOND = 0x10;
constexpr std::uint32_t DCP_GRP_DEPRECATED = 0x20;
constexpr std::uint32_t DCP_GRP_UNBLOCKED = 0x40; // stays available while the parser is blocked

// Display types: what a client is told about a text. The console appends a status word and the final sequence
// to 0..2, the final sequence to 5, the line term to 6 and nothing to the others.
constexpr int DCP_DSPL_FINAL = 5;
constexpr int DCP_DSPL_LINE = 6;
constexpr int DCP_DSPL_RAW = 7;
constexpr int DCP_DSPL_DUMP = 8;

// A line has at most this many values; one more is a syntax error.
constexpr int DCP_MAX_VALUES = 16;

// dcp_printf forms at most this many characters, name and colon included, and cuts what is longer.
constexpr std::size_t DCP_MAX_RESPONSE = 255;

// What dcp_cmd_dspl writes at most, with its NUL.
constexpr std::size_t DCP_CMD_LINE = 100;

// A command's handler. `id` is the client to answer, `argc` the number of values in the line. argv[argc] and
// what is behind it holds nothing defined; an optional text left out is a null word. Texts stay valid until
// the handler returns. The result is a status. The handler checks the ranges of its values; for
// DCP_ACTION_TEST it prints what help it has (or nothing), and the parser adds the usage line.
using dcp_fn = int (*)(int id, int action, int argc, const dcp_word* argv);

// One row of a command table. A table ends with a row whose `fn` is null.
struct dcp_cmd {
    const char* name;   // lower case, matched whole
    const char* range;  // for the reader only
    const char* format; // of the values, as nav_get_val reads it; empty: the command takes none
    const char* help;
    dcp_fn fn;
    std::uint32_t grp;
};

// A table's place in the list of tables: static storage of the module that owns the table.
struct dcp_cmd_link {
    dlnk link;
    const dcp_cmd* p_tab;
};

using dcp_bin_cb = void (*)(int event, void* arg); // event 2: all bytes have been taken

// A client: where the text of an answer goes.
struct dcp_client {
    int id; // its slot, from dcp_clnt_add
    void (*dspl_fn)(dcp_client* p_clnt, int type, int more, const char* text);
    void (*bin_rx)(dcp_client* p_clnt, void* buf, std::size_t size, dcp_bin_cb cb, void* arg);
    void (*bin_tx)(dcp_client* p_clnt, const void* buf, std::size_t size, dcp_bin_cb cb, void* arg);
    const char* nm;
};

// Starts the shell: no table but its own (help, list, case), all client slots on the default client, which
// writes to standard output; names matched as typed; nothing blocked, no extension, no filter.
void dcp_init();

// Adds a table at the end of the list. Where two rows have one name, the first in the list is called.
void dcp_cmd_add(const dcp_cmd* p_cmd, dcp_cmd_link* p_obj);

// The list of tables. The neighbour of a link is null at either end; a null `p_link` stands for the head.
dlnk* dcp_cmd_list();
dcp_cmd_link* dcp_cmd_tab_next(const dcp_cmd_link* p_link);
dcp_cmd_link* dcp_cmd_tab_prev(const dcp_cmd_link* p_link);

// Rows of a table, the end row not counted; row `i` of a table.
int dcp_cmd_cnt(const dcp_cmd_link* p_link);
const dcp_cmd* dcp_cmd_sel(const dcp_cmd_link* p_link, int i);

// Field `i` of a row: 0 name, 1 range, 2 format, 3 help; null for any other.
const char* dcp_cmd_str(const dcp_cmd* p_cmd, int i);
const char* dcp_cmd_help(const dcp_cmd* p_cmd);
const char* dcp_cmd_range(const dcp_cmd* p_cmd);
const char* dcp_cmd_format(const dcp_cmd* p_cmd);
std::uint32_t dcp_cmd_grp(const dcp_cmd* p_cmd);

// Writes a row as text to `p_txt`, which has room for DCP_CMD_LINE bytes: the usage line for `form` 1, the
// padded name alone otherwise.
void dcp_cmd_dspl(char* p_txt, const dcp_cmd* p_cmd, int form);

// Parses one line and calls the handler. The line is text without line end; it is changed in place. The
// result is the status, which the caller shows.
int dcp_parse(int id, char* line);

// Installs an extension for lines whose name isn't in the list; gives the former one. Null restores the
// default: DCP_NOT_FOUND, or DCP_OK for an empty line.
using dcp_parse_fn = int (*)(int id, char* line);
dcp_parse_fn dcp_parser_add(dcp_parse_fn fn);

// Installs a filter that each line passes before all else. Null removes it.
using dcp_line_fn = char* (*)(char* line);
void dcp_attach_cmd_line_cb(dcp_line_fn fn);

// Non-zero: all commands without DCP_GRP_UNBLOCKED answer DCP_BLOCKED.
void dcp_block_parser(int flag);

// 1: names are matched and answered as written. 0: the name in a line is folded to lower case, the name in a
// response to upper case; the values never.
int dcp_case_get();
void dcp_case_set(int flag);

// Puts a client, which the caller keeps alive, in the first free slot and gives its number (0 to 9). With
// none free the result is 10, the slot of the default client, and the record isn't stored.
int dcp_clnt_add(dcp_client* p_clnt);
void dcp_clnt_rem(int id);
dcp_client* dcp_get_clnt(int id);
dcp_client* dcp_get_def_clnt();
int dcp_set_def_clnt(int id);          // gives the former number
int dcp_get_clnt_id(const char* name); // -1 when no slot has that name

// Answering. A line of response is "NAME:value" at client `id`, the name in the case that is in force; the
// client appends its line term. dcp_printf cuts it at DCP_MAX_RESPONSE characters; dcp_print_long sends a
// text of any length in full.
void dcp_printf(int id, const char* name, const char* fmt, ...) __attribute__((format(printf, 3, 4)));
void dcp_print_long(int id, const char* name, const char* text);

// A line of response with `text` behind the name, and `status` as the result: how most handlers end. Stations
// compare what stands there, so "" (the bare name) and " " (one blank) are two different answers.
int dcp_answer(int id, const char* name, const char* text, int status);

// A piece of an answer that is sent in pieces: `text` as it is, neither name nor line term.
void dcp_print_raw(int id, const char* text);

// Shows `text` at client `id` as it is, under a display type; `more` is 1 for a row of a listing.
void dcp_resp_dspl(int id, int type, int more, const char* text);

// The client's binary transfer. `cb`, which may be null, is called when the bytes have been taken.
void dcp_bin_tx(int id, const void* buf, std::size_t size, dcp_bin_cb cb, void* arg);
void dcp_bin_rx(int id, void* buf, std::size_t size, dcp_bin_cb cb, void* arg);

// A hex listing: rows of 16 bytes, each behind the address `addr`, which counts from what is given and not
// from where the data is. `width` is 1, 2 or 4, `size` counts bytes; a rest smaller than an item isn't shown.
void dcp_hex_dspl(int id, std::uint32_t addr, const void* p_data, unsigned width, std::size_t size);

// A bare dump: each item with `sep` behind it, shown alone under DCP_DSPL_DUMP. A width other than 2 or 4
// means bytes.
void dcp_hex_dump(int id, char sep, const void* p_data, unsigned width, std::size_t size);
