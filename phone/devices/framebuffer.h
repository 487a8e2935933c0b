// The framebuffers: /dev/graphics/fb0, the main panel, and fb1, the HDMI output. Memory that the program maps
// and draws on; the panel shows the page that was panned to. Also /dev/tty0, the console behind them, which
// only some phones have, and the words `screen` and `pixel`.
#pragma once

namespace phone {

void framebuffer_attach();
void framebuffer_start();

} // namespace phone
