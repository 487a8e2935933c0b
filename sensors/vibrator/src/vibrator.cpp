#include "vibr_inner.h"

#include "check/check.h"

namespace {

const vibrator_co* p_vibrator_co;

} // namespace

const vibrator_co& vibrator_attached()
{
    HVT_CHECK(p_vibrator_co != nullptr);
    return *p_vibrator_co;
}

void vibrator_init()
{
    p_vibrator_co = nullptr;
}

void vibrator_co_attach(const vibrator_co* p_co)
{
    p_vibrator_co = p_co;
}

int vibrator_start()
{
    const vibrator_co& co = vibrator_attached();
    return co.start != nullptr ? co.start() : -1;
}

int vibrator_stop()
{
    const vibrator_co& co = vibrator_attached();
    return co.stop != nullptr ? co.stop() : -1;
}

int vibrator_start_with_level(int number, int level)
{
    const vibrator_co& co = vibrator_attached();
    return co.start_with_level != nullptr ? co.start_with_level(number, level) : -1;
}
