// The framebuffers: /dev/graphics/fb0, the main panel, and fb1, the HDMI output. Memory that the program maps
// and draws on; the panel shows the page that was panned to. Also /dev/tty0, the console behind them, which
// only some phones have, and the words `screen` and `pixel`.
#pragma once

#include <utility>

namespace phone {

void framebuffer_attach();
void framebuffer_start();

// Width and height of the main panel in pixels, once phone.conf has been read.
std::pair<unsigned, unsigned> framebuffer_panel_size();

} // namespace phone
