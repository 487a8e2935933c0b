#include "charge/charge.h"

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
    HVT_CHECK(p_charge_co != nullptr);
    return p_charge_co->set_mode != nullptr ? p_charge_co->set_mode(mode) : 0;
}

int charge_get_mode(int query, int* p_out)
{
    HVT_CHECK(p_charge_co != nullptr);
    return p_charge_co->get_mode != nullptr ? p_charge_co->get_mode(query, p_out) : 0;
}

int charge_set_current(std::uint32_t battery_ma, std::uint32_t input_ma)
{
    HVT_CHECK(p_charge_co != nullptr);
    return p_charge_co->set_current != nullptr ? p_charge_co->set_current(battery_ma, input_ma) : 0;
}

int charge_get_range(char* p_text, int kind)
{
    HVT_CHECK(p_charge_co != nullptr);
    return p_charge_co->get_range != nullptr ? p_charge_co->get_range(p_text, kind) : 0;
}

int charge_dump()
{
    HVT_CHECK(p_charge_co != nullptr);
    return p_charge_co->dump != nullptr ? p_charge_co->dump() : 0;
}
