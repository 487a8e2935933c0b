#include "adcr/adcr.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

const adcr_co* p_adcr_co;

} // namespace

void adcr_init()
{
    p_adcr_co = nullptr;
}

void adcr_cmd_co_attach(const adcr_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_adcr_co = p_co;
}

int adcr_read(std::uint32_t channel, std::uint32_t format, int* p_val)
{
    return callout(p_adcr_co, &adcr_co::read, ADCR_FAILED, channel, format, p_val);
}

const adcr_channel* adcr_channel_info()
{
    return callout(p_adcr_co, &adcr_co::channel_info, nullptr);
}
