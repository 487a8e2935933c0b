#include "syscfg/syscfg.h"

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
    HVT_CHECK(p_syscfg_co != nullptr);
    return p_syscfg_co->set_mode != nullptr ? p_syscfg_co->set_mode(mode) : NO_OPERATION;
}

const char* const* syscfg_get_modes(int* p_count)
{
    HVT_CHECK(p_syscfg_co != nullptr);
    *p_count = 0;
    return p_syscfg_co->get_modes != nullptr ? p_syscfg_co->get_modes(p_count) : nullptr;
}

const char* const* syscfg_get_settings(int* p_count)
{
    HVT_CHECK(p_syscfg_co != nullptr);
    *p_count = 0;
    return p_syscfg_co->get_settings != nullptr ? p_syscfg_co->get_settings(p_count) : nullptr;
}

const char* syscfg_get_setting(unsigned index)
{
    HVT_CHECK(p_syscfg_co != nullptr);
    return p_syscfg_co->get_setting != nullptr ? p_syscfg_co->get_setting(index) : nullptr;
}

int syscfg_set_setting(unsigned index, const char* text)
{
    HVT_CHECK(p_syscfg_co != nullptr);
    return p_syscfg_co->set_setting != nullptr ? p_syscfg_co->set_setting(index, text) : NO_OPERATION;
}

int syscfg_set_ip_addr(unsigned byte)
{
    HVT_CHECK(p_syscfg_co != nullptr);
    return p_syscfg_co->set_ip_addr != nullptr ? p_syscfg_co->set_ip_addr(byte) : NO_OPERATION;
}
