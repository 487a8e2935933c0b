#include "screen/screen.h"

#include <algorithm>

#include "bmp/bmp.h"
#include "check/check.h"
#include "screen_inner.h"

screen_callouts screen_pf_co;
std::uint32_t active_screen = SCREEN_NONE;
std::uint32_t font_scale_factor = 1;
std::recursive_mutex screen_drawing;

namespace {

// From these widths on a character is twice and three times its own size.
constexpr std::uint32_t WIDTH_SCALE_2 = 720;
constexpr std::uint32_t WIDTH_SCALE_3 = 1080;

} // namespace

void screen_init()
{
    screen_pf_co = {};
    active_screen = SCREEN_NONE;
    font_scale_factor = 1;
}

void screen_register_platform_co(const screen_callouts* p_co)
{
    screen_pf_co = *p_co;
}

int screen_start(std::uint32_t n, std::uint32_t draw)
{
    HVT_CHECK(screen_pf_co.start != nullptr);
    const int result = screen_pf_co.start(n);
    if (result != 1)
        return result;
    active_screen = n;
    const std::uint32_t width = screen_width();
    font_scale_factor = width >= WIDTH_SCALE_3 ? 3 : width < WIDTH_SCALE_2 ? 1 : 2;
    if (draw != 0)
        screen_draw_startscreen();
    return 1;
}

int screen_stop(std::uint32_t n)
{
    if (active_screen == n)
        active_screen = SCREEN_NONE;
    return 1;
}

std::uint32_t screen_get_active()
{
    return active_screen;
}

void screen_set_active(std::uint32_t n, std::uint32_t value)
{
    active_screen = n;
    HVT_CHECK(screen_pf_co.set_active != nullptr);
    screen_pf_co.set_active(n, value);
}

int screen_invalidate()
{
    if (!screen_is_active())
        return 0;
    HVT_CHECK(screen_pf_co.invalidate != nullptr);
    return screen_pf_co.invalidate();
}

int screen_control(int op, int value)
{
    if (!screen_is_active())
        return -1;
    HVT_CHECK(screen_pf_co.control != nullptr);
    return screen_pf_co.control(op, value);
}

std::uint32_t screen_width()
{
    if (!screen_is_active())
        return 0;
    HVT_CHECK(screen_pf_co.width != nullptr);
    return screen_pf_co.width();
}

std::uint32_t screen_height()
{
    if (!screen_is_active())
        return 0;
    HVT_CHECK(screen_pf_co.height != nullptr);
    return screen_pf_co.height();
}

std::uint32_t screen_char_width()
{
    return screen_is_active() ? FONT_CELL * font_scale_factor : 0;
}

std::uint32_t screen_char_height()
{
    return screen_is_active() ? FONT_CELL * font_scale_factor : 0;
}

void screen_put_pixel(std::uint32_t x, std::uint32_t y, std::uint32_t colour)
{
    if (!screen_is_active())
        return;
    HVT_CHECK(screen_pf_co.put_pixel != nullptr);
    screen_pf_co.put_pixel(x, y, colour);
}

void screen_clear(std::uint32_t colour)
{
    if (!screen_is_active())
        return;
    HVT_CHECK(screen_pf_co.clear != nullptr);
    screen_pf_co.clear(colour);
}

int screen_load_image(const char* path)
{
    if (!screen_is_active())
        return 0;
    bmp_image image;
    if (!bmp_load(path, &image))
        return 0;
    const std::size_t stride = image.width * static_cast<std::size_t>(image.bits / 8);
    const std::uint32_t rows = std::min(image.height, screen_height());
    for (std::uint32_t y = 0; y < rows; y++)
        screen_bgr(0, y, image.width, image.pixels.get() + y * stride);
    return 1;
}

int screen_measure_vsync(std::uint32_t* p_result)
{
    if (!screen_is_active())
        return 0;
    HVT_CHECK(screen_pf_co.measure_vsync != nullptr);
    return screen_pf_co.measure_vsync(p_result);
}

int screen_get_lcdid(std::uint8_t mode, std::uint8_t sub_mode, char* text)
{
    HVT_CHECK(screen_pf_co.get_lcd_id != nullptr);
    return screen_pf_co.get_lcd_id(mode, sub_mode, text);
}

std::uint32_t screen_get_active_framebuffer()
{
    HVT_CHECK(screen_pf_co.active_framebuffer != nullptr);
    return screen_pf_co.active_framebuffer();
}
