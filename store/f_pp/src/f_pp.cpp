#include "f_pp/f_pp.h"

#include <cstdint>
#include <cstring>

#include "dcp/dcp.h"
#include "scf/scf.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

enum class pp_form { text, number };

constexpr std::uint32_t PP_ANY = 0xFFFFFFFF;
constexpr std::uint32_t PP_VARIANT = 11; // its absence is neither an error nor a line
constexpr int PP_NO_ITEM = 0;
constexpr std::size_t PP_ROOM = 32;

struct pp_row {
    std::uint32_t p1;
    std::uint32_t p2; // PP_ANY: any
    int trim1;
    int trim2; // or PP_NO_ITEM
    pp_form form;
};

// clang-format off
constexpr pp_row ppre_tab[] = {
    // p1  p2      trim items       form
    {  0,  0,       4, PP_NO_ITEM,  pp_form::text   },
    {  1,  0,       5, 6,           pp_form::text   },
    {  1,  1,       7, 8,           pp_form::text   },
    {  3,  PP_ANY,  3, PP_NO_ITEM,  pp_form::number },
    {  5,  PP_ANY, 16, PP_NO_ITEM,  pp_form::text   },
    {  6,  PP_ANY, 18, PP_NO_ITEM,  pp_form::number },
    {  7,  PP_ANY, 17, PP_NO_ITEM,  pp_form::text   },
    {  8,  0,      11, PP_NO_ITEM,  pp_form::text   },
    {  8,  1,      12, PP_NO_ITEM,  pp_form::text   },
    {  9,  0,      13, PP_NO_ITEM,  pp_form::text   },
    {  9,  1,      14, PP_NO_ITEM,  pp_form::text   },
    { 10,  PP_ANY, 15, PP_NO_ITEM,  pp_form::text   },
    { 11,  PP_ANY,  1, PP_NO_ITEM,  pp_form::text   },
};
// clang-format on

const pp_row* ppre_find(std::uint32_t p1, std::uint32_t p2)
{
    for (const pp_row& row : ppre_tab)
        if (row.p1 == p1 && (row.p2 == PP_ANY || row.p2 == p2))
            return &row;
    return nullptr;
}

// Reads the items of a row into `buf`, which was cleared and stays ended by a NUL: whether all were there.
bool ppre_read(const pp_row& row, char (&buf)[PP_ROOM])
{
    if (trim_rd(row.trim1, buf, PP_ROOM - 1) == 0)
        return false;
    if (row.trim2 == PP_NO_ITEM)
        return true;
    const std::size_t len = std::strlen(buf);
    if (len + 2 >= PP_ROOM)
        return false;
    buf[len] = ',';
    return trim_rd(row.trim2, buf + len + 1, PP_ROOM - len - 2) != 0;
}

int do_ppre(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ppre", "Production Parameter Read", DCP_OK);
    const std::uint32_t p1 = argc > 0 ? dcp_uint(argv[0]) : 0;
    const std::uint32_t p2 = argc > 1 ? dcp_uint(argv[1]) : 0;
    const pp_row* const p_row = ppre_find(p1, p2);
    if (p_row == nullptr)
        return dcp_answer(id, "ppre", "", DCP_SYNTAX);
    char buf[PP_ROOM] = {};
    const bool all_read = ppre_read(*p_row, buf);
    if (p_row->form == pp_form::number) {
        std::int32_t number;
        std::memcpy(&number, buf, sizeof number);
        dcp_printf(id, "ppre", "%d", number);
        return DCP_OK;
    }
    if (!all_read)
        return p1 == PP_VARIANT ? DCP_OK : dcp_answer(id, "ppre", "", DCP_ERROR);
    dcp_printf(id, "ppre", "%s", buf);
    return DCP_OK;
}

int ppwr_text(const char* text)
{
    constexpr std::size_t MOST = 10;
    return trim_wr(TRIM_PP_TEXT, text, strnlen(text, MOST));
}

int ppwr_number(const char* text)
{
    std::int32_t number = 0;
    scf_str_to_int32(&number, 1, text, 10);
    return trim_wr(TRIM_PP_NUMBER, &number, sizeof number);
}

int do_ppwr(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "ppwr", "Production Parameter Write", DCP_OK);
    if (argc < 2)
        return dcp_answer(id, "ppwr", "", DCP_SYNTAX);
    const char* const text = dcp_text(argv[1]);
    switch (dcp_uint(argv[0])) {
    case 0:
        return dcp_answer(id, "ppwr", "", ppwr_text(text) != 0 ? DCP_OK : DCP_ERROR);
    case 3:
        return dcp_answer(id, "ppwr", "", ppwr_number(text) != 0 ? DCP_OK : DCP_ERROR);
    default:
        return dcp_answer(id, "ppwr", "", DCP_SYNTAX);
    }
}

// clang-format off
constexpr dcp_cmd f_pp_cmd_tab[] = {
    { "ppre", "(0,1,3,5-10)[,(0,1)]", "%v,%v", "ppre()", do_ppre, DCP_GRP_PRODUCTION },
    { "ppwr", "(0,3),S",              "%v,%t", "ppwr()", do_ppwr, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_pp_link;

} // namespace

void f_pp_init()
{
    dcp_cmd_add(f_pp_cmd_tab, &f_pp_link);
}
