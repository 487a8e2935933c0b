#include "light_linux/light_linux.h"

#include <atomic>
#include <cstdio>

#include "attr/attr.h"
#include "light/light.h"

namespace {

struct led_row {
    light_dev dev; // first: the light's set function gets its address
    const char* path;
    std::atomic<std::uint16_t> level; // as it was last set, by whatever thread
};

int linux_led_set(light_dev* p_dev, std::uint16_t level)
{
    auto* const p_row = reinterpret_cast<led_row*>(p_dev);
    char text[8];
    std::snprintf(text, sizeof text, "%u", level & 0xFFu);
    p_row->level = level;
    return attr_write(p_row->path, text) == ATTR_OK ? 1 : 0;
}

// clang-format off
led_row led_table[] = {
    // id                              path
    { { {}, 20, linux_led_set }, "/sys/class/leds/red/brightness",                     0 },
    { { {}, 19, linux_led_set }, "/sys/class/leds/green/brightness",                   0 },
    { { {}, 21, linux_led_set }, "/sys/class/leds/blue/brightness",                    0 },
    { { {},  1, linux_led_set }, "/sys/class/leds/lcd-backlight/brightness",           0 },
    { { {},  2, linux_led_set }, "/sys/class/leds/lcd-backlight_01/brightness",        0 },
    { { {},  3, linux_led_set }, "/sys/class/leds/lcd-backlight_02/brightness",        0 },
    { { {},  4, linux_led_set }, "/sys/class/leds/lm3630-lcd-bl-1/brightness",         0 },
    { { {},  5, linux_led_set }, "/sys/class/leds/lm3630-lcd-bl-2/brightness",         0 },
    { { {},  6, linux_led_set }, "/sys/class/backlight/lcd-backlight/brightness",      0 },
    { { {},  7, linux_led_set }, "/sys/class/leds/wled:backlight/brightness",          0 },
    { { {},  8, linux_led_set }, "/sys/class/leds/lcd2-backlight/brightness",          0 },
    { { {}, 10, linux_led_set }, "/sys/class/leds/button-backlight/brightness",        0 },
    { { {}, 11, linux_led_set }, "/sys/class/leds/button-backlight_01/brightness",     0 },
    { { {}, 12, linux_led_set }, "/sys/class/leds/button-backlight_02/brightness",     0 },
    { { {}, 13, linux_led_set }, "/sys/class/leds/button-backlight_03/brightness",     0 },
    { { {}, 14, linux_led_set }, "/sys/class/leds/button-backlight/brightness",        0 },
    { { {}, 47, linux_led_set }, "/sys/class/leds/keyboard-backlight/brightness",      0 },
    { { {}, 48, linux_led_set }, "/sys/class/leds/keyb-backlight_01/brightness",       0 },
    { { {}, 49, linux_led_set }, "/sys/class/leds/keyb-backlight_02/brightness",       0 },
    { { {}, 50, linux_led_set }, "/sys/class/leds/keyb-backlight_03/brightness",       0 },
    { { {}, 51, linux_led_set }, "/sys/class/leds/keyb-backlight_04/brightness",       0 },
    { { {}, 42, linux_led_set }, "/sys/class/leds/torch/brightness",                   0 },
    { { {}, 43, linux_led_set }, "/sys/class/leds/torch_01/brightness",                0 },
    { { {}, 28, linux_led_set }, "/sys/class/leds/tally-light/brightness",             0 },
    { { {}, 54, linux_led_set }, "/sys/class/leds/qk34-led0/brightness",               0 },
    { { {}, 55, linux_led_set }, "/sys/class/leds/qk34-led1/brightness",               0 },
    { { {}, 56, linux_led_set }, "/sys/class/leds/qk34-led2/brightness",               0 },
    { { {}, 57, linux_led_set }, "/sys/class/leds/qk34-led3/brightness",               0 },
    { { {}, 30, linux_led_set }, "/sys/class/leds/product_specific_0/brightness",      0 },
    { { {}, 31, linux_led_set }, "/sys/class/leds/product_specific_0_01/brightness",   0 },
    { { {}, 32, linux_led_set }, "/sys/class/leds/product_specific_0_02/brightness",   0 },
    { { {}, 33, linux_led_set }, "/sys/class/leds/product_specific_1/brightness",      0 },
    { { {}, 58, linux_led_set }, "/sys/class/leds/left-button-red/brightness",         0 },
    { { {}, 59, linux_led_set }, "/sys/class/leds/left-button-green/brightness",       0 },
    { { {}, 60, linux_led_set }, "/sys/class/leds/left-button-blue/brightness",        0 },
    { { {}, 61, linux_led_set }, "/sys/class/leds/home-button-red/brightness",         0 },
    { { {}, 62, linux_led_set }, "/sys/class/leds/home-button-green/brightness",       0 },
    { { {}, 63, linux_led_set }, "/sys/class/leds/home-button-blue/brightness",        0 },
    { { {}, 64, linux_led_set }, "/sys/class/leds/right-button-red/brightness",        0 },
    { { {}, 65, linux_led_set }, "/sys/class/leds/right-button-green/brightness",      0 },
    { { {}, 66, linux_led_set }, "/sys/class/leds/right-button-blue/brightness",       0 },
};
// clang-format on
static_assert(sizeof led_table / sizeof led_table[0] == 41);

} // namespace

void light_linux_init()
{
    for (led_row& row : led_table)
        light_add(&row.dev);
}
