#include "spmi/spmi.h"

#include "callout/callout.h"

namespace {

const spmi_co* p_spmi_co;

} // namespace

void spmi_init()
{
    p_spmi_co = nullptr;
}

void spmi_co_attach(const spmi_co* p_co)
{
    p_spmi_co = p_co;
}

int spmi_read(unsigned bus, std::uint32_t addr, std::uint8_t* p_buf, std::size_t len)
{
    return callout(p_spmi_co, &spmi_co::read, 0, bus, addr, p_buf, len);
}

int spmi_write(unsigned bus, std::uint32_t addr, const std::uint8_t* p_buf, std::size_t len)
{
    return callout(p_spmi_co, &spmi_co::write, 0, bus, addr, p_buf, len);
}

int spmi_masked_write(unsigned bus, std::uint8_t mask, std::uint32_t addr, std::uint8_t val, std::size_t len)
{
    return callout(p_spmi_co, &spmi_co::masked_write, 0, bus, mask, addr, val, len);
}
