#include "msm_linux/msm_linux.h"

#include <cstdio>

#include "attr/attr.h"
#include "msm/msm.h"

namespace {

int msm_linux_pvs_read(int* p_val)
{
    char text[32];
    return attr_read("/sys/kernel/debug/msm/pvsr", text, sizeof text) == ATTR_OK &&
                   std::sscanf(text, "%d", p_val) == 1
               ? 0
               : 1;
}

int msm_linux_version_read(std::uint32_t* p_3vals)
{
    char text[64];
    return attr_read("/sys/kernel/debug/msm/msmv", text, sizeof text) == ATTR_OK &&
                   std::sscanf(text, "%u %u %u", &p_3vals[0], &p_3vals[1], &p_3vals[2]) == 3
               ? 0
               : 1;
}

constexpr msm_co msm_linux_co = {
    .pvs_read = msm_linux_pvs_read,
    .version_read = msm_linux_version_read,
};

} // namespace

void msm_linux_init()
{
    msm_cmd_co_attach(&msm_linux_co);
}
