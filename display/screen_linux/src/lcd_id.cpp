// The panel's identity as the display driver's id file tells it.
#include "screen_linux_inner.h"

#include <algorithm>
#include <cstring>

#include "plat/plat.h"
#include "scf/scf.h"

namespace {

constexpr char ID_PATH_MODE_2[] = "/sys/bus/platform/devices/mipi_dsi_panel.0/panel_id";
constexpr char ID_PATH[] = "/sys/kernel/debug/msm_fb/panel_id";

screen_linux_lcd_id_fn override_get_lcd_id_co;

// Mode 0 gives the second line, every other mode the first; a line that isn't there is empty.
int get_lcd_id_from_idfile(std::uint8_t mode, char* text)
{
    const int fd = plat_open(mode == 2 ? ID_PATH_MODE_2 : ID_PATH, O_RDONLY);
    if (fd < 0)
        return 0;
    char file[SCREEN_LCDID_SIZE + 1] = {};
    const ssize_t count = plat_read(fd, file, SCREEN_LCDID_SIZE);
    plat_close(fd);
    if (count < 0)
        return 0;
    char* lines[2] = {};
    scf_split(file, lines, 2, '\n');
    const char* line = lines[mode == 0 ? 1 : 0];
    const std::size_t length = line != nullptr ? std::min(std::strlen(line), SCREEN_LCDID_SIZE - 1) : 0;
    if (length > 0)
        std::memcpy(text, line, length);
    text[length] = '\0';
    return 1;
}

} // namespace

void screen_linux_attach_lcd_id_co(screen_linux_lcd_id_fn fn)
{
    override_get_lcd_id_co = fn;
}

int platform_screen_get_lcd_id(std::uint8_t mode, std::uint8_t sub_mode, char* text)
{
    if (override_get_lcd_id_co != nullptr)
        return override_get_lcd_id_co(mode, sub_mode, text);
    return get_lcd_id_from_idfile(mode, text);
}
