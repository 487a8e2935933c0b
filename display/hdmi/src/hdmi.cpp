#include "hdmi/hdmi.h"

#include "callout/callout.h"

namespace {

constexpr int FAILED = -1;

const hdmi_co* p_hdmi_co;

} // namespace

void hdmi_init()
{
    p_hdmi_co = nullptr;
}

void hdmi_co_attach(const hdmi_co* p_co)
{
    p_hdmi_co = p_co;
}

int hdmi_start()
{
    return callout(p_hdmi_co, &hdmi_co::start, FAILED);
}

int hdmi_stop()
{
    return callout(p_hdmi_co, &hdmi_co::stop, FAILED);
}

int hdmi_set_output_video(std::uint32_t pattern, std::uint32_t mode)
{
    return callout(p_hdmi_co, &hdmi_co::set_output_video, FAILED, pattern, mode);
}

int hdmi_set_output_sine_tone(std::uint32_t on)
{
    return callout(p_hdmi_co, &hdmi_co::set_output_sine_tone, FAILED, on);
}

int hdmi_sink_detection(int count, std::uint32_t value)
{
    return callout(p_hdmi_co, &hdmi_co::sink_detection, FAILED, count, value);
}

int hdmi_read_edid(std::uint8_t* p_bytes)
{
    return callout(p_hdmi_co, &hdmi_co::read_edid, FAILED, p_bytes);
}

int hdmi_send_cec(std::uint32_t opcode)
{
    return callout(p_hdmi_co, &hdmi_co::send_cec, FAILED, opcode);
}

int hdmi_tmds_test(std::uint32_t on)
{
    return callout(p_hdmi_co, &hdmi_co::tmds_test, FAILED, on);
}

int hdmi_read_hdcp(std::uint8_t* p_bytes)
{
    return callout(p_hdmi_co, &hdmi_co::read_hdcp, FAILED, p_bytes);
}

int hdmi_firmware_download()
{
    return callout(p_hdmi_co, &hdmi_co::firmware_download, FAILED);
}
