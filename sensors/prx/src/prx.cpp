#include "prx/prx.h"

#include "check/check.h"

namespace {

const prx_co* p_prx_co;

const prx_co& attached()
{
    HVT_CHECK(p_prx_co != nullptr);
    return *p_prx_co;
}

} // namespace

void prx_init()
{
    p_prx_co = nullptr;
}

void prx_co_attach(const prx_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_prx_co = p_co;
}

int prx_set_reg(int id, std::uint32_t value)
{
    const prx_co& co = attached();
    return co.reg_set != nullptr ? co.reg_set(id, value) : 0;
}

int prx_start()
{
    const prx_co& co = attached();
    return co.start != nullptr ? co.start() : 0;
}

int prx_adc(std::uint32_t* p_value)
{
    const prx_co& co = attached();
    *p_value = 0;
    return co.adc != nullptr ? co.adc(p_value) : 0;
}

int prx_digital(std::uint32_t* p_value)
{
    const prx_co& co = attached();
    *p_value = 0;
    return co.digital != nullptr ? co.digital(p_value) : 0;
}
