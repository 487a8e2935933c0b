#include "spmi/spmi.h"

#include "check/check.h"

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
    HVT_CHECK(p_spmi_co != nullptr);
    return p_spmi_co->read != nullptr ? p_spmi_co->read(bus, addr, p_buf, len) : 0;
}

int spmi_write(unsigned bus, std::uint32_t addr, const std::uint8_t* p_buf, std::size_t len)
{
    HVT_CHECK(p_spmi_co != nullptr);
    return p_spmi_co->write != nullptr ? p_spmi_co->write(bus, addr, p_buf, len) : 0;
}

int spmi_masked_write(unsigned bus, std::uint8_t mask, std::uint32_t addr, std::uint8_t val, std::size_t len)
{
    HVT_CHECK(p_spmi_co != nullptr);
    return p_spmi_co->masked_write != nullptr ? p_spmi_co->masked_write(bus, mask, addr, val, len) : 0;
}
