#include "fm/fm.h"

#include "check/check.h"

namespace {

const fm_co* p_fm_co;

template <typename Result, typename... Params, typename... Args>
Result call(Result (*fm_co::*slot)(Params...), Args... args)
{
    HVT_CHECK(p_fm_co != nullptr);
    return p_fm_co->*slot != nullptr ? (p_fm_co->*slot)(args...) : Result();
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
    return call(&fm_co::start);
}

void fm_stop()
{
    call(&fm_co::stop);
}

std::uint32_t fm_chip_id()
{
    return call(&fm_co::chip_id);
}

std::uint32_t fm_dev_id()
{
    return call(&fm_co::dev_id);
}

void fm_band_set(int band)
{
    call(&fm_co::band_set, band);
}

void fm_space_set(int space)
{
    call(&fm_co::space_set, space);
}

void fm_vol_set(std::uint16_t volume)
{
    call(&fm_co::vol_set, volume);
}

void fm_de_set(int de_emphasis)
{
    call(&fm_co::de_set, de_emphasis);
}

int fm_freq_set(std::uint32_t hz)
{
    return call(&fm_co::freq_set, hz);
}

std::uint32_t fm_rssi_get()
{
    return call(&fm_co::rssi_get);
}

std::uint32_t fm_reg_get(std::uint8_t reg)
{
    return call(&fm_co::reg_get, reg);
}
