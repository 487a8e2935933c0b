// The driver of rtc over "/dev/rtc0". Attaches itself; call rtc.
#pragma once

void rtc_linux_init();
