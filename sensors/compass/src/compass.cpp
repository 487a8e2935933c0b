#include "compass/compass.h"

#include "check/check.h"

namespace {

const compass_co* p_compass_co;

const compass_co& attached()
{
    HVT_CHECK(p_compass_co != nullptr);
    return *p_compass_co;
}

} // namespace

void compass_init()
{
    p_compass_co = nullptr;
}

void compass_co_attach(const compass_co* p_co)
{
    p_compass_co = p_co;
}

void compass_start()
{
    const compass_co& co = attached();
    if (co.start != nullptr)
        co.start();
}

void compass_stop()
{
    const compass_co& co = attached();
    if (co.stop != nullptr)
        co.stop();
}

int compass_get(compass_reading reading)
{
    const compass_co& co = attached();
    return co.get != nullptr ? co.get(reading) : 0;
}

int compass_selftest(compass_reading reading)
{
    const compass_co& co = attached();
    return co.selftest != nullptr ? co.selftest(reading) : 0;
}

float compass_get_temp()
{
    const compass_co& co = attached();
    return co.get_temp != nullptr ? co.get_temp() : 0;
}
