// The command `hdmi`: the HDMI output on and off, its pictures and tone, and what the monitor tells.
#pragma once

void f_hdmi_init();
