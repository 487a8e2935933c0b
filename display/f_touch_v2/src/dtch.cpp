#include "dtch.h"

#include <algorithm>
#include <atomic>

#include "cio_v2/cio.h"
#include "screen/screen.h"
#include "tmr/tmr.h"

namespace {

// The modes of the touch test; 0 ends it.
constexpr std::uint32_t MODE_TAP = 1;
constexpr std::uint32_t MODE_TRACE = 2;
constexpr std::uint32_t MODE_PRESS_RELEASE = 3;

constexpr std::uint32_t MOST_INTERVAL_MS = 1000;
constexpr std::uint32_t CROSS_COLOUR = 0xFFFF7F;

// The command may come from a menu while the main loop reports.
std::atomic<int> report_client;
std::atomic<std::uint32_t> report_mode;
std::atomic<std::uint32_t> report_interval_ms; // 0: no limit
std::atomic<std::uint64_t> last_report_us;     // 0: none yet

bool restart(int poll_mode)
{
    if (touch_start() == 0)
        return false;
    touch_stop_evt_hnd();
    return touch_start_evt_hnd(poll_mode) != 0;
}

bool stop()
{
    const bool started = touch_start() != 0;
    touch_stop_evt_hnd();
    touch_stop();
    return started;
}

bool set_mode(std::uint32_t mode)
{
    switch (mode) {
    case MODE_TAP:
        return restart(TOUCH_POLL_TAP);
    case MODE_TRACE:
        return restart(TOUCH_POLL_TRACE);
    case MODE_PRESS_RELEASE:
        return restart(TOUCH_POLL_PRESS_RELEASE);
    default:
        return stop();
    }
}

void print_event(const touch_event& e)
{
    const auto x = static_cast<int>(e.x);
    const auto y = static_cast<int>(e.y);
    const auto x2 = static_cast<int>(e.x2);
    const auto y2 = static_cast<int>(e.y2);
    if (report_mode == MODE_PRESS_RELEASE)
        dcp_printf(report_client, "dtch", "%d,%d,%d,%d,%d,OK", static_cast<int>(e.value), x, y, x2, y2);
    else
        dcp_printf(report_client, "dtch", "%d,%d,%d,%d,OK", x, y, x2, y2);
}

// A bar of the cross whose corner lies `left` and `up` of the touch.
void draw_bar(const touch_event& e, std::uint32_t left, std::uint32_t up, std::uint32_t w, std::uint32_t h)
{
    static const std::uint32_t screen_w = screen_width();
    static const std::uint32_t screen_h = screen_height();
    const auto on_screen = [](std::uint32_t at, std::uint32_t before, std::uint32_t size) {
        const std::int64_t place = std::int64_t{static_cast<std::int32_t>(at)} - before;
        return static_cast<std::uint32_t>(std::clamp<std::int64_t>(place, 0, size));
    };
    screen_rectangle(on_screen(e.x, left, screen_w), on_screen(e.y, up, screen_h), w, h, CROSS_COLOUR,
                     CROSS_COLOUR, 1);
}

void draw_cross(const touch_event& e)
{
    if (screen_get_active() == SCREEN_NONE)
        return;
    const std::lock_guard drawing(screen_drawing);
    draw_bar(e, 1, 2, 2, 4);
    draw_bar(e, 2, 1, 4, 2);
    screen_invalidate();
}

} // namespace

int do_touch_dtch(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        dcp_printf(id, "dtch", "Test active touch device");
        dcp_printf(id, "dtch",
                   "mode(0=off, 1=touch tap on, 2=touch trace on, 3=touch detect press/release, "
                   "interval=1-1000)");
        return DCP_OK;
    }
    int status = DCP_SYNTAX;
    if (argc > 0 && dcp_uint(argv[0]) <= MODE_PRESS_RELEASE) {
        const std::uint32_t mode = dcp_uint(argv[0]);
        const std::uint32_t interval = argc > 1 && mode == MODE_TRACE ? dcp_uint(argv[1]) : 0;
        report_client = id;
        report_interval_ms = interval <= MOST_INTERVAL_MS ? interval : 0;
        report_mode = mode;
        last_report_us = 0;
        status = set_mode(mode) ? DCP_OK : DCP_ERROR;
    }
    return dcp_answer(id, "dtch", " ", status);
}

void touch_cb(const touch_event* p_event)
{
    const std::uint64_t now = tmr_get64();
    const std::uint64_t last = last_report_us;
    if (last != 0 && now - last < std::uint64_t{report_interval_ms} * 1000)
        return;
    const cio_report_lines lines;
    print_event(*p_event);
    draw_cross(*p_event);
    last_report_us = now;
}
