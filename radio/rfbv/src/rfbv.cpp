#include "rfbv/rfbv.h"

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
    HVT_CHECK(p_rfbv_co != nullptr);
    return p_rfbv_co->read != nullptr ? p_rfbv_co->read(p_pin, p_val) : 0;
}

int rfbv_setup()
{
    HVT_CHECK(p_rfbv_co != nullptr);
    return p_rfbv_co->setup != nullptr ? p_rfbv_co->setup() : 0;
}

int rfbv_get_config(char* p_buf, std::size_t room)
{
    HVT_CHECK(p_rfbv_co != nullptr);
    return p_rfbv_co->get_config != nullptr ? p_rfbv_co->get_config(p_buf, room) : 0;
}
