#include "board/rtc.h"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <linux/rtc.h>
#include <string>

#include "core/clock.h"
#include "core/files.h"
#include "core/home.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr nanoseconds second = 1'000'000'000;
constexpr int years_from = 1900;
constexpr std::time_t limit = INT64_C(4102444800); // the register counts to the end of 2099

std::atomic<std::int64_t> ahead; // of the wall clock, in seconds

std::int64_t wall()
{
    return clock_now(CLOCK_REALTIME) / second;
}

// Kept outside the file tree: the clock's supply is its coin cell, not the phone's.
std::string store_path()
{
    return home_path("rtc");
}

void keep()
{
    std::FILE* const p_file = std::fopen(store_path().c_str(), "w");
    if (p_file == nullptr)
        return;
    std::fprintf(p_file, "%lld\n", static_cast<long long>(ahead.load()));
    std::fclose(p_file);
}

bool is_date(const rtc_time& tm)
{
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (tm.tm_year < 70 || tm.tm_mon < 0 || tm.tm_mon > 11 || tm.tm_hour < 0 || tm.tm_hour > 23 ||
        tm.tm_min < 0 || tm.tm_min > 59 || tm.tm_sec < 0 || tm.tm_sec > 59)
        return false;
    const int year = tm.tm_year + years_from;
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return tm.tm_mday >= 1 && tm.tm_mday <= days[tm.tm_mon] + (leap && tm.tm_mon == 1 ? 1 : 0);
}

int read_time(rtc_time* p_tm)
{
    const std::time_t now = wall() + ahead;
    std::tm tm;
    gmtime_r(&now, &tm);
    *p_tm = {tm.tm_sec,  tm.tm_min,  tm.tm_hour, tm.tm_mday, tm.tm_mon,
             tm.tm_year, tm.tm_wday, tm.tm_yday, tm.tm_isdst};
    return 0;
}

int set_time(const rtc_time& want)
{
    std::tm tm{};
    tm.tm_sec = want.tm_sec;
    tm.tm_min = want.tm_min;
    tm.tm_hour = want.tm_hour;
    tm.tm_mday = want.tm_mday;
    tm.tm_mon = want.tm_mon;
    tm.tm_year = want.tm_year;
    const std::time_t time = timegm(&tm);
    if (!is_date(want) || time >= limit) {
        errno = EINVAL;
        return -1;
    }
    ahead = time - wall();
    keep();
    return 0;
}

int rtc_ioctl(open_file&, unsigned long request, void* arg)
{
    switch (request) {
    case RTC_RD_TIME:
        return read_time(static_cast<rtc_time*>(arg));
    case RTC_SET_TIME:
        return set_time(*static_cast<const rtc_time*>(arg));
    default:
        strange("ioctl /dev/rtc0 request " + std::to_string(request));
        errno = ENOTTY;
        return -1;
    }
}

constexpr node rtc_node = {.ioctl = rtc_ioctl};

} // namespace

void rtc_attach()
{
    node_add("/dev/rtc0", &rtc_node);
}

void rtc_start()
{
    long long kept = 0;
    std::FILE* const p_file = std::fopen(store_path().c_str(), "r");
    if (p_file == nullptr)
        return;
    if (std::fscanf(p_file, "%lld", &kept) == 1)
        ahead = kept;
    std::fclose(p_file);
}

} // namespace phone
