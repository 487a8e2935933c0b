#include "rtc/rtc.h"

#include "check/check.h"

namespace {

const rtc_co* p_rtc_co;

} // namespace

void rtc_init()
{
    p_rtc_co = nullptr;
}

void rtc_co_attach(const rtc_co* p_co)
{
    p_rtc_co = p_co;
}

int rtc_read(rtc_time* p_tm)
{
    HVT_CHECK(p_rtc_co != nullptr);
    return p_rtc_co->read != nullptr ? p_rtc_co->read(p_tm) : 0;
}

int rtc_write(const rtc_time* p_tm)
{
    HVT_CHECK(p_rtc_co != nullptr);
    return p_rtc_co->write != nullptr ? p_rtc_co->write(p_tm) : 0;
}
