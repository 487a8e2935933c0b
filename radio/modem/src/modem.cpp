#include "modem/modem.h"

#include "check/check.h"

namespace {

const modem_co* p_modem_co;

template <typename Slot, typename... Args>
int call(Slot modem_co::*slot, Args... args)
{
    if (p_modem_co == nullptr || p_modem_co->*slot == nullptr)
        return 0;
    return (p_modem_co->*slot)(args...);
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
    HVT_CHECK(p_modem_co != nullptr);
    return call(&modem_co::boot, mode);
}

int modem_reset(std::uint32_t value)
{
    return call(&modem_co::reset, value);
}

int modem_switch_get(std::uint32_t* p_value)
{
    return call(&modem_co::switch_get, p_value);
}

int modem_switch_set(std::uint32_t value)
{
    return call(&modem_co::switch_set, value);
}

int modem_fuse(const std::uint8_t* p_data, std::size_t size)
{
    return call(&modem_co::fuse, p_data, size);
}

int modem_id(std::uint32_t* p_value)
{
    return call(&modem_co::id, p_value);
}
