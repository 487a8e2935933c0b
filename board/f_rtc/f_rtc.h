// The station's commands for the real time clock: rtcr and rtcw.
#pragma once

// Adds the command table.
void f_rtc_init();
