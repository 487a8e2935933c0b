// The tone of 1 kHz, which the modem's audio plays on the HDMI output.
#include <array>
#include <span>

#include "ftm_linux/ftm_linux.h"
#include "hdmi_msm_inner.h"

namespace {

using std::uint8_t;

// clang-format off
constexpr uint8_t ftm_hdmi_set_path[]   = {0x4B, 0x0B, 0x0E, 0x00, 0x00, 0x00, 0x02, 0x00, 0x0C, 0x00, 0x1E, 0x00};
constexpr uint8_t ftm_audio_tone_play[] = {0x4B, 0x0B, 0x0E, 0x00, 0x04, 0x00, 0x04, 0x00, 0x0C, 0x00,
                                           0xE8, 0x03, 0xE8, 0x03, 0x00, 0x00}; // 1000 Hz, twice
constexpr uint8_t ftm_audio_tone_stop[] = {0x4B, 0x0B, 0x0E, 0x00, 0x05, 0x00, 0x00, 0x00, 0x0C, 0x00};
// clang-format on

bool post(std::span<const uint8_t> packet)
{
    std::array<uint8_t, FTM_MAX_RESP_LEN> reply;
    std::uint32_t size;
    return ftm_cmd(packet.data(), static_cast<std::uint32_t>(packet.size()), reply.data(),
                   static_cast<std::uint32_t>(reply.size()), &size) != 0;
}

} // namespace

int hdmi_msm_set_output_sine_tone(std::uint32_t on)
{
    if (!hdmi_msm_started || on > 1)
        return -1;
    const bool done =
        on == 1 ? post(ftm_hdmi_set_path) && post(ftm_audio_tone_play) : post(ftm_audio_tone_stop);
    return done ? 0 : -1;
}
