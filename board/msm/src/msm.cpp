#include "msm/msm.h"

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
    HVT_CHECK(p_msm_co != nullptr);
    return p_msm_co->pvs_read != nullptr ? p_msm_co->pvs_read(p_val) : 1;
}

int msm_version_read(std::uint32_t* p_3vals)
{
    HVT_CHECK(p_msm_co != nullptr);
    return p_msm_co->version_read != nullptr ? p_msm_co->version_read(p_3vals) : 1;
}
