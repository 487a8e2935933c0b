#include "f_nfc/f_nfc.h"

#include <array>
#include <cstring>
#include <optional>

#include "dcp/dcp.h"
#include "nfc/nfc.h"
#include "scf/scf.h"

namespace {

constexpr std::size_t LIST_ROOM = 321; // a list of bytes as text, with NUL
constexpr std::uint32_t DEFAULT_POLLING_MS = 2000;
constexpr std::uint32_t DEFAULT_GAP_US = 500;
constexpr std::uint32_t STATE_UNTOLD = 255; // what nffd shows of a chip that has no download
constexpr int VARIANT_UNKNOWN = 3;

bool nfc_started;
std::uint8_t ibuf[NFC_ROOM];
std::uint8_t obuf[NFC_ROOM];
char rbuf[LIST_ROOM];
std::uint8_t resplen;

// What holds for a command before it acts.
struct shape {
    int least, most; // values
    bool needs_chip; // powered up
};

constexpr int ANY = DCP_MAX_VALUES;
constexpr shape NO_VALUE = {0, 0, true};
constexpr shape ONE_VALUE = {1, 1, true};
constexpr shape TWO_VALUES = {2, 2, true};
constexpr shape UNCOUNTED = {0, ANY, false};

const char* label_of(const char* name);

int refuse_count(int id, const char* name, bool too_few)
{
    return dcp_answer(id, name, too_few ? "Too few parameters" : "Too many parameters", DCP_ERROR);
}

// The status of a command that isn't to act: its count of values is looked at in every form, its test form
// shows the label, and most want a chip that is powered up.
std::optional<int> refused(int id, const char* name, int action, int argc, const shape& s)
{
    if (argc < s.least || argc > s.most)
        return refuse_count(id, name, argc < s.least);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, name, label_of(name), DCP_OK);
    if (s.needs_chip && !nfc_started)
        return dcp_answer(id, name, "NFC is not yet powered up", DCP_ERROR);
    return {};
}

int status_of(int result)
{
    if (result == NFC_OK)
        return DCP_OK;
    return result == NFC_ABSENT ? DCP_NOT_FOUND : DCP_ERROR;
}

// For the commands where a driver may refuse the values.
int status_with_4(int result)
{
    return result == NFC_BAD_ARGUMENT ? DCP_SYNTAX : status_of(result);
}

int blank(int id, const char* name, int status)
{
    return dcp_answer(id, name, " ", status);
}

int number_or_blank(int id, const char* name, int number, int status)
{
    if (status != DCP_OK)
        return blank(id, name, status);
    dcp_printf(id, name, "%d", number);
    return DCP_OK;
}

// The bytes in obuf, which are longer than a line of response may be.
int obuf_bytes(int id, const char* name)
{
    scf_bin_to_hexstr(rbuf, sizeof rbuf, obuf, resplen, 1, ',');
    dcp_print_long(id, name, rbuf);
    return DCP_OK;
}

// What the chip answered, or `none` when that is nothing.
int bytes_or_blank(int id, const char* name, const char* none, int status)
{
    if (status != DCP_OK)
        return blank(id, name, status);
    return resplen > 0 ? obuf_bytes(id, name) : dcp_answer(id, name, none, DCP_ERROR);
}

void clear_answer()
{
    std::memset(obuf, 0, sizeof obuf);
    resplen = 0;
}

std::uint32_t value_or(int argc, const dcp_word* argv, int i, std::uint32_t otherwise)
{
    return i < argc ? dcp_uint(argv[i]) : otherwise;
}

int do_nfpu(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfpu", action, argc, {0, 1, false}))
        return *status;
    if (nfc_started)
        return dcp_answer(id, "nfpu", "NFC is alreadey powered up", DCP_ERROR);
    const int result = nfc_start(value_or(argc, argv, 0, 0));
    nfc_started = result == NFC_OK;
    return blank(id, "nfpu", status_of(result));
}

int do_nfpd(int id, int action, int argc, const dcp_word*)
{
    if (const auto status = refused(id, "nfpd", action, argc, NO_VALUE))
        return *status;
    const int result = nfc_stop();
    nfc_started = result != NFC_OK;
    return blank(id, "nfpd", status_of(result));
}

// Bytes to the chip as they are; a form without any has too few, also the test form.
int do_nfcc(int id, int action, int argc, const dcp_word* argv)
{
    std::memset(ibuf, 0, sizeof ibuf);
    int n = 0;
    if (argc > 0) {
        scf_clean(dcp_text(argv[0]), " ");
        n = scf_str_to_uint8(ibuf, sizeof ibuf, dcp_text(argv[0]), 16);
    }
    if (n < 1)
        return refuse_count(id, "nfcc", true);
    if (const auto status = refused(id, "nfcc", action, argc, ONE_VALUE))
        return *status;
    clear_answer();
    const int result = nfc_send(ibuf, static_cast<std::size_t>(n), obuf, &resplen);
    return bytes_or_blank(id, "nfcc", "Data missing", status_of(result));
}

int do_nfid(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfid", action, argc, ONE_VALUE))
        return *status;
    clear_answer();
    const int result = nfc_getid(dcp_uint(argv[0]), obuf, &resplen);
    return bytes_or_blank(id, "nfid", "No data", status_of(result));
}

int do_nfpc(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfpc", action, argc, TWO_VALUES))
        return *status;
    const std::uint32_t line = dcp_uint(argv[0]), on = dcp_uint(argv[1]);
    if (line >= 4 || on >= 2)
        return blank(id, "nfpc", DCP_ERROR);
    return blank(id, "nfpc", status_of(nfc_power_ctrl(line, on)));
}

// The values that a radio function takes, itself included, and what it gives.
enum class rf_gives { nothing, rate, bytes };

struct rf_row {
    int function;
    int values;
    rf_gives gives;
};

// clang-format off
constexpr rf_row rf_functions[] = {
    { 0, 3, rf_gives::nothing },
    { 1, 2, rf_gives::nothing },
    { 2, 3, rf_gives::nothing },
    { 3, 2, rf_gives::nothing },
    { 4, 3, rf_gives::nothing },
    { 5, 2, rf_gives::rate    },
    { 6, 1, rf_gives::bytes   },
    { 7, 3, rf_gives::rate    },
    { 8, 2, rf_gives::nothing },
};
// clang-format on

const rf_row* rf_find(const std::uint16_t* values, int count)
{
    for (const rf_row& row : rf_functions)
        if (count > 0 && row.function == values[0] && row.values == count)
            return &row;
    return nullptr;
}

// The rounds that found a card, in percent of all.
int rf_rate(int id, std::uint32_t rounds)
{
    const int found = obuf[0] | obuf[1] << 8;
    dcp_printf(id, "nfrf", "%.2f", static_cast<double>(found) / rounds * 100);
    return DCP_OK;
}

int do_nfrf(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfrf", action, argc, ONE_VALUE))
        return *status;
    std::uint16_t values[NFC_ROOM] = {};
    scf_clean(dcp_text(argv[0]), " ");
    const int count = scf_str_to_uint16(values, NFC_ROOM, dcp_text(argv[0]), 10);
    const rf_row* const p_row = rf_find(values, count);
    if (p_row == nullptr)
        return blank(id, "nfrf", DCP_SYNTAX);
    clear_answer();
    const int result = nfc_rf_func(values, static_cast<std::size_t>(count), obuf, &resplen);
    if (result != NFC_OK || p_row->gives == rf_gives::nothing)
        return blank(id, "nfrf", status_of(result));
    if (p_row->gives == rf_gives::rate)
        return values[1] != 0 ? rf_rate(id, values[1]) : blank(id, "nfrf", DCP_ERROR);
    return resplen > 0 ? obuf_bytes(id, "nfrf") : DCP_ERROR;
}

int do_nfrr(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfrr", action, argc, ONE_VALUE))
        return *status;
    std::uint8_t value = 0;
    if (const int status = status_of(nfc_getreg(dcp_uint(argv[0]), &value)); status != DCP_OK)
        return blank(id, "nfrr", status);
    dcp_printf(id, "nfrr", "0x%X", unsigned{value});
    return DCP_OK;
}

int do_nfrw(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfrw", action, argc, TWO_VALUES))
        return *status;
    return blank(id, "nfrw", status_of(nfc_setreg(dcp_uint(argv[0]), dcp_uint(argv[1]))));
}

int do_nfpr(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfpr", action, argc, ONE_VALUE))
        return *status;
    std::uint8_t value = 0;
    if (const int status = status_of(nfc_getparam(dcp_uint(argv[0]), &value)); status != DCP_OK)
        return blank(id, "nfpr", status);
    dcp_printf(id, "nfpr", "0x%x", unsigned{value});
    return DCP_OK;
}

int do_nfpw(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfpw", action, argc, TWO_VALUES))
        return *status;
    return blank(id, "nfpw", status_of(nfc_setparam(dcp_uint(argv[0]), dcp_uint(argv[1]))));
}

int do_nfcb(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfcb", action, argc, ONE_VALUE))
        return *status;
    return blank(id, "nfcb", status_of(nfc_change_baud(dcp_uint(argv[0]))));
}

int do_nfst(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfst", action, argc, {0, ANY, true}))
        return *status;
    std::array<std::uint8_t, ANY> values{};
    for (int i = 0; i < argc; i++)
        values[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(argv[i]);
    clear_answer();
    const int result = nfc_selftest(values.data(), static_cast<std::size_t>(argc), obuf, &resplen);
    return bytes_or_blank(id, "nfst", "Data missing", status_with_4(result));
}

int do_nfdt(int id, int action, int argc, const dcp_word*)
{
    if (const auto status = refused(id, "nfdt", action, argc, NO_VALUE))
        return *status;
    int found = 0;
    const int result = nfc_detect_tag(&found);
    return number_or_blank(id, "nfdt", found, status_with_4(result));
}

int do_nfcst(int id, int action, int argc, const dcp_word*)
{
    if (const auto status = refused(id, "nfcst", action, argc, NO_VALUE))
        return *status;
    int answers = 0;
    const int result = nfc_se_conn_test(&answers);
    return number_or_blank(id, "nfcst", answers, status_with_4(result));
}

int do_nfms(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfms", action, argc, {0, 1, false}))
        return *status;
    return blank(id, "nfms", status_of(nfc_mode_switch(value_or(argc, argv, 0, 0))));
}

int do_nfpl(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfpl", action, argc, {0, 2, true}))
        return *status;
    const std::uint64_t time_ms = value_or(argc, argv, 1, DEFAULT_POLLING_MS);
    int found = 0;
    const int result = nfc_polling(value_or(argc, argv, 0, 0), time_ms * 1000, &found);
    return number_or_blank(id, "nfpl", found, status_with_4(result));
}

int do_nfsl(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfsl", action, argc, UNCOUNTED))
        return *status;
    nfc_select(value_or(argc, argv, 0, 0));
    return blank(id, "nfsl", DCP_OK);
}

int do_nflt(int id, int action, int argc, const dcp_word*)
{
    if (const auto status = refused(id, "nflt", action, argc, {0, 0, false}))
        return *status;
    return blank(id, "nflt", status_of(nfc_lock_toggle()));
}

// The level is shown even when it couldn't be read.
int do_nfgr(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfgr", action, argc, UNCOUNTED))
        return *status;
    int level = 0;
    const int result = nfc_gpio_read(value_or(argc, argv, 0, 0), &level);
    dcp_printf(id, "nfgr", "%d", level);
    return status_of(result);
}

int do_nfvc(int id, int action, int argc, const dcp_word*)
{
    if (const auto status = refused(id, "nfvc", action, argc, ONE_VALUE))
        return *status;
    int variant = VARIANT_UNKNOWN;
    const int result = nfc_variant_chk(&variant);
    return number_or_blank(id, "nfvc", variant, status_with_4(result));
}

// Acts in the set form alone, and there for the value 0 alone.
int do_nfct(int id, int action, int argc, const dcp_word* argv)
{
    if (action != DCP_ACTION_SET)
        return dcp_answer(id, "nfct", label_of("nfct"), DCP_OK);
    if (argc != 1 || dcp_uint(argv[0]) != 0)
        return DCP_SYNTAX;
    int supplied = 0;
    const int result = nfc_simvdd_chk(&supplied);
    return number_or_blank(id, "nfct", supplied, status_with_4(result));
}

int do_nfit(int id, int action, int argc, const dcp_word* argv)
{
    if (const auto status = refused(id, "nfit", action, argc, UNCOUNTED))
        return *status;
    std::uint32_t value = value_or(argc, argv, 0, 0);
    if (argc > 1 || value > 1)
        return blank(id, "nfit", DCP_SYNTAX);
    if (argc == 1)
        return blank(id, "nfit", status_with_4(nfc_int_stat_func(1, &value)));
    const int result = nfc_int_stat_func(0, &value);
    return number_or_blank(id, "nfit", static_cast<int>(value), status_with_4(result));
}

// How a download stands shows by its state; that one couldn't be started shows there too.
int do_nffd(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "nfc_fw_dnld", "nffd = [write frame time gap](defauld 500us)\n ", DCP_OK);
    if (const auto status = refused(id, "nffd", action, argc, {0, 1, false}))
        return *status;
    const std::uint32_t value = value_or(argc, argv, 0, 1);
    std::uint32_t state = STATE_UNTOLD;
    if (value != 0)
        nfc_fw_dnld_func(value == 1 ? DEFAULT_GAP_US : value, &state);
    state = STATE_UNTOLD;
    nfc_fw_dnld_func(0, &state);
    dcp_printf(id, "nffd", "%u, %u", state & 7, state >> 3 & 7);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd f_nfc_cmd_tab[] = {
    { "nfpu",  "(0-1)",                         "%d",    "NFC Power Up",                   do_nfpu,  DCP_GRP_PRODUCTION },
    { "nfpd",  "",                              "",      "NFC Power Down",                 do_nfpd,  DCP_GRP_PRODUCTION },
    { "nfcc",  "(...)",                         "%t",    "NFC Send raw data",              do_nfcc,  DCP_GRP_PRODUCTION },
    { "nfid",  "(1-3)",                         "%d",    "NFC Get ID",                     do_nfid,  DCP_GRP_PRODUCTION },
    { "nfpc",  "(0-2),(0,1)",                   "%d,%d", "NFC power LDO/GPIO pin control", do_nfpc,  DCP_GRP_PRODUCTION },
    { "nfrf",  "(0-6),(0-0xFFFF),(0-0xFFFF)",   "%t",    "NFC RF function",                do_nfrf,  DCP_GRP_PRODUCTION },
    { "nfrr",  "(0-0xFFFF)",                    "%d",    "NFC Read RF register",           do_nfrr,  DCP_GRP_PRODUCTION },
    { "nfrw",  "(0-0xFFFF),(0-0xFFFF)",         "%d,%d", "NFC Write RF register",          do_nfrw,  DCP_GRP_PRODUCTION },
    { "nfpr",  "(0-0xFFFF)",                    "%d",    "NFC Read RF parameter",          do_nfpr,  DCP_GRP_PRODUCTION },
    { "nfpw",  "(0-0xFFFF),(0-0xFF)",           "%d,%d", "NFC Write RF parameter",         do_nfpw,  DCP_GRP_PRODUCTION },
    { "nfcb",  "(0-2)",                         "%d",    "NFC Change baud rate",           do_nfcb,  DCP_GRP_PRODUCTION },
    { "nfst",  "[(0-0xFF),(0-0xFF),(0-0xFF),(0-0xFF),(0-0xFF),(0-0xFF)]",
                                "%v,%v,%v,%v,%v,%v",     "NFC Self Test",                  do_nfst,  DCP_GRP_PRODUCTION },
    { "nfdt",  "",                              "",      "NFC Detect tag",                 do_nfdt,  DCP_GRP_PRODUCTION },
    { "nfcst", "",                              "",      "NFC SE Connection test",         do_nfcst, DCP_GRP_PRODUCTION },
    { "nfms",  "(0-1)",                         "%d",    "NFC Mode Switch",                do_nfms,  DCP_GRP_PRODUCTION },
    { "nfpl",  "(0-2),[(0-0xFFFFFFFF)]",        "%d,%d", "NFC Polling",                    do_nfpl,  DCP_GRP_PRODUCTION },
    { "nfsl",  "(0-1)",                         "%d",    "NFC Chip Select",                do_nfsl,  DCP_GRP_PRODUCTION },
    { "nflt",  "",                              "",      "NFC Lock Toggle",                do_nflt,  DCP_GRP_PRODUCTION },
    { "nfgr",  "(1-2)",                         "%d",    "NFC GPIO Read",                  do_nfgr,  DCP_GRP_PRODUCTION },
    { "nfvc",  "(1)",                           "%d",    "NFC (Tamiro) variant check",     do_nfvc,  DCP_GRP_PRODUCTION },
    { "nfct",  "(0-1)",                         "%d",    "NFC SIMVDD Check",               do_nfct,  DCP_GRP_PRODUCTION },
    { "nfit",  "(0-1)",                         "%d",    "NFC (Tamiro) Get/Set INT status", do_nfit, DCP_GRP_PRODUCTION },
    { "nffd",  "(0-0xFFFF)",                    "%d",    "nffd = [write frame time gap](defauld 500us)",
                                                                                           do_nffd,  DCP_GRP_PRODUCTION },
    { nullptr, nullptr, nullptr, nullptr, nullptr, 0 },
};
// clang-format on

const char* label_of(const char* name)
{
    for (const dcp_cmd& row : f_nfc_cmd_tab)
        if (row.name != nullptr && std::strcmp(row.name, name) == 0)
            return row.help;
    return "";
}

dcp_cmd_link f_nfc_link;

} // namespace

void f_nfc_init()
{
    nfc_started = false;
    dcp_cmd_add(f_nfc_cmd_tab, &f_nfc_link);
}
