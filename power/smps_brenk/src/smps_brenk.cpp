#include "smps_brenk/smps_brenk.h"

#include <cstdio>

#include "smps/smps.h"
#include "vreg/vreg.h"

namespace {

int smps_brenk_regulator_switch(std::uint32_t rail, std::uint32_t on)
{
    if (on > 1)
        return 1;
    char name[16];
    std::snprintf(name, sizeof name, "%s%d", "krait", static_cast<int>(rail));
    const int result = on != 0 ? vreg_enable(name) : vreg_disable(name);
    return result == 0 ? 1 : 0;
}

constexpr smps_co smps_brenk_co = {
    .regulator_switch = smps_brenk_regulator_switch,
};

} // namespace

void smps_brenk_init()
{
    smps_co_attach(&smps_brenk_co);
}
