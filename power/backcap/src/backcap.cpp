#include "backcap/backcap.h"

#include "check/check.h"

namespace {

const backcap_co* p_backcap_co;

} // namespace

void backcap_init()
{
    p_backcap_co = nullptr;
}

void backcap_co_attach(const backcap_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_backcap_co = p_co;
}

int backcap_set_mode(int mode)
{
    HVT_CHECK(p_backcap_co != nullptr);
    return p_backcap_co->set_mode != nullptr ? p_backcap_co->set_mode(mode) : 0;
}
