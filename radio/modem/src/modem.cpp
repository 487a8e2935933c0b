#include "modem/modem.h"

#include "callout/callout.h"

namespace {

const modem_co* p_modem_co;

// A phone without a driver lacks all operations but the boot, which must be there.
constexpr modem_co no_driver{};

const modem_co* driver()
{
    return p_modem_co != nullptr ? p_modem_co : &no_driver;
}

} // namespace

void modem_init()
{
    p_modem_co = nullptr;
}

void modem_co_attach(const modem_co* p_co)
{
    p_modem_co = p_co;
}

int modem_boot(std::uint32_t mode)
{
    return callout(p_modem_co, &modem_co::boot, 0, mode);
}

int modem_reset(std::uint32_t value)
{
    return callout(driver(), &modem_co::reset, 0, value);
}

int modem_switch_get(std::uint32_t* p_value)
{
    return callout(driver(), &modem_co::switch_get, 0, p_value);
}

int modem_switch_set(std::uint32_t value)
{
    return callout(driver(), &modem_co::switch_set, 0, value);
}

int modem_fuse(const std::uint8_t* p_data, std::size_t size)
{
    return callout(driver(), &modem_co::fuse, 0, p_data, size);
}

int modem_id(std::uint32_t* p_value)
{
    return callout(driver(), &modem_co::id, 0, p_value);
}
