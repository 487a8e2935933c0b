#include "charge/charge.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

const charge_co* p_charge_co;

} // namespace

void charge_init()
{
    p_charge_co = nullptr;
}

void charge_co_attach(const charge_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_charge_co = p_co;
}

int charge_set_mode(int mode)
{
    return callout(p_charge_co, &charge_co::set_mode, 0, mode);
}

int charge_get_mode(int query, int* p_out)
{
    return callout(p_charge_co, &charge_co::get_mode, 0, query, p_out);
}

int charge_set_current(std::uint32_t battery_ma, std::uint32_t input_ma)
{
    return callout(p_charge_co, &charge_co::set_current, 0, battery_ma, input_ma);
}

int charge_get_range(char* p_text, int kind)
{
    return callout(p_charge_co, &charge_co::get_range, 0, p_text, kind);
}

int charge_dump()
{
    return callout(p_charge_co, &charge_co::dump, 0);
}
