#include "fuelgauge/fuelgauge.h"

namespace {

fg_co co;

template <typename T>
void take_over(T& slot, T given)
{
    if (given != nullptr)
        slot = given;
}

template <typename... P, typename... A>
int call(int (*slot)(P...), A... args)
{
    return slot != nullptr ? slot(args...) : FUELGAUGE_MISSING;
}

} // namespace

void fuelgauge_init()
{
    co = {};
}

void fuelgauge_cmd_co_attach(const fg_co* p_co)
{
    take_over(co.read_voltage, p_co->read_voltage);
    take_over(co.read_current, p_co->read_current);
    take_over(co.flash_cal, p_co->flash_cal);
    take_over(co.flash_firmware, p_co->flash_firmware);
    take_over(co.write_custom, p_co->write_custom);
    take_over(co.read_custom, p_co->read_custom);
    take_over(co.init_capacity, p_co->init_capacity);
    take_over(co.read_capacity, p_co->read_capacity);
    take_over(co.calibrate, p_co->calibrate);
}

int fuelgauge_read_voltage(int* p_mv)
{
    return call(co.read_voltage, p_mv);
}

int fuelgauge_read_current(int* p_ma)
{
    return call(co.read_current, p_ma);
}

int fuelgauge_flash_cal(std::uintptr_t path)
{
    return call(co.flash_cal, path);
}

int fuelgauge_flash_firmware(std::uintptr_t path)
{
    return call(co.flash_firmware, path);
}

int fuelgauge_write_custom(std::uint32_t reg, std::uint32_t data)
{
    return call(co.write_custom, reg, data);
}

int fuelgauge_read_custom(std::uint32_t reg, int* p_val)
{
    return call(co.read_custom, reg, p_val);
}

int fuelgauge_init_capacity()
{
    return call(co.init_capacity);
}

int fuelgauge_read_capacity(int* p_percent)
{
    return call(co.read_capacity, p_percent);
}

int fuelgauge_calibrate()
{
    return call(co.calibrate);
}
