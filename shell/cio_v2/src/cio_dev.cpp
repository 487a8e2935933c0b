// The kinds of device that a console can stand on.
#include "cio_v2/cio.h"

#include "check/check.h"

#include <cstring>

namespace {

slnk cio_dev_head;

} // namespace

void cio_dev_init()
{
    slnk_init(&cio_dev_head);
}

void cio_dev_reg(cio_dev* p_dev)
{
    HVT_CHECK(!cio_dev_find(p_dev->nm));
    slnk_add(&cio_dev_head, &p_dev->link);
}

cio_dev* cio_dev_find(const char* nm)
{
    for (slnk* p = slnk_next(&cio_dev_head); p; p = slnk_next(p)) {
        auto* p_dev = reinterpret_cast<cio_dev*>(p);
        if (std::strcmp(p_dev->nm, nm) == 0)
            return p_dev;
    }
    return nullptr;
}
