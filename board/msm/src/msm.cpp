#include "msm/msm.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

const msm_co* p_msm_co;

} // namespace

void msm_init()
{
    p_msm_co = nullptr;
}

void msm_cmd_co_attach(const msm_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_msm_co = p_co;
}

int msm_pvs_read(int* p_val)
{
    return callout(p_msm_co, &msm_co::pvs_read, 1, p_val);
}

int msm_version_read(std::uint32_t* p_3vals)
{
    return callout(p_msm_co, &msm_co::version_read, 1, p_3vals);
}
