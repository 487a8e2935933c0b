#include "irda/irda.h"

#include <utility>

#include "check/check.h"

namespace {

irda_co* p_irda_co;
irda_rx_cb rx_cb;

template <typename... Params, typename... Args>
int call(int (*irda_co::*slot)(Params...), const Args&... args)
{
    HVT_CHECK(p_irda_co != nullptr);
    return p_irda_co->*slot != nullptr ? (p_irda_co->*slot)(args...) : 0;
}

} // namespace

void irda_init()
{
    p_irda_co = nullptr;
    rx_cb = nullptr;
}

void irda_co_attach(irda_co* p_co)
{
    p_irda_co = p_co;
    p_co->report = rx_cb;
}

irda_rx_cb irda_rx_evt_attach(irda_rx_cb cb)
{
    HVT_CHECK(cb != nullptr);
    return std::exchange(rx_cb, cb);
}

int irda_start()
{
    return call(&irda_co::start);
}

int irda_stop()
{
    return call(&irda_co::stop);
}

int irda_set_para(const irda_para& para)
{
    return call(&irda_co::set_para, para);
}

int irda_tx(std::uint32_t mode)
{
    return call(&irda_co::tx, mode);
}

int irda_rx(bool on)
{
    return call(&irda_co::rx, on);
}

int irda_loop(std::uint32_t mode, std::uint32_t time_ms)
{
    return call(&irda_co::loop, mode, time_ms);
}
