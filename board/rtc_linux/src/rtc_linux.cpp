#include "rtc_linux/rtc_linux.h"

#include "plat/plat.h"
#include "rtc/rtc.h"

namespace {

constexpr const char* RTC_NODE = "/dev/rtc0";
constexpr int FIRST_YEAR = 1900; // the kernel counts years from here, and months from 0

int request(unsigned long what, rtc_time* p_tm)
{
    const int fd = plat_open(RTC_NODE, O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return 0;
    const int result = plat_ioctl(fd, what, p_tm);
    plat_close(fd);
    return result >= 0 ? 1 : 0;
}

int rtc_linux_read(rtc_time* p_tm)
{
    rtc_time tm{};
    if (request(RTC_RD_TIME, &tm) == 0)
        return 0;
    *p_tm = tm;
    p_tm->tm_year += FIRST_YEAR;
    p_tm->tm_mon += 1;
    return 1;
}

int rtc_linux_write(const rtc_time* p_tm)
{
    rtc_time tm = *p_tm;
    tm.tm_year -= FIRST_YEAR;
    tm.tm_mon -= 1;
    return request(RTC_SET_TIME, &tm);
}

constexpr rtc_co rtc_linux_co = {
    .read = rtc_linux_read,
    .write = rtc_linux_write,
};

} // namespace

void rtc_linux_init()
{
    rtc_co_attach(&rtc_linux_co);
}
