#include "smps/smps.h"

#include "callout/callout.h"

namespace {

const smps_co* p_smps_co;

} // namespace

void smps_init()
{
    p_smps_co = nullptr;
}

void smps_co_attach(const smps_co* p_co)
{
    p_smps_co = p_co;
}

int smps_regulator_switch(std::uint32_t rail, std::uint32_t on)
{
    return callout(p_smps_co, &smps_co::regulator_switch, 0, rail, on);
}
