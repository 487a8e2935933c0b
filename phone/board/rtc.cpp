#include "board/rtc.h"

#include <atomic>
#include <cerrno>
#include <chrono>
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
constexpr int first_year = 1970;
constexpr int end_year = 2100; // the register counts to the end of 2099

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

// The calendar is counted by hand: the host's own time may end in 2038.
std::chrono::year_month_day date_of(const rtc_time& tm)
{
    return {std::chrono::year{tm.tm_year + years_from},
            std::chrono::month{static_cast<unsigned>(tm.tm_mon + 1)},
            std::chrono::day{static_cast<unsigned>(tm.tm_mday)}};
}

bool is_date(const rtc_time& tm)
{
    const auto below = [](int value, int end) { return value >= 0 && value < end; };
    return tm.tm_year >= first_year - years_from && tm.tm_year < end_year - years_from &&
           below(tm.tm_mon, 12) && below(tm.tm_mday, 32) && date_of(tm).ok() && below(tm.tm_hour, 24) &&
           below(tm.tm_min, 60) && below(tm.tm_sec, 60);
}

int read_time(rtc_time* p_tm)
{
    const std::chrono::sys_seconds now{std::chrono::seconds{wall() + ahead}};
    const auto day = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss time{now - day};
    *p_tm = {};
    p_tm->tm_sec = static_cast<int>(time.seconds().count());
    p_tm->tm_min = static_cast<int>(time.minutes().count());
    p_tm->tm_hour = static_cast<int>(time.hours().count());
    p_tm->tm_mday = static_cast<int>(unsigned{date.day()});
    p_tm->tm_mon = static_cast<int>(unsigned{date.month()}) - 1;
    p_tm->tm_year = int{date.year()} - years_from;
    p_tm->tm_wday = static_cast<int>(std::chrono::weekday{day}.c_encoding());
    p_tm->tm_yday = static_cast<int>((day - std::chrono::sys_days{date.year() / 1 / 1}).count());
    return 0;
}

int set_time(const rtc_time& want)
{
    if (!is_date(want)) {
        errno = EINVAL;
        return -1;
    }
    const std::chrono::sys_seconds time =
        std::chrono::sys_days{date_of(want)} + std::chrono::hours{want.tm_hour} +
        std::chrono::minutes{want.tm_min} + std::chrono::seconds{want.tm_sec};
    ahead = time.time_since_epoch().count() - wall();
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
