#include "display/framebuffer.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/fb.h>
#include <mutex>
#include <png.h>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include "core/conf.h"
#include "core/control.h"
#include "core/files.h"
#include "core/notice.h"
#include "core/text.h"
#include "core/watch.h"
#include "display/overlay.h"

namespace phone {

namespace {

constexpr unsigned console_set_mode = 0x4B3A;
constexpr unsigned long request_output_off = 0x40046DFF; // of the HDMI driver alone

struct framebuffer {
    const char* path;
    const char* id;
    unsigned slot; // as the words count them
    unsigned width, height, bits, pages;
    int memory_fd = -1;
    std::uint8_t* memory = nullptr;
    std::size_t size = 0;
    fb_var_screeninfo var{};
    unsigned line_length = 0;
    bool blanked = false;
    overlay_set overlays{};
};

// What a client that looks on is given when overlays cover a framebuffer: a picture made for it.
struct composed {
    int fd = -1;
    std::uint8_t* p = nullptr;
    std::size_t size = 0;
};

std::mutex composed_mutex; // guards the two below
composed pictures[2];

std::mutex fb_mutex; // guards what requests change

framebuffer buffers[] = {
    {.path = "/dev/graphics/fb0",
     .id = "mdssfb_80000",
     .slot = 0,
     .width = 1080,
     .height = 1920,
     .bits = 32,
     .pages = 2},
    {.path = "/dev/graphics/fb1",
     .id = "mdssfb_70000",
     .slot = 2,
     .width = 1920,
     .height = 1080,
     .bits = 32,
     .pages = 1},
};

framebuffer& buffer_of(const open_file& file)
{
    return file.path == buffers[0].path ? buffers[0] : buffers[1];
}

void set_layout(fb_var_screeninfo& var, unsigned bits)
{
    var.bits_per_pixel = bits;
    var.red = {bits == 16 ? 11u : 16u, bits == 16 ? 5u : 8u, 0};
    var.green = {bits == 16 ? 5u : 8u, bits == 16 ? 6u : 8u, 0};
    var.blue = {0, bits == 16 ? 5u : 8u, 0};
    var.transp = {bits == 32 ? 24u : 0u, bits == 32 ? 8u : 0u, 0};
}

int fb_open(open_file& file, int)
{
    return fcntl(buffer_of(file).memory_fd, F_DUPFD_CLOEXEC, 0);
}

int refuse(int error)
{
    errno = error;
    return -1;
}

fb_fix_screeninfo fixed(const framebuffer& fb)
{
    fb_fix_screeninfo fix{};
    std::snprintf(fix.id, sizeof fix.id, "%s", fb.id);
    fix.smem_len = static_cast<unsigned>(fb.size);
    fix.line_length = fb.line_length;
    fix.ypanstep = 1;
    return fix;
}

// The rows of a mode lie behind each other without a gap; a mode that the memory can't hold is refused.
int set_mode(framebuffer& fb, fb_var_screeninfo& wanted)
{
    const std::uint64_t line = std::uint64_t{wanted.xres} * fb.bits / 8;
    if (wanted.xres == 0 || wanted.yres == 0 || wanted.bits_per_pixel != fb.bits ||
        line * wanted.yres > fb.size || wanted.yoffset != 0)
        return refuse(EINVAL);
    set_layout(wanted, fb.bits);
    fb.var = wanted;
    fb.var.activate = 0;
    fb.line_length = static_cast<unsigned>(line);
    return 0;
}

int pan(framebuffer& fb, const fb_var_screeninfo& wanted)
{
    if (wanted.xoffset != 0 || std::uint64_t{wanted.yoffset} + fb.var.yres > fb.size / fb.line_length)
        return refuse(EINVAL);
    fb.var.yoffset = wanted.yoffset;
    return 0;
}

int blank(framebuffer& fb, std::uintptr_t level)
{
    if (level > FB_BLANK_POWERDOWN)
        return refuse(EINVAL);
    fb.blanked = level != FB_BLANK_UNBLANK;
    return 0;
}

int hdmi_off(const framebuffer& fb, const void* arg)
{
    std::uint32_t value;
    std::memcpy(&value, arg, sizeof value);
    if (value == 0)
        return 0;
    strange(std::string("ioctl ") + fb.path + " output " + std::to_string(value));
    return refuse(EINVAL);
}

void tell_change(const framebuffer& fb)
{
    notice("screen " + std::to_string(fb.slot));
}

int carry_out(const open_file& file, framebuffer& fb, unsigned long request, void* arg)
{
    const std::lock_guard lock(fb_mutex);
    if (request == request_output_off && &fb == &buffers[1])
        return hdmi_off(fb, arg);
    if (const auto done = overlay_ioctl(fb.overlays, file.fd, fb.var.xres, fb.var.yres, request, arg))
        return *done;
    switch (request) {
    case FBIOGET_VSCREENINFO:
        *static_cast<fb_var_screeninfo*>(arg) = fb.var;
        return 0;
    case FBIOPUT_VSCREENINFO:
        return set_mode(fb, *static_cast<fb_var_screeninfo*>(arg));
    case FBIOGET_FSCREENINFO:
        *static_cast<fb_fix_screeninfo*>(arg) = fixed(fb);
        return 0;
    case FBIOPAN_DISPLAY:
        return pan(fb, *static_cast<const fb_var_screeninfo*>(arg));
    case FBIOBLANK:
        return blank(fb, reinterpret_cast<std::uintptr_t>(arg));
    default:
        strange("ioctl " + file.path + " request " + std::to_string(request));
        return refuse(ENOTTY);
    }
}

int fb_ioctl(open_file& file, unsigned long request, void* arg)
{
    framebuffer& fb = buffer_of(file);
    const int result = carry_out(file, fb, request, arg);
    if (result == 0 && request != FBIOGET_VSCREENINFO && request != FBIOGET_FSCREENINFO)
        tell_change(fb);
    return result;
}

std::string fb_about(unsigned long request, const void*)
{
    switch (request) {
    case FBIOPAN_DISPLAY:
        return "pan";
    case FBIOBLANK:
        return "blank";
    case request_output_off:
        return "off";
    default:
        return {};
    }
}

void fb_close(open_file& file)
{
    {
        const std::lock_guard lock(fb_mutex);
        overlay_closed(buffer_of(file).overlays, file.fd);
    }
    tell_change(buffer_of(file));
}

constexpr node fb_node = {.open = fb_open, .ioctl = fb_ioctl, .about = fb_about, .close = fb_close};

int console_ioctl(open_file& file, unsigned long request, void* arg)
{
    const auto mode = reinterpret_cast<std::uintptr_t>(arg);
    if (request != console_set_mode) {
        strange("ioctl " + file.path + " request " + std::to_string(request));
        return refuse(ENOTTY);
    }
    return mode > 1 ? refuse(EINVAL) : 0;
}

constexpr node console_node = {.ioctl = console_ioctl};

void add_console()
{
    node_add("/dev/tty0", &console_node);
}

std::uint8_t component(std::uint32_t word, const fb_bitfield& field)
{
    const std::uint32_t most = (1u << field.length) - 1;
    return static_cast<std::uint8_t>((word >> field.offset & most) * 255 / most);
}

// Three bytes, red, green, blue, of a pixel that the panel shows now.
void shown(const framebuffer& fb, unsigned x, unsigned y, std::uint8_t* rgb)
{
    std::uint32_t word = 0;
    if (!fb.blanked && overlay_pixel(fb.overlays, x, y, rgb))
        return;
    if (!fb.blanked)
        std::memcpy(&word,
                    fb.memory + std::size_t{fb.var.yoffset + y} * fb.line_length +
                        std::size_t{x} * fb.bits / 8,
                    fb.bits / 8);
    rgb[0] = component(word, fb.var.red);
    rgb[1] = component(word, fb.var.green);
    rgb[2] = component(word, fb.var.blue);
}

std::string write_png(const framebuffer& fb, const std::string& path)
{
    std::vector<std::uint8_t> rgb(std::size_t{fb.var.xres} * fb.var.yres * 3);
    for (unsigned y = 0; y < fb.var.yres; y++)
        for (unsigned x = 0; x < fb.var.xres; x++)
            shown(fb, x, y, &rgb[(std::size_t{y} * fb.var.xres + x) * 3]);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = fb.var.xres;
    image.height = fb.var.yres;
    image.format = PNG_FORMAT_RGB;
    errno = 0;
    if (png_image_write_to_file(&image, path.c_str(), 0, rgb.data(), 0, nullptr) != 0)
        return {};
    const int error = errno;
    const std::string folder = path.substr(0, path.rfind('/'));
    if (error == ENOENT && access(folder.c_str(), F_OK) != 0)
        return path + ": can't be written: there is no folder " + folder;
    return path + ": can't be written: " + (error != 0 ? std::strerror(error) : image.message);
}

framebuffer* buffer_in_slot(const std::string& text)
{
    for (framebuffer& fb : buffers)
        if (number(text) == fb.slot)
            return &fb;
    return nullptr;
}

std::string about(const framebuffer& fb)
{
    return std::to_string(fb.var.xres) + "x" + std::to_string(fb.var.yres) + "x" + std::to_string(fb.bits) +
           " page " + std::to_string(fb.var.yoffset / fb.var.yres) +
           (fb.blanked ? " blanked" : " unblanked") + " mode " + std::to_string(fb.var.reserved[3]);
}

// Memory that holds `size` bytes in `picture`; false when there is none.
bool make_room(composed& picture, std::size_t size)
{
    if (picture.size == size)
        return true;
    if (picture.fd < 0)
        picture.fd = memfd_create("composed", MFD_CLOEXEC);
    if (picture.p != nullptr)
        munmap(picture.p, picture.size);
    picture.p = nullptr;
    picture.size = 0;
    void* p = MAP_FAILED;
    if (picture.fd >= 0 && ftruncate(picture.fd, static_cast<off_t>(size)) == 0)
        p = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, picture.fd, 0);
    if (p == MAP_FAILED)
        return false;
    picture.p = static_cast<std::uint8_t*>(p);
    picture.size = size;
    return true;
}

// Makes the picture of a framebuffer that overlays cover. `now` is a copy: the program isn't held up.
int compose_locked(const framebuffer& now, composed& picture)
{
    const std::size_t line = std::size_t{now.var.xres} * 4;
    if (!make_room(picture, line * now.var.yres))
        return -1;
    const std::uint8_t* from = now.memory + std::size_t{now.var.yoffset} * now.line_length;
    const unsigned bytes = now.bits / 8;
    std::uint8_t* to = picture.p;
    for (unsigned y = 0; y < now.var.yres; y++, from += now.line_length, to += line) {
        if (bytes == 4) {
            std::memcpy(to, from, line);
            continue;
        }
        for (unsigned x = 0; x < now.var.xres; x++) {
            std::uint32_t word = 0;
            std::memcpy(&word, from + std::size_t{x} * bytes, bytes);
            to[x * 4] = component(word, now.var.blue);
            to[x * 4 + 1] = component(word, now.var.green);
            to[x * 4 + 2] = component(word, now.var.red);
        }
    }
    overlay_paint(now.overlays, picture.p, line);
    return picture.fd;
}

// Hands out the memory of what is shown, to be read alone: the framebuffer's own, or a picture made with the
// overlays.
std::string share(const framebuffer& fb, request& rq)
{
    if (rq.p_connection == nullptr)
        return "only a connection can be given a descriptor";
    rq.only_looks = true;
    framebuffer now{};
    {
        const std::lock_guard lock(fb_mutex);
        now = fb;
    }
    const std::lock_guard lock(composed_mutex);
    const bool covered = !now.blanked && !now.overlays.pipes.empty();
    const int fd = covered ? compose_locked(now, pictures[fb.slot == 0 ? 0 : 1]) : now.memory_fd;
    rq.p_connection->handed_out = open(("/proc/self/fd/" + std::to_string(fd)).c_str(), O_RDONLY | O_CLOEXEC);
    if (rq.p_connection->handed_out < 0)
        return std::string("the memory can't be handed out: ") + std::strerror(errno);
    const std::size_t line = covered ? std::size_t{now.var.xres} * 4 : now.line_length;
    rq.answer = std::to_string(now.var.xres) + "x" + std::to_string(now.var.yres) + "x" +
                std::to_string(covered ? 32 : now.bits) + " line " + std::to_string(line) + " from " +
                std::to_string(covered ? 0 : now.var.yoffset * line) +
                (now.blanked ? " blanked" : " unblanked");
    return {};
}

std::string word_screen(request& rq)
{
    framebuffer* p_fb = &buffers[0];
    const bool slot = !rq.args.empty() && number(rq.args.back());
    if (slot)
        p_fb = buffer_in_slot(rq.args.back());
    const std::string file = request_text(rq, 0, slot ? 1 : 0);
    if (p_fb == nullptr)
        return "the slots are 0, the panel, and 2, the HDMI output";
    if (file == "share")
        return share(*p_fb, rq);
    if (!file.empty() && !file.ends_with(".png"))
        return "[FILE.png|share] [SLOT] is wanted";
    const std::lock_guard lock(fb_mutex);
    if (!file.empty())
        return write_png(*p_fb, request_file(rq, file));
    rq.answer = about(*p_fb);
    return {};
}

std::string word_pixel(request& rq)
{
    if (rq.args.size() < 2 || rq.args.size() > 3)
        return "X Y [SLOT] is wanted";
    const auto x = number(rq.args[0]), y = number(rq.args[1]);
    const framebuffer* p_fb = rq.args.size() == 3 ? buffer_in_slot(rq.args[2]) : &buffers[0];
    const std::lock_guard lock(fb_mutex);
    if (!x || !y || p_fb == nullptr || *x < 0 || *y < 0 || *x >= p_fb->var.xres || *y >= p_fb->var.yres)
        return "no such pixel";
    std::uint8_t rgb[3];
    shown(*p_fb, static_cast<unsigned>(*x), static_cast<unsigned>(*y), rgb);
    rq.answer = to_hex(rgb, sizeof rgb);
    return {};
}

// WxHxBITS PAGES
std::string shape(framebuffer& fb, const std::vector<std::string>& args)
{
    unsigned width, height, bits;
    char rest;
    const auto pages = args.size() == 2 ? number(args[1]) : std::nullopt;
    if (!pages || std::sscanf(args[0].c_str(), "%ux%ux%u%c", &width, &height, &bits, &rest) != 3)
        return "WIDTHxHEIGHTxBITS PAGES is wanted";
    if (width < 1 || width > 8192 || height < 1 || height > 8192 || *pages < 1 || *pages > 4)
        return "1 to 8192 pixels each way and 1 to 4 pages are possible";
    if (bits != 16 && bits != 24 && bits != 32)
        return "a pixel has 16, 24 or 32 bits";
    fb.width = width;
    fb.height = height;
    fb.bits = bits;
    fb.pages = static_cast<unsigned>(*pages);
    return {};
}

std::string conf_panel(const std::vector<std::string>& args)
{
    return shape(buffers[0], args);
}

std::string conf_hdmi(const std::vector<std::string>& args)
{
    return shape(buffers[1], args);
}

} // namespace

void framebuffer_attach()
{
    for (const framebuffer& fb : buffers)
        node_add(fb.path, &fb_node);
    path_optional("/dev/graphics/fb2"); // a search for a driver's device ends where there is none
    conf_add("panel", conf_panel);
    conf_add("hdmi", conf_hdmi);
    conf_offer("/dev/tty0", add_console);
    word_add("screen", "[FILE.png|share] [SLOT]",
             "writes what the panel shows, or tells its size, page and mode; share hands its memory out, a "
             "descriptor beside the answer, and tells where in it the picture lies",
             word_screen);
    word_add("pixel", "X Y [SLOT]", "the colour of a pixel that the panel shows", word_pixel);
}

void framebuffer_start()
{
    for (framebuffer& fb : buffers) {
        fb.line_length = fb.width * fb.bits / 8;
        fb.size = std::size_t{fb.line_length} * fb.height * fb.pages;
        fb.var.xres = fb.var.xres_virtual = fb.width;
        fb.var.yres = fb.height;
        fb.var.yres_virtual = fb.height * fb.pages;
        set_layout(fb.var, fb.bits);
        fb.memory_fd = memfd_create(fb.path, MFD_CLOEXEC);
        void* p = MAP_FAILED;
        if (fb.memory_fd >= 0 && ftruncate(fb.memory_fd, static_cast<off_t>(fb.size)) == 0)
            p = mmap(nullptr, fb.size, PROT_READ, MAP_SHARED, fb.memory_fd, 0);
        if (p == MAP_FAILED) {
            std::fprintf(stderr, "hvt: no memory for %s: %s\n", fb.path, std::strerror(errno));
            std::exit(1);
        }
        fb.memory = static_cast<std::uint8_t*>(p);
    }
}

std::pair<unsigned, unsigned> framebuffer_panel_size()
{
    return {buffers[0].width, buffers[0].height};
}

} // namespace phone
