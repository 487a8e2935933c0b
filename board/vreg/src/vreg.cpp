#include "vreg/vreg.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

constexpr int NO_OPERATION = 1;

const vreg_co* p_vreg_co;

} // namespace

void vreg_init()
{
    p_vreg_co = nullptr;
}

void vreg_cmd_co_attach(const vreg_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_vreg_co = p_co;
}

int vreg_enable(const char* name)
{
    return callout(p_vreg_co, &vreg_co::enable, NO_OPERATION, name);
}

int vreg_disable(const char* name)
{
    return callout(p_vreg_co, &vreg_co::disable, NO_OPERATION, name);
}

int vreg_set_level(const char* name, int mv)
{
    return callout(p_vreg_co, &vreg_co::set_level, NO_OPERATION, name, mv);
}

int vreg_get_level(const char* name, int* p_lvl, int* p_min, int* p_max)
{
    return callout(p_vreg_co, &vreg_co::get_level, NO_OPERATION, name, p_lvl, p_min, p_max);
}

int vreg_set_mode(const char* name, int mode)
{
    return callout(p_vreg_co, &vreg_co::set_mode, NO_OPERATION, name, mode);
}

int vreg_get_name(int index, char* p_buf, std::size_t size)
{
    return callout(p_vreg_co, &vreg_co::get_name, NO_OPERATION, index, p_buf, size);
}
