// The screen's back end on Linux framebuffers: opens and maps them, writes pixels in the device's layout,
// pans and copies pages, sets video modes, blanks, reads the VSYNC period. A device, once open, stays so. No
// function here but the attached callouts draws.
#pragma once

#include <cstdint>
#include <linux/fb.h>

// One screen slot. `yoffset` in `var` names the page that the next pan brings up, which is the one that is
// drawn on.
struct screen_linux_info {
    int fd;
    std::uint8_t* draw_base;
    std::uint8_t* map_base;
    fb_var_screeninfo var;
    fb_fix_screeninfo fix;
    std::uint32_t opened;
    std::uint32_t driver_loaded;
    std::uint32_t double_buffer;
    std::uint32_t frame_size; // bytes of a page
};

void screen_linux_init();

// The record of a slot below SCREEN_LAST, for who changes its video mode: such a one reads `fd` and may write
// `fix.line_length`. Drawing stays inside the mapped memory whatever stands there.
screen_linux_info* screen_linux_get_screen_info(std::uint32_t slot);

// Reads the panel's identity into `text` (SCREEN_LCDID_SIZE bytes): 1, or 0.
using screen_linux_lcd_id_fn = int (*)(std::uint8_t mode, std::uint8_t sub_mode, char* text);

// The product's own way to read the identity, instead of the id file; null for the id file.
void screen_linux_attach_lcd_id_co(screen_linux_lcd_id_fn fn);
