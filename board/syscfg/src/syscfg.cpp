#include "syscfg/syscfg.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

constexpr int NO_OPERATION = 1;

const syscfg_co* p_syscfg_co;

} // namespace

void syscfg_init()
{
    p_syscfg_co = nullptr;
}

void syscfg_cmd_co_attach(const syscfg_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_syscfg_co = p_co;
}

int syscfg_set_mode(unsigned mode)
{
    return callout(p_syscfg_co, &syscfg_co::set_mode, NO_OPERATION, mode);
}

const char* const* syscfg_get_modes(int* p_count)
{
    *p_count = 0;
    return callout(p_syscfg_co, &syscfg_co::get_modes, nullptr, p_count);
}

const char* const* syscfg_get_settings(int* p_count)
{
    *p_count = 0;
    return callout(p_syscfg_co, &syscfg_co::get_settings, nullptr, p_count);
}

const char* syscfg_get_setting(unsigned index)
{
    return callout(p_syscfg_co, &syscfg_co::get_setting, nullptr, index);
}

int syscfg_set_setting(unsigned index, const char* text)
{
    return callout(p_syscfg_co, &syscfg_co::set_setting, NO_OPERATION, index, text);
}

int syscfg_set_ip_addr(unsigned byte)
{
    return callout(p_syscfg_co, &syscfg_co::set_ip_addr, NO_OPERATION, byte);
}
