#include "mdml/mdml.h"

#include "check/check.h"

namespace {

constexpr int FAILED = 1;

const mdml_co* p_mdml_co;

template <typename Slot, typename... Args>
int call(Slot mdml_co::*slot, Args... args)
{
    HVT_CHECK(p_mdml_co != nullptr);
    return p_mdml_co->*slot != nullptr ? (p_mdml_co->*slot)(args...) : FAILED;
}

} // namespace

void mdml_init()
{
    p_mdml_co = nullptr;
}

void mdml_cmd_co_attach(const mdml_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_mdml_co = p_co;
}

bool mdml_present()
{
    return p_mdml_co != nullptr;
}

int mdml_off()
{
    return call(&mdml_co::off);
}

int mdml_on(const char* timestamp)
{
    return call(&mdml_co::on, timestamp);
}

int mdml_set_mask(const char* path)
{
    return call(&mdml_co::set_mask, path);
}

int mdml_rm_log(const char* timestamp)
{
    return call(&mdml_co::rm_log, timestamp);
}
