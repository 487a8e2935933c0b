#include "irda/irda.h"

#include <utility>

#include "callout/callout.h"
#include "check/check.h"

namespace {

irda_co* p_irda_co;
irda_rx_cb rx_cb;

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
    return callout(p_irda_co, &irda_co::start, 0);
}

int irda_stop()
{
    return callout(p_irda_co, &irda_co::stop, 0);
}

int irda_set_para(const irda_para& para)
{
    return callout(p_irda_co, &irda_co::set_para, 0, para);
}

int irda_tx(std::uint32_t mode)
{
    return callout(p_irda_co, &irda_co::tx, 0, mode);
}

int irda_rx(bool on)
{
    return callout(p_irda_co, &irda_co::rx, 0, on);
}

int irda_loop(std::uint32_t mode, std::uint32_t time_ms)
{
    return callout(p_irda_co, &irda_co::loop, 0, mode, time_ms);
}
