#include "mhl/mhl.h"

#include "callout/callout.h"

namespace {

const mhl_co* p_mhl_co;

} // namespace

void mhl_init()
{
    p_mhl_co = nullptr;
}

void mhl_co_attach(const mhl_co* p_co)
{
    p_mhl_co = p_co;
}

int mhl_switch(int on)
{
    return callout(p_mhl_co, &mhl_co::switch_mode, 0, on);
}

int mhl_read(int* p_result)
{
    return callout(p_mhl_co, &mhl_co::read_result, 0, p_result);
}

int mhl_run_bist(int* p_result)
{
    return callout(p_mhl_co, &mhl_co::run_bist, 0, p_result);
}

int mhl_run_hpd_test(int* p_result)
{
    return callout(p_mhl_co, &mhl_co::run_hpd_test, 0, p_result);
}

int mhl_run_ddc_test(int* p_result)
{
    return callout(p_mhl_co, &mhl_co::run_ddc_test, 0, p_result);
}
