// What the parts of the driver share.
#pragma once

#include <cstdint>
#include <string>

// The output's framebuffer, -1 until it is found, and whether it was started.
extern int fb_idx;
extern bool hdmi_msm_started;
extern bool hdmi_msm_output; // a picture is shown

// "/sys/class/graphics/fb1" and the name of an attribute of it.
std::string hdmi_msm_path(const char* name);

// "echo VALUE > PATH", a shell line whose result isn't looked at.
void hdmi_msm_echo(int value, const std::string& path);

int hdmi_msm_tmds_test(std::uint32_t on);
int hdmi_msm_set_output_video(std::uint32_t pattern, std::uint32_t mode);
int hdmi_msm_set_output_sine_tone(std::uint32_t on);

// Draws a picture on the active screen and shows it; false when that fails.
bool hdmi_msm_draw(std::uint32_t pattern);
