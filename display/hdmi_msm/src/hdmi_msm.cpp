#include "hdmi_msm/hdmi_msm.h"

#include <cstring>
#include <linux/fb.h>

#include "attr_num/attr_num.h"
#include "hdmi/hdmi.h"
#include "hdmi_msm_inner.h"
#include "plat/plat.h"
#include "screenconf/screenconf.h"

int fb_idx = -1;
bool hdmi_msm_started;
bool hdmi_msm_output;

namespace {

constexpr const char* EDID = "/sys/hvt/hvt-hdmi/edid";
constexpr const char* HDCP = "/sys/hvt/hvt-hdmi/hdcp";
constexpr const char* POWER = "/sys/hvt/hvt-hdmi/pwr";
constexpr const char* TMDS = "/sys/hvt/hvt-hdmi/tmds";

constexpr int MOST_FRAMEBUFFERS = 32; // as many as the kernel has numbers for

constexpr std::uint32_t CEC_STANDBY = 0x36;
constexpr std::size_t CEC_FRAME = 20;

// Whether the framebuffer `path` is that of the driver `id`. False, and *p_ends, when it doesn't tell.
bool is_output(const std::string& path, const char* id, bool* p_ends)
{
    const int fd = plat_open(path.c_str(), O_RDWR | O_CLOEXEC);
    fb_fix_screeninfo fix{};
    *p_ends = fd < 0 || plat_ioctl(fd, FBIOGET_FSCREENINFO, &fix) < 0;
    if (fd >= 0)
        plat_close(fd);
    return !*p_ends && std::strncmp(fix.id, id, std::strlen(id)) == 0;
}

void find_output(const screenconf& conf)
{
    bool ends = false;
    for (int n = 0; n < MOST_FRAMEBUFFERS && !ends && fb_idx < 0; n++)
        if (is_output(conf.dev_prefix + std::to_string(n), conf.fb_id, &ends))
            fb_idx = n;
}

int hdmi_msm_start()
{
    screenconf* const p_conf = screenconf_get(SCREEN_HDMI);
    if (p_conf == nullptr)
        return -1;
    if (fb_idx < 0)
        find_output(*p_conf);
    if (fb_idx < 0)
        return fb_idx;
    p_conf->dev_number = static_cast<std::uint32_t>(fb_idx);
    hdmi_msm_echo(1, hdmi_msm_path("hpd"));
    hdmi_msm_started = true;
    hdmi_msm_output = false;
    return 0;
}

// A picture that is shown stays where it is.
int hdmi_msm_stop()
{
    hdmi_msm_echo(0, hdmi_msm_path("hpd"));
    hdmi_msm_started = false;
    fb_idx = -1;
    return 0;
}

// Above 0 when there is a monitor, below when that isn't told.
int read_connected()
{
    int value = -1;
    attr_num_last(hdmi_msm_path("connected").c_str(), &value);
    return value;
}

int hdmi_msm_sink_detection(int count, std::uint32_t value)
{
    hdmi_msm_tmds_test(1);
    int connected = read_connected();
    if (connected > 0 && count != 1 && value != 1)
        connected = read_connected();
    return connected > 0 ? 1 : connected < 0 ? -1 : 0;
}

int hdmi_msm_read_edid(std::uint8_t* p_bytes)
{
    return hdmi_msm_started ? attr_num_bytes(EDID, p_bytes, HDMI_EDID_BYTES) : -1;
}

int hdmi_msm_read_hdcp(std::uint8_t* p_bytes)
{
    return hdmi_msm_started ? attr_num_bytes(HDCP, p_bytes, HDMI_HDCP_BYTES) : -1;
}

int write_frame(std::uint8_t opcode)
{
    std::uint8_t frame[CEC_FRAME] = {4, 0, opcode};
    frame[18] = 2;
    frame[19] = 1;
    const int fd = plat_open(hdmi_msm_path("cec_wr_frame").c_str(), O_WRONLY | O_CLOEXEC);
    if (fd < 0)
        return -1;
    const auto written = static_cast<int>(plat_write(fd, frame, sizeof frame));
    plat_close(fd);
    return written;
}

int hdmi_msm_send_cec(std::uint32_t opcode)
{
    if (!hdmi_msm_started || opcode > UINT8_MAX)
        return -1;
    hdmi_msm_echo(1, POWER);
    hdmi_msm_echo(1, hdmi_msm_path("cec"));
    const int written = write_frame(static_cast<std::uint8_t>(opcode));
    hdmi_msm_echo(0, hdmi_msm_path("cec"));
    hdmi_msm_echo(0, POWER);
    return opcode == CEC_STANDBY ? 0 : written;
}

// clang-format off
constexpr hdmi_co hdmi_msm_co = {
    .start                = hdmi_msm_start,
    .stop                 = hdmi_msm_stop,
    .set_output_video     = hdmi_msm_set_output_video,
    .set_output_sine_tone = hdmi_msm_set_output_sine_tone,
    .sink_detection       = hdmi_msm_sink_detection,
    .read_edid            = hdmi_msm_read_edid,
    .send_cec             = hdmi_msm_send_cec,
    .tmds_test            = hdmi_msm_tmds_test,
    .read_hdcp            = hdmi_msm_read_hdcp,
    .firmware_download    = nullptr, // the bridge keeps its firmware
};
// clang-format on

} // namespace

std::string hdmi_msm_path(const char* name)
{
    return "/sys/class/graphics/fb" + std::to_string(fb_idx) + "/" + name;
}

void hdmi_msm_echo(int value, const std::string& path)
{
    plat_system(("echo " + std::to_string(value) + " > " + path).c_str());
}

int hdmi_msm_tmds_test(std::uint32_t on)
{
    if (on > 1)
        return -1;
    hdmi_msm_echo(static_cast<int>(on), TMDS);
    return 0;
}

void hdmi_msm_init()
{
    hdmi_co_attach(&hdmi_msm_co);
}
