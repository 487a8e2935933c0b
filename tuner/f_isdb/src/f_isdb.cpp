#include "f_isdb/f_isdb.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "isdb/isdb.h"

namespace {

constexpr int NOT_SELECTED = 255;
constexpr int MISSING = -1;

int circ = NOT_SELECTED; // the reception circuit
int recp = NOT_SELECTED; // 0 the wide path, 1 the narrow one

// The line's values; those behind the third don't count.
struct isdb_values {
    int b;
    int c;
};

// The circuits whose path is chosen by the second value of issl.
bool is_circuit_of_paths()
{
    return circ == 0 || circ == 1 || circ == 4 || circ == 5;
}

// An operation that has nothing to tell but its success.
int answer_done(int id, int done)
{
    return done != 0 ? dcp_answer(id, "isdb", "", DCP_OK) : DCP_ERROR;
}

int isdb_power(int id, isdb_values v)
{
    if (v.b != 0 && v.b != 1)
        return DCP_ERROR;
    return answer_done(id, v.b == 1 ? isdb_pon() : isdb_poff());
}

// Which channels a circuit reaches on a path, and how.
struct tuning_row {
    int circ;
    int recp; // ANY: whatever the path
    int first;
    int last;
    bool by_circuit; // tuned by circuit and path, else by band
};
constexpr int ANY = -1;

// clang-format off
constexpr tuning_row tuning_rows[] = {
    // circ recp first last by_circuit
    { 2,    ANY, 13,   62,  false },
    { 3,    ANY, 13,   62,  false },
    { 0,    0,    0,   32,  true  },
    { 0,    1,    0,   32,  true  },
    { 1,    0,    0,   52,  true  },
    { 1,    1,    0,   52,  true  },
    { 5,    0,   13,   68,  false },
    { 5,    1,   13,   68,  false },
    { 4,    0,    6,    6,  true  },
    { 4,    0,   13,   13,  true  },
    { 4,    0,   19,   19,  true  },
    { 4,    0,   26,   26,  true  },
    { 4,    1,    0,   32,  true  },
};
// clang-format on

int isdb_tune(int id, isdb_values v)
{
    for (const tuning_row& row : tuning_rows) {
        if (row.circ != circ || (row.recp != ANY && row.recp != recp) || v.b < row.first || v.b > row.last)
            continue;
        const auto ch = static_cast<std::uint32_t>(v.b);
        const int path = row.recp == ANY ? 0 : recp;
        if ((row.by_circuit ? isdb_select_mode_ch(circ, path, ch) : isdb_tuning(ch, path)) == 0)
            return DCP_ERROR;
        dcp_printf(id, "isdb", "0x%x", ch);
        return DCP_OK;
    }
    return dcp_answer(id, "isdb", "ISDB-T Chip is not selected yet", DCP_ERROR);
}

int isdb_level(int id, isdb_values v)
{
    std::uint8_t byte = 0;
    if (v.b != 0 || isdb_get_sig_lev(&byte) == 0)
        return DCP_ERROR;
    if (circ == 2)
        dcp_printf(id, "isdb", "0x%x", byte);
    else if (byte <= 128)
        dcp_printf(id, "isdb", "%d", byte);
    else
        dcp_printf(id, "isdb", "-%d", 256 - byte);
    return DCP_OK;
}

int isdb_amplifier(int id, isdb_values v)
{
    return v.b >= 0 && v.b <= 4 ? answer_done(id, isdb_control_lna(v.b)) : DCP_ERROR;
}

int isdb_stream(int id, isdb_values v)
{
    if (v.b == 1)
        return answer_done(id, isdb_lb_op());
    if (v.b != 0 && v.b != 2)
        return DCP_ERROR;
    isdb_stream_result result = {};
    const int passed = v.b == 0 ? isdb_norm_op(&result) : isdb_tptn_op(v.c == MISSING ? 1 : v.c, 0, &result);
    dcp_printf(id, "isdb", "%d,%d,%d", passed == 1 ? 0 : 1, static_cast<int>(result.packets),
               static_cast<int>(result.bad));
    return DCP_OK;
}

int isdb_id(int id, isdb_values)
{
    std::uint8_t byte = 0;
    if (isdb_get_id(&byte) == 0)
        return DCP_ERROR;
    dcp_printf(id, "isdb", "0x%x", byte);
    return DCP_OK;
}

int isdb_lock(int id, isdb_values)
{
    std::uint8_t byte = 0;
    if (isdb_check_sync(&byte, recp) == 0)
        return DCP_ERROR;
    const int state = byte & 0x0F;
    if (is_circuit_of_paths()) {
        if (recp == 0 || recp == 1)
            dcp_printf(id, "isdb", "%d", state == (recp == 0 ? 10 : 5) ? 1 : 0);
    } else if (circ == 3) {
        dcp_printf(id, "isdb", "%d", state);
    } else {
        dcp_printf(id, "isdb", "%d", state == 8 || state == 9 ? 1 : 0);
    }
    return DCP_OK;
}

int isdb_bus(int id, isdb_values v)
{
    std::uint8_t values[] = {static_cast<std::uint8_t>(v.b), static_cast<std::uint8_t>(v.c), 255, 0};
    if (isdb_check_bbif(values) == 0)
        return DCP_ERROR;
    dcp_printf(id, "isdb", "%d,%d,%d,%d", values[0], values[1], values[2], values[3]);
    return DCP_OK;
}

int isdb_antenna(int id, isdb_values v)
{
    return v.b >= 0 && v.b <= 7 ? answer_done(id, isdb_switch_ant(v.b)) : DCP_ERROR;
}

int isdb_error_rates(int id, isdb_values v)
{
    if (v.b != 0 && v.b != 1)
        return DCP_ERROR;
    isdb_bper_result result = {};
    const bool wide = is_circuit_of_paths() && recp == 0 && v.c >= 0 && v.c <= 3;
    const int done = wide ? isdb_get_bper(0, v.b, v.c, &result) : isdb_get_bper(1, v.b, 0, &result);
    if (wide && done == 0)
        return DCP_ERROR;
    dcp_printf(id, "isdb", "%f,%f,%d", result.cn, result.ratio, static_cast<int>(result.lock));
    return DCP_OK;
}

// By the first value; 3 and 4 have no operation.
constexpr int (*isdb_actions[])(int id, isdb_values v) = {
    isdb_power,  isdb_tune, isdb_level, nullptr,  nullptr,      isdb_amplifier,
    isdb_stream, isdb_id,   isdb_lock,  isdb_bus, isdb_antenna, isdb_error_rates,
};
constexpr unsigned ISDB_ACTIONS = sizeof isdb_actions / sizeof *isdb_actions;

int do_isdb(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "isdb", "ISDB command test", DCP_OK);
    if (action == DCP_ACTION_READ)
        return dcp_answer(id, "isdb", "", DCP_ERROR);
    const auto value = [argc, argv](int i) { return i < argc ? dcp_int(argv[i]) : MISSING; };
    const auto a = static_cast<unsigned>(value(0));
    if (a >= ISDB_ACTIONS || isdb_actions[a] == nullptr)
        return DCP_ERROR;
    return isdb_actions[a](id, {value(1), value(2)});
}

int do_issl(int id, int action, int argc, const dcp_word* argv)
{
    if (argc >= 1)
        circ = dcp_int(argv[0]);
    if (argc >= 2)
        recp = dcp_int(argv[1]);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "issl", "ISDB Chip Select", DCP_OK);
    if (action == DCP_ACTION_READ)
        return dcp_answer(id, "issl", " ", DCP_OK);
    const bool known = circ == 2 || circ == 3 || (is_circuit_of_paths() && (recp == 0 || recp == 1));
    return known ? dcp_answer(id, "issl", "", DCP_OK) : DCP_ERROR;
}

// clang-format off
constexpr dcp_cmd f_isdb_cmd_tab[] = {
    { "issl", "(0-2)[(1-2)]", "%v,%v", "issl()", do_issl, DCP_GRP_PRODUCTION },
    { "isdb", "[(0-11)[,(0-2)][,[(0,1)][(0x1-0xFFFF)]]]", "%v,%v,%v", "isdb()", do_isdb, DCP_GRP_PRODUCTION },
    { nullptr, nullptr, nullptr, nullptr, nullptr, 0 },
};
// clang-format on

dcp_cmd_link f_isdb_link;

} // namespace

void f_isdb_init()
{
    circ = NOT_SELECTED;
    recp = NOT_SELECTED;
    dcp_cmd_add(f_isdb_cmd_tab, &f_isdb_link);
}
