#include "camera_durnspire_qualcomm_inner.h"

#include <cstdio>
#include <cstring>
#include <linux/fb.h>
#include <mutex>

#include "camera/camera.h"
#include "camera_durnspire/drns.h"
#include "msm_display.h"
#include "plat/plat.h"
#include "screen/screen.h"
#include "screenconf/screenconf.h"

namespace {

constexpr int FAILED = -1;
constexpr int NOT_OPEN = -1;
constexpr const char* ROTATOR_PATH = "/dev/msm_rotator";
constexpr std::uint32_t TURNS_BY_OVERLAY = 1; // rotation mode

// The display driver's flags for the rotation codes 0 to 7.
constexpr std::uint32_t rotation_flags[] = {0, 1, 4, 5, 3, 2, 7, 6};

std::mutex mutex; // guards all below

struct {
    int fd;
    std::uint32_t width, height;
} framebuffer_handle;

struct {
    int rotator_fd;
    drns_heap heap;
    std::uint32_t size; // 0: none is held
    std::uintptr_t address;
} rotate_buf;

mdp_overlay overlay;  // on the screen
mdp_overlay overlay2; // the job that turns a picture
msmfb_overlay_data ov_front;
msmfb_overlay_data ov_back;
bool overlay_initialized; // `overlay` is set

bool turns_by_overlay()
{
    return camconf_get_mem_config().rotation_mode == TURNS_BY_OVERLAY;
}

bool is_quarter_turn(std::int32_t rotation)
{
    return (rotation & 2) != 0;
}

void close_descriptor(int& fd)
{
    if (fd != NOT_OPEN)
        plat_close(fd);
    fd = NOT_OPEN;
}

// Notes the screen's size; false for the device of another driver than the configured one.
bool read_framebuffer(int fd, const char* id)
{
    fb_var_screeninfo var;
    fb_fix_screeninfo fix;
    if (plat_ioctl(fd, FBIOGET_VSCREENINFO, &var) < 0 || plat_ioctl(fd, FBIOGET_FSCREENINFO, &fix) < 0 ||
        std::strncmp(fix.id, id, std::strlen(id)) != 0)
        return false;
    framebuffer_handle.width = var.xres;
    framebuffer_handle.height = var.yres;
    return true;
}

bool free_rotate_buf()
{
    if (rotate_buf.size != 0 && camera_get_platform_callout()->munmap(&rotate_buf.heap) < 1)
        return false;
    rotate_buf.size = 0;
    rotate_buf.address = 0;
    return true;
}

bool have_rotate_buf(std::uint32_t size)
{
    if (rotate_buf.size == size)
        return true;
    if (!free_rotate_buf())
        return false;
    rotate_buf.address = camera_get_platform_callout()->mmap(size, &rotate_buf.heap);
    rotate_buf.size = rotate_buf.address != 0 ? size : 0;
    return rotate_buf.size != 0;
}

// The picture as large as fits, in the middle, at even sizes.
mdp_rectangle camera_durnspire_qualcomm_resolve_blit_req_data(std::uint32_t width, std::uint32_t height)
{
    const std::uint32_t screen_width = framebuffer_handle.width, screen_height = framebuffer_handle.height;
    const auto scale = [&](float by) {
        width = static_cast<std::uint32_t>(static_cast<float>(width) * by);
        height = static_cast<std::uint32_t>(static_cast<float>(height) * by);
    };
    if (width > screen_width)
        scale(static_cast<float>(screen_width) / static_cast<float>(width));
    if (height > screen_height)
        scale(static_cast<float>(screen_height) / static_cast<float>(height));
    return {(screen_width - width) >> 1, (screen_height - height) >> 1, width & ~1u, height & ~1u};
}

std::uint32_t camera_durnspire_qualcomm_yuv_format_2_mdp_format(std::uint32_t format)
{
    return format == 1 ? 7 : format == 2 ? 2 : UINT32_MAX;
}

mdp_overlay filled(const mdp_image& src, const mdp_rectangle& dst, std::uint32_t flags, std::uint32_t id)
{
    mdp_overlay o = {};
    o.src = src;
    o.src_rect = {0, 0, src.width, src.height};
    o.dst_rect = dst;
    o.alpha = 255;
    o.transparency_mask = MDP_NO_TRANSPARENCY;
    o.flags = flags;
    o.id = id;
    return o;
}

// Sets the overlay of turned pictures on the first frame, and anew, under its id, when it no longer fits.
bool set_front(const mdp_image& turned)
{
    mdp_overlay wanted = filled(
        turned, camera_durnspire_qualcomm_resolve_blit_req_data(turned.width, turned.height), 0, overlay.id);
    if (overlay_initialized && std::memcmp(&wanted, &overlay, sizeof wanted) == 0)
        return true;
    if (plat_ioctl(framebuffer_handle.fd, MSMFB_OVERLAY_SET, &wanted) < 0)
        return false;
    overlay = wanted;
    ov_front = {};
    ov_front.id = overlay.id;
    overlay_initialized = true;
    return true;
}

bool rotate_by_overlay(const mdp_image& src, const mdp_image& turned, std::uint32_t flags,
                       const msmfb_data& from, const msmfb_data& to)
{
    overlay2 = filled(src, {0, 0, turned.width, turned.height}, flags | MDP_WRITE_BACK, overlay2.id);
    if (plat_ioctl(framebuffer_handle.fd, MSMFB_OVERLAY_SET, &overlay2) < 0)
        return false;
    ov_back = {};
    ov_back.id = overlay2.id;
    ov_back.src = from;
    ov_back.dst = to;
    return plat_ioctl(framebuffer_handle.fd, MSMFB_OVERLAY_PLAY, &ov_back) >= 0;
}

bool rotate_by_rotator(const mdp_image& src, const mdp_image& turned, std::uint32_t flags,
                       const msmfb_data& from, const msmfb_data& to)
{
    msm_rotator_image image = {};
    image.src = src;
    image.dst = turned;
    image.src_rect = {0, 0, src.width, src.height};
    image.rotations = flags;
    image.enable = 1;
    if (plat_ioctl(rotate_buf.rotator_fd, MSM_ROTATOR_START, &image) < 0)
        return false;
    msm_rotator_data data = {};
    data.session = image.session;
    data.src = from;
    data.dst = to;
    const bool rotated = plat_ioctl(rotate_buf.rotator_fd, MSM_ROTATOR_ROTATE, &data) >= 0;
    return plat_ioctl(rotate_buf.rotator_fd, MSM_ROTATOR_FINISH, &image.session) >= 0 && rotated;
}

bool camera_durnspire_qualcomm_rotate_image(const camera_frame& frame, const mdp_image& src,
                                            const mdp_image& turned, std::int32_t rotation,
                                            const msmfb_data& to)
{
    const msmfb_data from = {frame.offset, frame.memory_id, {}};
    const auto rotate = turns_by_overlay() ? rotate_by_overlay : rotate_by_rotator;
    return rotate(src, turned, rotation_flags[rotation], from, to);
}

bool camera_durnspire_qualcomm_refresh_screen()
{
    return plat_ioctl(framebuffer_handle.fd, MSMFB_OVERLAY_PLAY, &ov_front) >= 0;
}

// Takes back an id that the display driver has given.
bool unset(std::uint32_t& id)
{
    if (id != MDP_NEW_ID && plat_ioctl(framebuffer_handle.fd, MSMFB_OVERLAY_UNSET, &id) < 0)
        return false;
    id = MDP_NEW_ID;
    return true;
}

void forget_overlays()
{
    overlay.id = overlay2.id = MDP_NEW_ID;
    overlay_initialized = false;
}

} // namespace

void camera_durnspire_qualcomm_screen_init()
{
    framebuffer_handle = {NOT_OPEN, 0, 0};
    rotate_buf = {};
    rotate_buf.rotator_fd = NOT_OPEN;
    overlay = overlay2 = {};
    ov_front = ov_back = {};
    forget_overlays();
}

int camera_durnspire_qualcomm_open_framebuffer()
{
    const std::lock_guard lock(mutex);
    const std::uint32_t slot = screen_get_active();
    const screenconf* p = slot < SCREEN_LAST ? screenconf_get(slot) : nullptr;
    if (p == nullptr)
        return FAILED;
    char path[64];
    std::snprintf(path, sizeof path, "%s%u", p->dev_prefix, p->dev_number);
    close_descriptor(framebuffer_handle.fd);
    forget_overlays();
    framebuffer_handle.fd = plat_open(path, O_RDWR);
    if (framebuffer_handle.fd < 0)
        return FAILED;
    if (!read_framebuffer(framebuffer_handle.fd, p->fb_id)) {
        close_descriptor(framebuffer_handle.fd);
        return FAILED;
    }
    if (!turns_by_overlay()) {
        close_descriptor(rotate_buf.rotator_fd);
        rotate_buf.rotator_fd = plat_open(ROTATOR_PATH, O_RDWR);
    }
    return 1;
}

int camera_durnspire_qualcomm_close_framebuffer()
{
    const std::lock_guard lock(mutex);
    const bool freed = free_rotate_buf();
    close_descriptor(rotate_buf.rotator_fd);
    close_descriptor(framebuffer_handle.fd); // and with it goes what is set on it
    forget_overlays();
    return freed ? 0 : FAILED;
}

int camera_durnspire_qualcomm_send_yuv_to_screen(std::uint32_t, std::int32_t rotation,
                                                 const camera_frame* p_frame)
{
    const std::lock_guard lock(mutex);
    if (framebuffer_handle.fd < 0)
        return 1;
    if (p_frame == nullptr || rotation < 0 ||
        rotation >= static_cast<std::int32_t>(std::size(rotation_flags)))
        return FAILED;
    const mdp_image src = {p_frame->width, p_frame->height,
                           camera_durnspire_qualcomm_yuv_format_2_mdp_format(p_frame->format)};
    const bool swapped = is_quarter_turn(rotation);
    const mdp_image turned = {swapped ? src.height : src.width, swapped ? src.width : src.height, src.format};
    const std::uint32_t pixels = src.width * src.height;
    if (!set_front(turned) || !have_rotate_buf(p_frame->format == 2 ? pixels * 3 / 2 : pixels * 2))
        return FAILED;
    const msmfb_data to = {0, static_cast<std::int32_t>(rotate_buf.heap.memory_id), {}};
    if (!camera_durnspire_qualcomm_rotate_image(*p_frame, src, turned, rotation, to))
        return FAILED;
    ov_front.src = ov_front.dst = to;
    return camera_durnspire_qualcomm_refresh_screen() ? 1 : FAILED;
}

int camera_durnspire_qualcomm_overlay_unset()
{
    const std::lock_guard lock(mutex);
    if (framebuffer_handle.fd < 0)
        return 1;
    const bool front = unset(overlay.id), back = unset(overlay2.id);
    overlay_initialized = overlay_initialized && !front;
    return front && back ? 1 : FAILED;
}
