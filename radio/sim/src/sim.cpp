#include "sim/sim.h"

#include "check/check.h"

namespace {

const sim_co* p_sim_co;

} // namespace

void sim_init()
{
    p_sim_co = nullptr;
}

void sim_co_attach(const sim_co* p_co)
{
    p_sim_co = p_co;
}

int sim_detect(std::uint8_t* p_present)
{
    HVT_CHECK(p_sim_co != nullptr);
    return p_sim_co->detect != nullptr ? p_sim_co->detect(p_present) : SIM_NO_SUCH_TEST;
}

int sim_ct(std::uint8_t kind, std::uint8_t* p_result)
{
    HVT_CHECK(p_sim_co != nullptr);
    return p_sim_co->ct != nullptr ? p_sim_co->ct(kind, p_result) : SIM_NO_SUCH_TEST;
}
