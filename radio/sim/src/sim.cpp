#include "sim/sim.h"

#include "callout/callout.h"

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
    return callout(p_sim_co, &sim_co::detect, SIM_NO_SUCH_TEST, p_present);
}

int sim_ct(std::uint8_t kind, std::uint8_t* p_result)
{
    return callout(p_sim_co, &sim_co::ct, SIM_NO_SUCH_TEST, kind, p_result);
}
