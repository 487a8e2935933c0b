// A panel for benchmarks without the phone: a framebuffer of 1080 by 1920 pixels at 32 bits in plain memory,
// beside the host's own files.
#pragma once

#include <cstddef>

#include "plat/plat.h"

constexpr unsigned panel_width = 1080, panel_height = 1920;
constexpr std::size_t frame_bytes = std::size_t{panel_width} * panel_height * 4;

// A new panel with this many pages of memory, configured as the main screen and as the HDMI output, and the
// screen modules made ready for it; it is for screen_start to open it. Ends the program when there is no
// memory.
void bench_panel(unsigned pages);

// The table of that panel, for who puts something of his own in front of it.
plat_callouts bench_panel_table();
