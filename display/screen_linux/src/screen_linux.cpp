#include "screen_linux/screen_linux.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <linux/kd.h>

#include "check/check.h"
#include "plat/plat.h"
#include "screen_linux_inner.h"
#include "screenconf/screenconf.h"

screen_linux_info* p_si;

namespace {

using std::uint32_t;

std::array<screen_linux_info, SCREEN_LAST> screen_info;
uint32_t active_framebuffer; // stays 0: no one sets it
screen_callouts co;

constexpr char CONSOLE_PATH[] = "/dev/tty0";
constexpr char VSYNC_PATH[] = "/dev/vsync_measurement";

constexpr int OPEN_OK = 1;
constexpr int OPEN_FAILED = -1;
constexpr int OPEN_OTHER = -2; // another driver's device

constexpr uint32_t MAX_DEVICES = 32; // the kernel has no more framebuffers

struct fd_guard {
    explicit fd_guard(int descriptor) : fd(descriptor) {}
    fd_guard(const fd_guard&) = delete;
    fd_guard& operator=(const fd_guard&) = delete;
    ~fd_guard()
    {
        if (fd >= 0)
            plat_close(fd);
    }
    int release()
    {
        const int descriptor = fd;
        fd = -1;
        return descriptor;
    }
    int fd;
};

void* as_arg(unsigned long value)
{
    return reinterpret_cast<void*>(value); // a request that takes a number where others take a pointer
}

void use_record(screen_linux_info* p_info)
{
    p_si = p_info;
    draw_select(&co);
    screen_register_platform_co(&co);
}

// The console's picture off (graphics, 1) or on (text, 0): 0, also where there is no console; -1 on failure.
int set_screen_mode(unsigned long mode)
{
    if (plat_access(CONSOLE_PATH, F_OK) != 0)
        return 0;
    if (mode > KD_GRAPHICS)
        return -1;
    const fd_guard console(plat_open(CONSOLE_PATH, O_RDWR | O_DSYNC));
    if (console.fd < 0)
        return -1;
    plat_ioctl(console.fd, KDSETMODE, as_arg(mode)); // a console that keeps its text harms no picture
    return 0;
}

// What the device says of itself can be drawn on.
bool is_usable(const screen_linux_info& info)
{
    const std::uint64_t row = std::uint64_t{info.var.bits_per_pixel} * info.var.xres / 8;
    return info.var.xres > 0 && info.var.yres > 0 && info.fix.line_length >= row && row > 0 &&
           std::uint64_t{info.fix.line_length} * info.var.yres <= info.fix.smem_len;
}

int open_fb(const char* path, const char* id, screen_linux_info* p_info)
{
    if (set_screen_mode(KD_GRAPHICS) != 0)
        return OPEN_FAILED;
    fd_guard device(plat_open(path, O_RDWR));
    if (device.fd < 0 || plat_ioctl(device.fd, FBIOGET_VSCREENINFO, &p_info->var) < 0 ||
        plat_ioctl(device.fd, FBIOGET_FSCREENINFO, &p_info->fix) < 0)
        return OPEN_FAILED;
    if (std::strncmp(p_info->fix.id, id, std::strlen(id)) != 0)
        return OPEN_OTHER;
    if (!is_usable(*p_info))
        return OPEN_FAILED;
    void* p = plat_mmap(nullptr, p_info->fix.smem_len, PROT_READ | PROT_WRITE, MAP_SHARED, device.fd, 0);
    if (p == MAP_FAILED)
        return OPEN_FAILED;
    p_info->draw_base = p_info->map_base = static_cast<std::uint8_t*>(p);
    p_info->frame_size = p_info->fix.line_length * p_info->var.yres;
    if (draw_two_pages(*p_info))
        p_info->double_buffer = 1;
    p_info->fd = device.release();
    return OPEN_OK;
}

int open_slot(screenconf* p_conf, screen_linux_info* p_info)
{
    for (uint32_t n = 0; n < MAX_DEVICES; n++) {
        char path[128];
        std::snprintf(path, sizeof path, "%s%u", p_conf->dev_prefix, static_cast<unsigned>(n));
        const int result = open_fb(path, p_conf->fb_id, p_info);
        if (result == OPEN_OTHER)
            continue;
        if (result != OPEN_OK)
            return 0;
        p_conf->dev_number = n;
        p_info->opened = 1;
        return 1;
    }
    return 0;
}

int platform_screen_start(uint32_t slot)
{
    screenconf* p_conf = slot < SCREEN_LAST ? screenconf_get(slot) : nullptr;
    if (p_conf == nullptr)
        return 0;
    screen_linux_info* p_info = &screen_info[slot];
    p_info->double_buffer = p_conf->double_buffer;
    if (!p_info->driver_loaded) {
        if (p_conf->load_cmd[0] != '\0')
            plat_system(p_conf->load_cmd);
        p_info->driver_loaded = 1;
    }
    if (!p_info->opened && !open_slot(p_conf, p_info))
        return 0; // the screen that was selected stays so
    if (!draw_two_pages(*p_info))
        p_info->double_buffer = 0; // configured, but the memory holds one page
    use_record(p_info);
    return 1;
}

void platform_screen_set_active(uint32_t slot, uint32_t)
{
    if (slot < SCREEN_LAST && screen_info[slot].opened)
        use_record(&screen_info[slot]);
}

int platform_screen_invalidate()
{
    if (p_si == nullptr || plat_ioctl(p_si->fd, FBIOPAN_DISPLAY, &p_si->var) < 0)
        return 0;
    if (!p_si->double_buffer || !draw_two_pages(*p_si))
        return 1;
    p_si->frame_size = p_si->fix.line_length * p_si->var.yres; // a video mode may have changed it
    std::uint8_t* first = p_si->map_base;
    std::uint8_t* second = first + p_si->frame_size;
    if (p_si->var.yoffset != 0) {
        std::memcpy(first, second, p_si->frame_size);
        p_si->var.yoffset = 0;
        p_si->draw_base = first;
    } else {
        std::memcpy(second, first, p_si->frame_size);
        p_si->var.yoffset = p_si->var.yres;
        p_si->draw_base = second;
    }
    return 1;
}

uint32_t platform_screen_width()
{
    return p_si != nullptr ? p_si->var.xres : 0;
}

uint32_t platform_screen_height()
{
    return p_si != nullptr ? p_si->var.yres : 0;
}

int platform_screen_measure_vsync(uint32_t* p_result)
{
    const fd_guard node(plat_open(VSYNC_PATH, O_RDONLY));
    uint32_t value;
    if (node.fd < 0 || plat_read(node.fd, &value, sizeof value) != sizeof value)
        return 0;
    *p_result = value;
    return 1;
}

int platform_screen_control(int op, int value)
{
    if (p_si == nullptr || !p_si->opened)
        return -1;
    switch (op) {
    case SCREEN_CONTROL_BLANK:
        plat_ioctl(p_si->fd, FBIOBLANK, as_arg(FB_BLANK_POWERDOWN));
        mCurrentID = -1; // so that the next mode is set even if it is the same
        return 0;
    case SCREEN_CONTROL_UNBLANK:
        plat_ioctl(p_si->fd, FBIOBLANK, as_arg(FB_BLANK_UNBLANK));
        return 0;
    case SCREEN_CONTROL_MODE:
        return setresolution(value);
    default:
        return -1;
    }
}

uint32_t platform_screen_get_active_framebuffer()
{
    return active_framebuffer;
}

} // namespace

void screen_linux_init()
{
    screen_info.fill({});
    p_si = nullptr;
    mCurrentID = -1;
    co = {};
    co.start = platform_screen_start;
    co.set_active = platform_screen_set_active;
    co.invalidate = platform_screen_invalidate;
    co.width = platform_screen_width;
    co.height = platform_screen_height;
    co.measure_vsync = platform_screen_measure_vsync;
    co.control = platform_screen_control;
    co.active_framebuffer = platform_screen_get_active_framebuffer;
    co.get_lcd_id = platform_screen_get_lcd_id;
    use_record(nullptr);
}

screen_linux_info* screen_linux_get_screen_info(std::uint32_t slot)
{
    HVT_CHECK(slot < SCREEN_LAST);
    return &screen_info[slot];
}
