#include "f_screen/f_screen.h"

#include <cstring>
#include <mutex>

#include "check/check.h"
#include "dcp/dcp.h"
#include "f_screen_inner.h"
#include "screen/screen.h"
#include "screenconf/screenconf.h"
#include "trim/items.h"
#include "trim/trim.h"

namespace {

using std::uint32_t;

// The persistent VSYNC record: high byte, low byte, and both again mirrored.
constexpr std::size_t VSYNC_BYTES = 4;

constexpr uint32_t PATTERN_LEVEL = 14; // the one pattern that takes a second value

void check_action(int action)
{
    HVT_CHECK(action == DCP_ACTION_SET || action == DCP_ACTION_READ || action == DCP_ACTION_TEST);
}

bool no_screen()
{
    return screen_get_active() == SCREEN_NONE;
}

int show()
{
    return screen_invalidate() ? DCP_OK : DCP_ERROR;
}

int do_dbox(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dbox", " ", DCP_OK);
    if (no_screen())
        return dcp_answer(id, "dbox", " ", DCP_ERROR);
    const uint32_t colour = colour_at(argc, argv, 5);
    screen_rectangle(value_at(argc, argv, 0, 0), value_at(argc, argv, 1, 0), value_at(argc, argv, 2, 0),
                     value_at(argc, argv, 3, 0), colour, colour, 1);
    return dcp_answer(id, "dbox", " ", show());
}

int do_dpat(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST) {
        dcp_printf(id, "dpat", "mode(0x0=tv,0x1=chess,0x2=invers chess,0x3=white,0x4=black)");
        dcp_printf(id, "dpat", "mode(0x5=black on grey,0x6=medium grey,0x7=rgb stripes)");
        dcp_printf(id, "dpat", "mode(0x8=black/medium grey lines, 0xA=red,0xB=green,0xC=blue)");
        return dcp_answer(id, "dpat", " ", DCP_OK);
    }
    const uint32_t mode = value_at(argc, argv, 0, 0);
    if (argc > 1 && mode != PATTERN_LEVEL)
        return DCP_SYNTAX;
    if (no_screen())
        return dcp_answer(id, "dpat", " ", DCP_ERROR);
    pattern_draw(mode, value_at(argc, argv, 1, 0));
    return dcp_answer(id, "dpat", " ", show());
}

int do_dfig(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dfig", " ", DCP_OK);
    if (no_screen())
        return dcp_answer(id, "dfig", " ", DCP_ERROR);
    const int status = figure_draw(argc, argv);
    screen_invalidate(); // the answer is about the figure alone
    return dcp_answer(id, "dfig", " ", status);
}

int do_dclr(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dclr", " ", DCP_OK);
    if (no_screen())
        return dcp_answer(id, "dclr", " ", DCP_ERROR);
    screen_clear(colour_at(argc, argv, 1));
    return dcp_answer(id, "dclr", " ", show());
}

int do_dtxt(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dtxt", " ", DCP_OK);
    const char* text = argc > 5 ? dcp_text(argv[5]) : nullptr;
    const uint32_t x = value_at(argc, argv, 0, 0), y = value_at(argc, argv, 1, 0);
    if (no_screen() || text == nullptr || x >= screen_width() || y >= screen_height())
        return dcp_answer(id, "dtxt", " ", DCP_ERROR);
    screen_print(text, x, y, colour_at(argc, argv, 2));
    return dcp_answer(id, "dtxt", " ", show());
}

// 1 to 3 are the slots 0 to 2.
int load_screen(uint32_t n, bool draw_given, uint32_t draw)
{
    if (n < 1 || n > SCREEN_LAST)
        return DCP_ERROR;
    const screenconf* p_conf = screenconf_get(n - 1);
    if (p_conf == nullptr)
        return DCP_ERROR;
    if (!draw_given)
        draw = !p_conf->no_startscreen;
    return screen_start(n - 1, draw) == 1 ? DCP_OK : DCP_ERROR;
}

int do_lcdl(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "lcdl", " ", DCP_OK);
    return dcp_answer(id, "lcdl", " ",
                      load_screen(value_at(argc, argv, 0, 0), argc > 1, value_at(argc, argv, 1, 0)));
}

bool store_vsync(uint32_t value)
{
    const auto high = static_cast<std::uint8_t>(value >> 8), low = static_cast<std::uint8_t>(value);
    const std::uint8_t record[VSYNC_BYTES] = {high, low, low, high};
    return trim_wr(TRIM_VSYNC, record, sizeof record) == 1;
}

bool read_vsync(uint32_t* p_value)
{
    std::uint8_t record[VSYNC_BYTES];
    if (trim_rd(TRIM_VSYNC, record, sizeof record) != VSYNC_BYTES || record[0] != record[3] ||
        record[1] != record[2])
        return false;
    *p_value = record[0] * 256u + record[1];
    return true;
}

int do_lvsm(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "lvsm", "Measure LCD VSYNC period.", DCP_OK);
    uint32_t value = 0;
    bool done = false;
    switch (value_at(argc, argv, 0, 0)) {
    case 0:
        done = screen_measure_vsync(&value) == 1;
        break;
    case 1:
        done = screen_measure_vsync(&value) == 1 && store_vsync(value);
        break;
    case 2:
        done = read_vsync(&value);
        break;
    default:
        return dcp_answer(id, "lvsm", " ", DCP_SYNTAX);
    }
    if (!done)
        return dcp_answer(id, "lvsm", " ", DCP_ERROR);
    dcp_printf(id, "lvsm", "0x%X", static_cast<unsigned>(value));
    return DCP_OK;
}

int do_lcid(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "lcid", "Print LCD HW ID.", DCP_OK);
    char text[SCREEN_LCDID_SIZE] = "";
    const bool done = screen_get_lcdid(static_cast<std::uint8_t>(value_at(argc, argv, 0, 0)),
                                       static_cast<std::uint8_t>(value_at(argc, argv, 1, 0)), text) == 1;
    dcp_printf(id, "lcid", "%s", done ? text : "");
    return done ? DCP_OK : DCP_ERROR;
}

int do_dimg(int id, int action, int argc, const dcp_word* argv)
{
    check_action(action);
    const std::lock_guard drawing(screen_drawing);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "dimg", "Load and display image file", DCP_OK);
    const char* path = argc > 0 ? dcp_text(argv[0]) : nullptr;
    dcp_answer(id, "dimg", " ", DCP_OK); // before the picture is loaded
    if (no_screen() || path == nullptr || screen_load_image(path) != 1)
        return DCP_ERROR;
    return show();
}

// clang-format off
constexpr dcp_cmd f_screen_cmd_tab[] = {
    { "dbox", "(...)", "%v,%v,%v,%v,%v,%v,%v,%v", "box(x,y,w,h,a,r,g,b)", do_dbox, DCP_GRP_PRODUCTION },
    { "dpat", "(0-0x2f,0-255)", "%v,%v", "pattern(mode)", do_dpat, DCP_GRP_PRODUCTION },
    { "dfig", "(...)", "%v,%v,%v,%v,%v,%v,%v,%v,%v,%v", "figure(act,x0,y0,x1,y1,w,a,r,g,b)", do_dfig,
      DCP_GRP_PRODUCTION },
    { "dclr", "(0-0xff)[,(0-0xff)[,(0-0xff)[,(0-0xff)]]]", "%v,%v,%v,%v", "clear(alpha,r,g,b)", do_dclr,
      DCP_GRP_PRODUCTION },
    { "dtxt", "(0-240),(0-320),(0-255),(0-255),(0-255),(a-z,A-Z)", "%v,%v,%v,%v,%v,%s",
      "text(x,y,r,g,b,str)", do_dtxt, DCP_GRP_PRODUCTION },
    { "lcdl", "(0-2)[,(0-1)]", "%v,%v", "load(mode)", do_lcdl, DCP_GRP_PRODUCTION },
    { "lvsm", "[(1-2)]", "%v", "LCD VSYNC Measurement", do_lvsm, DCP_GRP_PRODUCTION },
    { "lcid", "[(0-3)][,(0-6)]", "%v,%d", "lcd_id(mode[,sub_mode])", do_lcid, DCP_GRP_PRODUCTION },
    { "dimg", "a...z", "%s", "image(file)", do_dimg, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_screen_cmd_link;

} // namespace

void f_screen_init()
{
    dcp_cmd_add(f_screen_cmd_tab, &f_screen_cmd_link);
}
