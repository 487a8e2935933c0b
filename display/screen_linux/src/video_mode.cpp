// The video modes of the HDMI output, with their CEA-861 timings.
#include "screen_linux_inner.h"

#include <cstddef>

#include "plat/plat.h"

int mCurrentID = -1;

namespace {

using std::uint32_t;

struct video_mode {
    uint32_t id;
    uint32_t h_active, v_active;
    uint32_t h_front, h_sync, h_back;
    uint32_t v_front, v_sync, v_back;
    uint32_t clock_khz;
    uint32_t interlaced;
};

// clang-format off
constexpr video_mode supported_video_mode_lut[] = {
    // id  active        horizontal      vertical     clock    inter-
    //     hor.   vert.  fr. sync back   fr sync back kHz      laced
    {   1,  640,  480,   16,  96,  48,   10,  2,  33,  25200,  0 },
    {   2,  720,  480,   16,  62,  60,    9,  6,  30,  27030,  0 },
    {   3,  720,  480,   16,  62,  60,    9,  6,  30,  27030,  0 },
    {   4, 1280,  720,  110,  40, 220,    5,  5,  20,  74250,  0 },
    {   5, 1920,  540,   88,  44, 148,    2,  5,   5,  74250,  0 },
    {   6, 1440,  240,   38, 124, 114,    4,  3,  15,  27000,  1 },
    {   7, 1440,  240,   38, 124, 114,    4,  3,  15,  27000,  1 },
    {  16, 1920, 1080,   88,  44, 148,    4,  5,  36, 148500,  0 },
    {  17,  720,  576,   12,  64,  68,    5,  5,  39,  27000,  0 },
    {  18,  720,  576,   12,  64,  68,    5,  5,  39,  27000,  0 },
    {  19, 1280,  720,  440,  40, 220,    5,  5,  20,  74250,  0 },
    {  21, 1440,  288,   24, 126, 138,    2,  3,  19,  27000,  1 },
    {  22, 1440,  288,   24, 126, 138,    2,  3,  19,  27000,  1 },
    {  31, 1920, 1080,  528,  44, 148,    4,  5,  36, 148500,  0 },
    {  32, 1920, 1080,  638,  44, 148,    4,  5,  36,  74250,  0 },
    {  33, 1920, 1080,  528,  44, 148,    4,  5,  36,  74250,  0 },
    {  34, 1920, 1080,   88,  44, 148,    4,  5,  36,  74250,  0 },
};
// clang-format on

// The display driver takes the id from the last of the five words behind `rotate`, the first of which this
// header calls `colorspace`.
static_assert(offsetof(fb_var_screeninfo, reserved) == offsetof(fb_var_screeninfo, rotate) + 8);
static_assert(sizeof(fb_var_screeninfo) == 160);

// An id that isn't in the table gets the first row.
const video_mode& mode_of(int id)
{
    for (const video_mode& mode : supported_video_mode_lut)
        if (mode.id == static_cast<uint32_t>(id))
            return mode;
    return supported_video_mode_lut[0];
}

void set_timing(fb_var_screeninfo* p_var, const video_mode& mode)
{
    p_var->reserved[0] = p_var->reserved[1] = p_var->reserved[2] = 0;
    p_var->reserved[3] = mode.id;
    p_var->xoffset = 0;
    p_var->yoffset = 0;
    p_var->xres = mode.h_active;
    p_var->yres = mode.v_active;
    p_var->pixclock = mode.clock_khz * 1000;
    p_var->vmode = mode.interlaced ? FB_VMODE_INTERLACED : FB_VMODE_NONINTERLACED;
    p_var->right_margin = mode.h_front;
    p_var->hsync_len = mode.h_sync;
    p_var->left_margin = mode.h_back;
    p_var->lower_margin = mode.v_front;
    p_var->vsync_len = mode.v_sync;
    p_var->upper_margin = mode.v_back;
    p_var->activate = FB_ACTIVATE_ALL | FB_ACTIVATE_FORCE;
}

} // namespace

int setresolution(int id)
{
    if (p_si == nullptr || !p_si->opened)
        return -1;
    if (mCurrentID == id)
        return 0;
    fb_var_screeninfo var;
    if (plat_ioctl(p_si->fd, FBIOGET_VSCREENINFO, &var) < 0)
        return -1;
    set_timing(&var, mode_of(id));
    const fb_var_screeninfo old = p_si->var;
    p_si->var = var;
    if (plat_ioctl(p_si->fd, FBIOPUT_VSCREENINFO, &p_si->var) < 0) {
        p_si->var = old; // the screen goes on as it was
        return -1;
    }
    p_si->draw_base = p_si->map_base; // where yoffset 0 is
    mCurrentID = id;
    return 0;
}
