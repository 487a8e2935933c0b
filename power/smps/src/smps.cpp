#include "smps/smps.h"

#include "check/check.h"

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
    HVT_CHECK(p_smps_co != nullptr);
    return p_smps_co->regulator_switch != nullptr ? p_smps_co->regulator_switch(rail, on) : 0;
}
