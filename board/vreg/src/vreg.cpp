#include "vreg/vreg.h"

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
    HVT_CHECK(p_vreg_co != nullptr);
    return p_vreg_co->enable != nullptr ? p_vreg_co->enable(name) : NO_OPERATION;
}

int vreg_disable(const char* name)
{
    HVT_CHECK(p_vreg_co != nullptr);
    return p_vreg_co->disable != nullptr ? p_vreg_co->disable(name) : NO_OPERATION;
}

int vreg_set_level(const char* name, int mv)
{
    HVT_CHECK(p_vreg_co != nullptr);
    return p_vreg_co->set_level != nullptr ? p_vreg_co->set_level(name, mv) : NO_OPERATION;
}

int vreg_get_level(const char* name, int* p_lvl, int* p_min, int* p_max)
{
    HVT_CHECK(p_vreg_co != nullptr);
    return p_vreg_co->get_level != nullptr ? p_vreg_co->get_level(name, p_lvl, p_min, p_max) : NO_OPERATION;
}

int vreg_set_mode(const char* name, int mode)
{
    HVT_CHECK(p_vreg_co != nullptr);
    return p_vreg_co->set_mode != nullptr ? p_vreg_co->set_mode(name, mode) : NO_OPERATION;
}

int vreg_get_name(int index, char* p_buf, std::size_t size)
{
    HVT_CHECK(p_vreg_co != nullptr);
    return p_vreg_co->get_name != nullptr ? p_vreg_co->get_name(index, p_buf, size) : NO_OPERATION;
}
