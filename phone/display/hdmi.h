// The attributes of the HDMI output, under /sys/class/graphics/fb1 and /sys/hvt/hvt-hdmi: plain files, of
// which `connected` follows the output's switch and the monitor. The picture itself is framebuffer.h's.
#pragma once

namespace phone {

void hdmi_attach();
void hdmi_seed();

// The monitor has come or gone.
void hdmi_show_sink(bool in);

} // namespace phone
