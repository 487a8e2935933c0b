#include "rfbv/rfbv.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

const rfbv_co* p_rfbv_co;

} // namespace

void rfbv_init()
{
    p_rfbv_co = nullptr;
}

void rfbv_cmd_co_attach(const rfbv_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_rfbv_co = p_co;
}

int rfbv_read(unsigned* p_pin, int* p_val)
{
    return callout(p_rfbv_co, &rfbv_co::read, 0, p_pin, p_val);
}

int rfbv_setup()
{
    return callout(p_rfbv_co, &rfbv_co::setup, 0);
}

int rfbv_get_config(char* p_buf, std::size_t room)
{
    return callout(p_rfbv_co, &rfbv_co::get_config, 0, p_buf, room);
}
