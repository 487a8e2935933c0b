#include "ta/ta.h"

#include "callout/callout.h"

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
    return callout(ta_co, &ta_if_co::open, 0, write);
}

int ta_if_close(int arg)
{
    return callout(ta_co, &ta_if_co::close, 0, arg);
}

int ta_if_format(int arg1, int arg2)
{
    return callout(ta_co, &ta_if_co::format, 0, arg1, arg2);
}

int ta_if_get_status()
{
    return callout(ta_co, &ta_if_co::get_status, 0);
}

int ta_if_set_tran(int flag)
{
    return callout(ta_co, &ta_if_co::set_tran, 0, flag);
}

int ta_if_get_size(std::uint32_t unit)
{
    return callout(ta_co, &ta_if_co::get_size, 0, unit);
}

std::uint32_t ta_if_get_next_id()
{
    return callout(ta_co, &ta_if_co::get_next_id, 0);
}

int ta_if_read(std::uint32_t unit, void* p_buf, std::size_t room)
{
    return callout(ta_co, &ta_if_co::read, 0, unit, p_buf, room);
}

int ta_if_write(std::uint32_t unit, std::size_t size, const void* p_data)
{
    return callout(ta_co, &ta_if_co::write, 0, unit, size, p_data);
}

int ta_if_del(std::uint32_t unit)
{
    return callout(ta_co, &ta_if_co::del, 0, unit);
}

int ta_if_xfer(std::uint32_t src, std::uint32_t dst, int dir, int opt, int blocking)
{
    return callout(ta_co, &ta_if_co::xfer, TA_XFER_FAILED, src, dst, dir, opt, blocking);
}
