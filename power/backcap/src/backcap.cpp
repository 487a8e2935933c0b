#include "backcap/backcap.h"

#include "callout/callout.h"
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
    return callout(p_backcap_co, &backcap_co::set_mode, 0, mode);
}
