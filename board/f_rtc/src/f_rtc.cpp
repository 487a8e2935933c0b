#include "f_rtc/f_rtc.h"

#include <cstdint>

#include "dcp/dcp.h"
#include "rtc/rtc.h"

namespace {

int do_rtc_read(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "rtcr", "Read RTC Date Time", DCP_OK);
    rtc_time tm;
    if (rtc_read(&tm) == 0)
        return dcp_answer(id, "rtcr", " ", DCP_ERROR);
    dcp_printf(id, "rtcr", "%d,%d,%d,%d,%d,%d", tm.tm_year, tm.tm_mon, tm.tm_mday, tm.tm_hour, tm.tm_min,
               tm.tm_sec);
    return DCP_OK;
}

int do_rtc_write(int id, int action, int argc, const dcp_word* argv)
{
    if (argc != 6)
        return dcp_answer(id, "rtcw", " ", DCP_SYNTAX);
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "rtcw", "Write RTC Date Time", DCP_OK);
    rtc_time tm{};
    tm.tm_year = static_cast<std::uint16_t>(argv[0]);
    tm.tm_mon = static_cast<std::uint8_t>(argv[1]);
    tm.tm_mday = static_cast<std::uint8_t>(argv[2]);
    tm.tm_hour = static_cast<std::uint8_t>(argv[3]);
    tm.tm_min = static_cast<std::uint8_t>(argv[4]);
    tm.tm_sec = static_cast<std::uint8_t>(argv[5]);
    return dcp_answer(id, "rtcw", " ", rtc_write(&tm) != 0 ? DCP_OK : DCP_ERROR);
}

// clang-format off
constexpr dcp_cmd f_rtc_cmd_tab[] = {
    { "rtcr", "", "%t",                "rtcr()",                                    do_rtc_read,  DCP_GRP_PRODUCTION },
    { "rtcw", "", "%v,%v,%v,%v,%v,%v", "rtcw(year,month,day,hour,minutes,seconds)", do_rtc_write, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_rtc_link;

} // namespace

void f_rtc_init()
{
    dcp_cmd_add(f_rtc_cmd_tab, &f_rtc_link);
}
