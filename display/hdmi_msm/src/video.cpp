// The picture on the HDMI output: the screen's slot 2, started in one of three video modes.
#include <iterator>

#include "hdmi/hdmi.h"
#include "hdmi_msm_inner.h"
#include "plat/plat.h"
#include "screen/screen.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"

namespace {

constexpr int video_modes[] = {3, 4, 34}; // 720 x 480, 1280 x 720, 1920 x 1080 at 30 Hz, by their CEA ids

constexpr unsigned long REQUEST_OUTPUT_OFF = 0x40046DFF; // the framebuffer driver's own

bool stop_output()
{
    std::uint32_t off = 0;
    hdmi_msm_output = false;
    if (screen_control(SCREEN_CONTROL_BLANK, 1) != 0 ||
        plat_ioctl(screen_linux_get_screen_info(SCREEN_HDMI)->fd, REQUEST_OUTPUT_OFF, &off) < 0)
        return false;
    screen_stop(SCREEN_HDMI);
    return hdmi_msm_tmds_test(0) == 0;
}

bool start_output(std::uint32_t pattern, int mode_id)
{
    const screenconf* const p_conf = screenconf_get(SCREEN_HDMI);
    if (p_conf == nullptr || screen_start(SCREEN_HDMI, p_conf->no_startscreen == 0 ? 1 : 0) != 1 ||
        screen_control(SCREEN_CONTROL_MODE, mode_id) != 0)
        return false;
    screen_linux_info* const p_info = screen_linux_get_screen_info(SCREEN_HDMI);
    p_info->fix.line_length = p_info->var.bits_per_pixel / 8 * p_info->var.xres;
    if (screen_control(SCREEN_CONTROL_UNBLANK, 1) != 0)
        return false;
    hdmi_msm_output = true;
    return hdmi_msm_draw(pattern);
}

} // namespace

// On failure slot 2 stays selected.
int hdmi_msm_set_output_video(std::uint32_t pattern, std::uint32_t mode)
{
    const std::uint32_t before = screen_get_active();
    screen_set_active(SCREEN_HDMI, mode);
    if (!hdmi_msm_started || mode >= std::size(video_modes))
        return -1;
    int result = -1; // nothing was done
    if (hdmi_msm_output) {
        if (!stop_output())
            return -1;
        result = 0;
    }
    if (pattern != HDMI_PATTERN_NONE) {
        if (!start_output(pattern, video_modes[mode]))
            return -1;
        result = 0;
    }
    if (before != SCREEN_NONE)
        screen_set_active(before, 0);
    return result;
}
