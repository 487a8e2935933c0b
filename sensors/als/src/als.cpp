#include "als/als.h"

#include "check/check.h"

namespace {

const als_co* p_als_co;

const als_co& attached()
{
    HVT_CHECK(p_als_co != nullptr);
    return *p_als_co;
}

} // namespace

void als_init()
{
    p_als_co = nullptr;
}

void als_co_attach(const als_co* p_co)
{
    p_als_co = p_co;
}

int als_start()
{
    const als_co& co = attached();
    return co.start != nullptr ? co.start() : 0;
}

int als_stop()
{
    const als_co& co = attached();
    return co.stop != nullptr ? co.stop() : 0;
}

std::uint32_t als_get(std::uint32_t time_ms)
{
    const als_co& co = attached();
    return co.get != nullptr ? co.get(time_ms) : 0;
}

int als_get_resistor()
{
    const als_co& co = attached();
    return co.get_resistor != nullptr ? co.get_resistor() : 0;
}

int als_set_resistor(std::uint32_t kind, std::uint32_t gain, std::uint32_t unused)
{
    const als_co& co = attached();
    return co.set_resistor != nullptr ? co.set_resistor(kind, gain, unused) : 0;
}
