// The commands of the display test: starting a screen, patterns, figures, text and pictures, the panel's
// identity and its VSYNC period.
#pragma once

void f_screen_init();
