#include "fm/fm.h"

#include "callout/callout.h"
#include "check/check.h"

namespace {

const fm_co* p_fm_co;

// For a slot that gives nothing.
template <class... P, class... A>
void tell(void (*fm_co::*slot)(P...), A... args)
{
    HVT_CHECK(p_fm_co != nullptr);
    if (p_fm_co->*slot != nullptr)
        (p_fm_co->*slot)(args...);
}

} // namespace

void fm_init()
{
    p_fm_co = nullptr;
}

void fm_co_attach(const fm_co* p_co)
{
    p_fm_co = p_co;
}

int fm_start()
{
    return callout(p_fm_co, &fm_co::start, 0);
}

void fm_stop()
{
    tell(&fm_co::stop);
}

std::uint32_t fm_chip_id()
{
    return callout(p_fm_co, &fm_co::chip_id, 0);
}

std::uint32_t fm_dev_id()
{
    return callout(p_fm_co, &fm_co::dev_id, 0);
}

void fm_band_set(int band)
{
    tell(&fm_co::band_set, band);
}

void fm_space_set(int space)
{
    tell(&fm_co::space_set, space);
}

void fm_vol_set(std::uint16_t volume)
{
    tell(&fm_co::vol_set, volume);
}

void fm_de_set(int de_emphasis)
{
    tell(&fm_co::de_set, de_emphasis);
}

int fm_freq_set(std::uint32_t hz)
{
    return callout(p_fm_co, &fm_co::freq_set, 0, hz);
}

std::uint32_t fm_rssi_get()
{
    return callout(p_fm_co, &fm_co::rssi_get, 0);
}

std::uint32_t fm_reg_get(std::uint8_t reg)
{
    return callout(p_fm_co, &fm_co::reg_get, 0, reg);
}
