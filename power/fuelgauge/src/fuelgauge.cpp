#include "fuelgauge/fuelgauge.h"

#include "callout/callout.h"
#include "overlay/overlay.h"

namespace {

fg_co co;

// clang-format off
constexpr std::tuple slots = {
    &fg_co::read_voltage,
    &fg_co::read_current,
    &fg_co::flash_cal,
    &fg_co::flash_firmware,
    &fg_co::write_custom,
    &fg_co::read_custom,
    &fg_co::init_capacity,
    &fg_co::read_capacity,
    &fg_co::calibrate,
};
// clang-format on

} // namespace

void fuelgauge_init()
{
    co = {};
}

void fuelgauge_cmd_co_attach(const fg_co* p_co)
{
    overlay(co, *p_co, slots);
}

int fuelgauge_read_voltage(int* p_mv)
{
    return callout(co.read_voltage, FUELGAUGE_MISSING, p_mv);
}

int fuelgauge_read_current(int* p_ma)
{
    return callout(co.read_current, FUELGAUGE_MISSING, p_ma);
}

int fuelgauge_flash_cal(std::uintptr_t path)
{
    return callout(co.flash_cal, FUELGAUGE_MISSING, path);
}

int fuelgauge_flash_firmware(std::uintptr_t path)
{
    return callout(co.flash_firmware, FUELGAUGE_MISSING, path);
}

int fuelgauge_write_custom(std::uint32_t reg, std::uint32_t data)
{
    return callout(co.write_custom, FUELGAUGE_MISSING, reg, data);
}

int fuelgauge_read_custom(std::uint32_t reg, int* p_val)
{
    return callout(co.read_custom, FUELGAUGE_MISSING, reg, p_val);
}

int fuelgauge_init_capacity()
{
    return callout(co.init_capacity, FUELGAUGE_MISSING);
}

int fuelgauge_read_capacity(int* p_percent)
{
    return callout(co.read_capacity, FUELGAUGE_MISSING, p_percent);
}

int fuelgauge_calibrate()
{
    return callout(co.calibrate, FUELGAUGE_MISSING);
}
