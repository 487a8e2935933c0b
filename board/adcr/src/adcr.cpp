#include "adcr/adcr.h"

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
    HVT_CHECK(p_adcr_co != nullptr);
    return p_adcr_co->read != nullptr ? p_adcr_co->read(channel, format, p_val) : ADCR_FAILED;
}

const adcr_channel* adcr_channel_info()
{
    HVT_CHECK(p_adcr_co != nullptr);
    return p_adcr_co->channel_info != nullptr ? p_adcr_co->channel_info() : nullptr;
}
