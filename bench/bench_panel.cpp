#include "bench_panel.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/fb.h>
#include <sys/mman.h>
#include <unistd.h>

#include "plat/plat.h"
#include "plat_linux/plat_linux.h"
#include "screen/screen.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"

namespace {

std::size_t memory_size;
int panel_fd = -1;
plat_callouts panel_co;

int panel_open(const char* path, int flags, mode_t mode)
{
    return std::strncmp(path, "/dev/graphics/fb", 16) == 0 ? panel_fd : plat_linux_co.open(path, flags, mode);
}

int panel_close(int fd)
{
    return fd == panel_fd ? 0 : plat_linux_co.close(fd);
}

int panel_ioctl(int fd, unsigned long request, void* arg)
{
    if (fd != panel_fd)
        return plat_linux_co.ioctl(fd, request, arg);
    if (request == FBIOGET_VSCREENINFO) {
        auto* p = static_cast<fb_var_screeninfo*>(arg);
        *p = {};
        p->xres = panel_width;
        p->yres = panel_height;
        p->bits_per_pixel = 32;
        p->red = {16, 8, 0};
        p->green = {8, 8, 0};
        p->blue = {0, 8, 0};
    } else if (request == FBIOGET_FSCREENINFO) {
        auto* p = static_cast<fb_fix_screeninfo*>(arg);
        *p = {};
        std::snprintf(p->id, sizeof p->id, "bench");
        p->line_length = panel_width * 4;
        p->smem_len = static_cast<unsigned>(memory_size);
    }
    return 0;
}

} // namespace

void bench_panel(unsigned pages)
{
    memory_size = pages * frame_bytes;
    panel_fd = memfd_create("panel", MFD_CLOEXEC);
    if (panel_fd < 0 || ftruncate(panel_fd, static_cast<off_t>(memory_size)) != 0)
        std::exit(1);
    panel_co = plat_linux_co;
    panel_co.open = panel_open;
    panel_co.close = panel_close;
    panel_co.ioctl = panel_ioctl;
    panel_co.system = [](const char*) { return 0; };
    plat_attach(&panel_co);
    static char empty[] = "", prefix[] = "/dev/graphics/fb", id[] = "bench";
    static screenconf conf = {empty, prefix, id, 0, 1, 0};
    screenconf_init();
    screenconf_set(SCREEN_MAIN, &conf);
    screenconf_set(SCREEN_HDMI, &conf);
    screen_init();
    screen_linux_init();
}

plat_callouts bench_panel_table()
{
    return panel_co;
}
