#include "mdml/mdml.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

constexpr int FAILED = 1;

const mdml_co* p_mdml_co;

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
    return callout(p_mdml_co, &mdml_co::off, FAILED);
}

int mdml_on(const char* timestamp)
{
    return callout(p_mdml_co, &mdml_co::on, FAILED, timestamp);
}

int mdml_set_mask(const char* path)
{
    return callout(p_mdml_co, &mdml_co::set_mask, FAILED, path);
}

int mdml_rm_log(const char* timestamp)
{
    return callout(p_mdml_co, &mdml_co::rm_log, FAILED, timestamp);
}
