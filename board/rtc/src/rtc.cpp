#include "rtc/rtc.h"

#include "callout/callout.h"

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
    return callout(p_rtc_co, &rtc_co::read, 0, p_tm);
}

int rtc_write(const rtc_time* p_tm)
{
    return callout(p_rtc_co, &rtc_co::write, 0, p_tm);
}
