// The HDMI output of the main chip: its framebuffer, which is found by the driver's id, the kernel's
// attributes beside it, and the modem's audio for the tone. Attaches to `hdmi`; all operations are reached
// there.
#pragma once

void hdmi_msm_init();
