#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "battery/battery.h"
#include "charge/charge.h"
#include "chmon.h"
#include "light/light.h"
#include "plat/plat.h"
#include "powerdown/powerdown.h"
#include "screen/screen.h"

namespace {

constexpr const char* LOG_PATH = "/system/chargemon.txt";
constexpr std::size_t LOG_TEXT = 127; // characters of a line behind its time

constexpr int LIGHT_ZONE_TRICKLE = 18; // a light for charging, on phones that have one
constexpr int SUBZONE_RED = 1;
constexpr std::uint16_t LED_LEVEL = 255;

constexpr std::uint32_t PANEL = 0;
constexpr std::uint32_t MESSAGE_X = 10;
constexpr std::uint32_t MESSAGE_Y = 40;
constexpr std::uint32_t BLACK = 0x000000;

void set_led(std::uint16_t level)
{
    if (light_exist(LIGHT_ZONE_TRICKLE) != 0)
        light_set(LIGHT_ZONE_TRICKLE, LIGHT_SUBZONE_ALL, level);
    else
        light_set(LIGHT_ZONE_MMI, SUBZONE_RED, level);
}

std::uint32_t charge_with(int mode, std::uint32_t ma)
{
    charge_set_mode(mode);
    charge_set_current(ma, 0);
    return ma;
}

} // namespace

void chmon_log(const char* fmt, ...)
{
    char text[LOG_TEXT + 1];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(text, sizeof text, fmt, args);
    va_end(args);
    char line[LOG_TEXT + 32];
    const int len = std::snprintf(line, sizeof line, "[%6u.%03u] %s\n", chmon_fsm.total_ms / 1000,
                                  chmon_fsm.total_ms % 1000, text);
    const int fd = plat_open(LOG_PATH, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0777);
    if (fd < 0)
        return;
    plat_write(fd, line, static_cast<std::size_t>(len));
    plat_close(fd);
}

chmon_reading chmon_read()
{
    chmon_reading now{};
    now.valid = battery_read_capacity(&now.percent, &now.mv, &now.ma) != 0;
    return now;
}

chmon_reading chmon_read_voltage()
{
    chmon_reading now{};
    now.valid = battery_read_voltage(&now.mv) != 0;
    return now;
}

int chmon_median_percent()
{
    int percent[3];
    for (int& p : percent)
        p = chmon_read().percent;
    std::sort(std::begin(percent), std::end(percent));
    chmon_log("capacities read: %d%%, %d%%, %d%%", percent[0], percent[1], percent[2]);
    return percent[1];
}

std::uint32_t chmon_start_charger()
{
    switch (chmon_fsm.charger) {
    case CHARGER_WALL:
        return charge_with(CHARGE_USB, cmcfg.wall_ma);
    case CHARGER_SIMPLE:
        return charge_with(CHARGE_SIMPLE, cmcfg.simple_ma);
    default:
        return 0; // it is gone, and the phone not yet off
    }
}

void chmon_toggle_led()
{
    set_led(chmon_fsm.led_on ? 0 : LED_LEVEL);
    chmon_fsm.led_on = !chmon_fsm.led_on;
}

void chmon_led_start()
{
    light_set(LIGHT_ZONE_MMI, LIGHT_SUBZONE_ALL, 0);
    chmon_fsm.led_on = false;
    chmon_toggle_led();
}

void chmon_led_end()
{
    chmon_fsm.led_on = true;
    chmon_toggle_led();
}

void chmon_backlight(std::uint16_t level)
{
    light_set(LIGHT_ZONE_DISPLAY, LIGHT_SUBZONE_ALL, level);
}

void chmon_show(std::uint32_t colour, const char* message)
{
    screen_start(PANEL, 0);
    screen_clear(colour);
    screen_print(message, MESSAGE_X, MESSAGE_Y, BLACK);
    screen_invalidate();
}

void chmon_shutdown()
{
    chmon_log("Powering off.");
    plat_sync();
    powerdown_off_synced();
}
