// The real time clock. A driver does the work (rtc_co_attach). The record is the kernel's in calendar terms:
// the year in full, the month from 1. Both operations give 1 on success.
#pragma once

#include <linux/rtc.h>

struct rtc_co {
    int (*read)(rtc_time* p_tm);
    int (*write)(const rtc_time* p_tm);
};

void rtc_init();
void rtc_co_attach(const rtc_co* p_co);

int rtc_read(rtc_time* p_tm);
int rtc_write(const rtc_time* p_tm);
