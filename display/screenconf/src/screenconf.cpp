#include "screenconf/screenconf.h"

#include <array>

#include "check/check.h"

namespace {
std::array<screenconf*, SCREEN_LAST> screen_cfg;
}

void screenconf_init()
{
    screen_cfg.fill(nullptr);
}

void screenconf_set(std::uint32_t sl, screenconf* p_conf)
{
    HVT_CHECK(sl < SCREEN_LAST);
    screen_cfg[sl] = p_conf;
}

screenconf* screenconf_get(std::uint32_t sl)
{
    HVT_CHECK(sl < SCREEN_LAST);
    return screen_cfg[sl];
}
