#include "vers/vers.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "callout/callout.h"
#include "check/check.h"
#include "rev/rev.h"

namespace {

constexpr const char* NO_VERS = "No version info available";

vers_fn vers_co_lst[VERS_TYPE_LAST];
char vers_qat[256];

const char* rev_text(const char* id)
{
    const char* text = rev_get(id);
    return text != nullptr ? text : "";
}

const char* vers_qat_get(void*)
{
    std::snprintf(vers_qat, sizeof vers_qat, "%s, %s, %s", rev_text("vmrk_rev"), rev_text("bld_date"),
                  rev_text("bld_time"));
    return vers_qat;
}

bool is_type(int type)
{
    return type >= 0 && type < VERS_TYPE_LAST;
}

} // namespace

void vers_init()
{
    std::fill(std::begin(vers_co_lst), std::end(vers_co_lst), nullptr);
    vers_co_attach(VERS_TYPE_QAT, vers_qat_get);
}

const char* vers_get(int type, void* arg)
{
    HVT_CHECK(is_type(type));
    return callout(vers_co_lst[type], NO_VERS, arg);
}

void vers_co_attach(int type, vers_fn fn)
{
    HVT_CHECK(is_type(type));
    vers_co_lst[type] = fn;
}
