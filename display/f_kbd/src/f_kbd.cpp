#include "f_kbd/f_kbd.h"

#include <atomic>
#include <cstdio>

#include "cio_v2/cio.h"
#include "dcp/dcp.h"
#include "input_linux/codes.h"
#include "kbd/kbd.h"
#include "pin/pin.h"
#include "pin/signals.h"

namespace {

// Forms of the key test's reports.
constexpr int FORM_OFF = 0;
constexpr int FORM_STRING = 1;
constexpr int FORM_NUMERIC = 2;
constexpr int FORM_MATRIX = 3;
constexpr int FORM_HW_KEY = 4; // nothing but the HW key
constexpr int FORM_LAST = 4;

constexpr int CAMD_STATUS = 5;
constexpr int CAMD_LAST_MOVE = 4; // close, open and the like: this phone's cover is moved by hand

kbd_observer f_kbd_observer;
// The command may come from a menu while the main loop reports.
std::atomic<int> f_kbd_client;
std::atomic<int> f_kbd_form = FORM_OFF; // FORM_OFF: the test isn't active

void report_string(int code, const char* action)
{
    char text[32];
    char c;
    if (const char* name = kbd_sc_nm_get(code); name[0] != '\0')
        std::snprintf(text, sizeof text, "%s%s", name, action);
    else if (kbd_cnv_to_char(code, &c) == 0)
        std::snprintf(text, sizeof text, "%c%s", c, action);
    else
        return dcp_printf(f_kbd_client, "keyb", "unknown");
    dcp_resp_dspl(f_kbd_client, DCP_DSPL_LINE, 0, text);
}

void report_matrix(int code, const char* action)
{
    int column = 0;
    int row = 0;
    kbd_sc_to_matrix_pos(code, &column, &row);
    dcp_printf(f_kbd_client, "keyb", " row: %x, col: %x, %s", static_cast<unsigned>(row),
               static_cast<unsigned>(column), action);
}

// Comes beside the command flow, so the report is a line of its own with line ends of its own.
void f_kbd_evt_cb(int code, int action)
{
    const char* const text = action == KBD_PRESSED ? "p" : "r";
    const bool hw_key = code == INPUT_KEY_HW;
    if ((f_kbd_form == FORM_STRING && hw_key) || (f_kbd_form == FORM_HW_KEY && !hw_key))
        return;
    const cio_report_lines lines;
    if (f_kbd_form == FORM_MATRIX)
        report_matrix(code, text);
    else if (f_kbd_form == FORM_NUMERIC)
        dcp_printf(f_kbd_client, "keyb", "%x,%s", static_cast<unsigned>(code), text);
    else
        report_string(code, text);
}

int test_start(int id, int form)
{
    if (kbd_start() == 0)
        return DCP_ERROR;
    f_kbd_client = id;
    f_kbd_form = form;
    kbd_evt_attach(&f_kbd_observer, f_kbd_evt_cb);
    kbd_evt_exclusive(&f_kbd_observer, 1);
    return DCP_OK;
}

int test_stop()
{
    const int done = kbd_stop();
    kbd_evt_exclusive(&f_kbd_observer, 0);
    kbd_evt_detach(&f_kbd_observer);
    f_kbd_form = FORM_OFF;
    return done != 0 ? DCP_OK : DCP_ERROR;
}

int test_set(int id, int form)
{
    const bool active = f_kbd_form != FORM_OFF;
    if (form == FORM_OFF)
        return active ? test_stop() : DCP_OK;
    if (!active)
        return test_start(id, form);
    f_kbd_form = form;
    return DCP_OK;
}

int do_keyb(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "keyb", "Key test", DCP_OK);
    if (action == DCP_ACTION_READ) {
        dcp_printf(id, "keyb", "0x%x", f_kbd_form != FORM_OFF ? 1u : 0u);
        return DCP_OK;
    }
    const int active_form = f_kbd_form;
    const int as_it_is = active_form != FORM_OFF ? active_form : FORM_STRING;
    const int form = argc > 0 ? dcp_int(argv[0]) : as_it_is;
    if (form < FORM_OFF || form > FORM_LAST) {
        dcp_printf(id, "keyb", " Control value out of range: %d ", form);
        return DCP_ERROR;
    }
    const int status = test_set(id, form);
    return dcp_answer(id, "keyb", " ", status);
}

int cover_status(int id, const char* name)
{
    dcp_printf(id, name, "%s", pin_in_get(PIN_IN_CAMERA_COVER) != PIN_INACTIVE ? "0x1" : "0x0");
    return DCP_OK;
}

int do_camd(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return DCP_OK;
    if (argc == 0)
        return DCP_SYNTAX;
    const int what = dcp_int(argv[0]);
    if (what == CAMD_STATUS)
        return cover_status(id, "camd");
    if (what < 0 || what > CAMD_LAST_MOVE)
        return DCP_SYNTAX;
    return dcp_answer(id, "camd", "N/A", DCP_ERROR);
}

int do_camds(int id, int action, int, const dcp_word*)
{
    return action == DCP_ACTION_TEST ? DCP_OK : cover_status(id, "camds");
}

// clang-format off
constexpr dcp_cmd f_kbd_cmd_tab[] = {
    { "keyb",  "(0-3)",         "%d",    "off,string,numeric,columms", do_keyb,  DCP_GRP_PRODUCTION },
    { "camd",  "(0-5),(1-100)", "%d,%d", "close,open,status",          do_camd,  DCP_GRP_PRODUCTION },
    { "camds", "",              "",      "status",                     do_camds, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_kbd_link;

} // namespace

void f_kbd_init()
{
    dcp_cmd_add(f_kbd_cmd_tab, &f_kbd_link);
}
