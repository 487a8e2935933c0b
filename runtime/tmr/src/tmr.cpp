// The clock and the sleeps.
#include "tmr/tmr.h"

#include <cerrno>
#include <ctime>

#include "plat/plat.h"
#include "tmr_cb.h"

namespace {

constexpr std::uint64_t US_PER_S = 1000000;
constexpr long NS_PER_US = 1000;

std::uint64_t tmr_clk_base; // microseconds of the wall clock

std::uint64_t wall_clock_us()
{
    timespec now{};
    plat_clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * US_PER_S +
           static_cast<std::uint64_t>(now.tv_nsec / NS_PER_US);
}

void sleep_us(std::uint64_t us)
{
    timespec left{static_cast<time_t>(us / US_PER_S), static_cast<long>(us % US_PER_S) * NS_PER_US};
    // A sleep that fails for another reason than a signal is tried again a few times, not for ever.
    for (int retries = 3; plat_nanosleep(&left, &left) == -1;)
        if (errno != EINTR && retries-- == 0)
            break;
}

} // namespace

void tmr_init()
{
    tmr_clk_base = wall_clock_us();
    tmr_cb_init();
}

std::uint32_t tmr_get()
{
    return static_cast<std::uint32_t>(tmr_get64());
}

std::uint64_t tmr_get64()
{
    return wall_clock_us() - tmr_clk_base;
}

void tmr_usleep(std::uint32_t us)
{
    sleep_us(us);
}

void tmr_msleep(std::uint32_t ms)
{
    sleep_us(std::uint64_t{ms} * 1000);
}
