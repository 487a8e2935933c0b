#include "ta/ta.h"

#include "check/check.h"

namespace {

const ta_if_co* ta_co;

} // namespace

void ta_if_init()
{
    ta_co = nullptr;
}

const ta_if_co* ta_if_cmd_co_attach(const ta_if_co* p_co)
{
    const ta_if_co* const former = ta_co;
    ta_co = p_co;
    return former;
}

int ta_if_open(int write)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->open != nullptr ? ta_co->open(write) : 0;
}

int ta_if_close(int arg)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->close != nullptr ? ta_co->close(arg) : 0;
}

int ta_if_format(int arg1, int arg2)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->format != nullptr ? ta_co->format(arg1, arg2) : 0;
}

int ta_if_get_status()
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->get_status != nullptr ? ta_co->get_status() : 0;
}

int ta_if_set_tran(int flag)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->set_tran != nullptr ? ta_co->set_tran(flag) : 0;
}

int ta_if_get_size(std::uint32_t unit)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->get_size != nullptr ? ta_co->get_size(unit) : 0;
}

std::uint32_t ta_if_get_next_id()
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->get_next_id != nullptr ? ta_co->get_next_id() : 0;
}

int ta_if_read(std::uint32_t unit, void* p_buf, std::size_t room)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->read != nullptr ? ta_co->read(unit, p_buf, room) : 0;
}

int ta_if_write(std::uint32_t unit, std::size_t size, const void* p_data)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->write != nullptr ? ta_co->write(unit, size, p_data) : 0;
}

int ta_if_del(std::uint32_t unit)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->del != nullptr ? ta_co->del(unit) : 0;
}

int ta_if_xfer(std::uint32_t src, std::uint32_t dst, int dir, int opt, int blocking)
{
    HVT_CHECK(ta_co != nullptr);
    return ta_co->xfer != nullptr ? ta_co->xfer(src, dst, dir, opt, blocking) : TA_XFER_FAILED;
}
