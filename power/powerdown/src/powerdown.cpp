#include "powerdown/powerdown.h"

#include <cstdint>
#include <string>

#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr std::uint32_t GOING_DOWN_S = 60;

} // namespace

int powerdown_restart()
{
    return plat_system("reboot");
}

int powerdown_off()
{
    plat_system("sync");
    return powerdown_off_synced();
}

int powerdown_off_because(const char* reason)
{
    plat_system((std::string("echo \"") + reason + "\" > /dev/kmsg").c_str());
    return powerdown_off();
}

int powerdown_off_synced()
{
    return plat_system("reboot -p");
}

void powerdown_wait(int result)
{
    for (std::uint32_t s = 0; result == 0 && s < GOING_DOWN_S; s++)
        tmr_msleep(1000);
}
