#include "unit/display/panel_fake.h"

#include <cerrno>
#include <cstring>
#include <sys/mman.h>

#include "plat_linux/plat_linux.h"
#include "screen/screen.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"
#include "unit/plat_fake.h"

std::vector<fb_var_screeninfo> panel_fake_modes;

namespace {

constexpr int panel_fd = 1000000;
constexpr std::uint8_t fresh = 0xA5; // what the memory holds before anything is drawn

panel_shape shape;
std::vector<std::uint8_t> memory;
screenconf conf;

unsigned line_length()
{
    return shape.width * shape.bits / 8 + shape.line_padding;
}

int panel_open(const char* path, int flags, mode_t bits)
{
    return std::strcmp(path, "/dev/graphics/fb0") == 0 ? panel_fd : plat_linux_co.open(path, flags, bits);
}

int panel_close(int fd)
{
    return fd == panel_fd ? 0 : plat_linux_co.close(fd);
}

int panel_access(const char* path, int how)
{
    if (std::strcmp(path, "/dev/tty0") != 0)
        return plat_linux_co.access(path, how);
    errno = ENOENT;
    return -1;
}

void* panel_mmap(void* addr, std::size_t size, int prot, int flags, int fd, off_t offset)
{
    return fd == panel_fd ? memory.data() : plat_linux_co.mmap(addr, size, prot, flags, fd, offset);
}

void get_var(fb_var_screeninfo* p)
{
    *p = {};
    p->xoffset = p->colorspace = p->reserved[0] = p->reserved[1] = p->reserved[2] =
        7; // a driver's own affair
    p->xres = shape.width;
    p->yres = shape.height;
    p->bits_per_pixel = shape.bits;
    p->red = shape.red;
    p->green = shape.green;
    p->blue = shape.blue;
}

int panel_ioctl(int fd, unsigned long request, void* arg)
{
    if (fd != panel_fd)
        return plat_linux_co.ioctl(fd, request, arg);
    auto* p_var = static_cast<fb_var_screeninfo*>(arg);
    auto* p_fix = static_cast<fb_fix_screeninfo*>(arg);
    switch (request) {
    case FBIOGET_VSCREENINFO:
        get_var(p_var);
        return 0;
    case FBIOGET_FSCREENINFO:
        *p_fix = {};
        std::strcpy(p_fix->id, "fake_80000_1");
        p_fix->line_length = line_length();
        p_fix->smem_len = static_cast<unsigned>(memory.size());
        return 0;
    case FBIOPUT_VSCREENINFO:
        panel_fake_modes.push_back(*p_var);
        return 0;
    case FBIOPAN_DISPLAY:
    case FBIOBLANK:
        return 0;
    default:
        errno = ENOTTY;
        return -1;
    }
}

std::uint32_t word_at(const std::uint8_t* p)
{
    std::uint32_t word = 0;
    std::memcpy(&word, p, shape.bits / 8);
    return word;
}

} // namespace

void panel_fake_start(const panel_shape& new_shape)
{
    shape = new_shape;
    panel_fake_modes.clear();
    memory.assign(std::size_t{line_length()} * shape.height * shape.pages, fresh);
    plat_fake_reset();
    plat_fake_co.open = panel_open;
    plat_fake_co.close = panel_close;
    plat_fake_co.access = panel_access;
    plat_fake_co.mmap = panel_mmap;
    plat_fake_co.ioctl = panel_ioctl;
    conf = {"", "/dev/graphics/fb", "fake_80000", 7, 1, 0};
    screenconf_init();
    screenconf_set(SCREEN_MAIN, &conf);
    screen_init();
    screen_linux_init();
    screen_start(SCREEN_MAIN, 0);
}

std::uint32_t panel_fake_pixel(unsigned x, unsigned y)
{
    return word_at(screen_linux_get_screen_info(SCREEN_MAIN)->draw_base + std::size_t{y} * line_length() +
                   x * shape.bits / 8);
}

std::vector<std::uint32_t> panel_fake_picture()
{
    std::vector<std::uint32_t> picture;
    for (unsigned y = 0; y < shape.height; y++)
        for (unsigned x = 0; x < shape.width; x++)
            picture.push_back(panel_fake_pixel(x, y));
    return picture;
}

bool panel_fake_rest_untouched()
{
    const std::size_t page = std::size_t{line_length()} * shape.height;
    for (std::size_t i = 0; i < memory.size(); i++)
        if ((i >= page || i % line_length() >= line_length() - shape.line_padding) && memory[i] != fresh)
            return false;
    return true;
}
