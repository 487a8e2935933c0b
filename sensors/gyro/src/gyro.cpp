#include "gyro/gyro.h"

#include "check/check.h"

namespace {

const gyro_co* p_gyro_co;

const gyro_co& attached()
{
    HVT_CHECK(p_gyro_co != nullptr);
    return *p_gyro_co;
}

} // namespace

void gyro_init()
{
    p_gyro_co = nullptr;
}

void gyro_co_attach(const gyro_co* p_co)
{
    p_gyro_co = p_co;
}

void gyro_start()
{
    const gyro_co& co = attached();
    if (co.start != nullptr)
        co.start();
}

void gyro_stop()
{
    const gyro_co& co = attached();
    if (co.stop != nullptr)
        co.stop();
}

int gyro_get(gyro_rate rate)
{
    const gyro_co& co = attached();
    return co.get != nullptr ? co.get(rate) : 0;
}

int gyro_get_calibrated(gyro_rate rate)
{
    const gyro_co& co = attached();
    return co.get_calibrated != nullptr ? co.get_calibrated(rate) : 0;
}

int gyro_get_offset(gyro_offset offset)
{
    const gyro_co& co = attached();
    return co.get_offset != nullptr ? co.get_offset(offset) : 0;
}

int gyro_offset_calibration(const gyro_offset wanted)
{
    const gyro_co& co = attached();
    return co.offset_calibration != nullptr ? co.offset_calibration(wanted) : 0;
}

int gyro_self_test(int* p_result)
{
    const gyro_co& co = attached();
    return co.self_test != nullptr ? co.self_test(p_result) : 0;
}

int gyro_chip_id()
{
    const gyro_co& co = attached();
    return co.chip_id != nullptr ? co.chip_id() : 0;
}

float gyro_get_temp()
{
    const gyro_co& co = attached();
    return co.get_temp != nullptr ? co.get_temp() : 0;
}

int gyro_rw_temp_ta(float* p_degrees)
{
    const gyro_co& co = attached();
    return co.rw_temp_ta != nullptr ? co.rw_temp_ta(p_degrees) : 0;
}

int gyro_init_ta()
{
    const gyro_co& co = attached();
    return co.init_ta != nullptr ? co.init_ta() : 0;
}

int gyro_backup(int* p_result)
{
    const gyro_co& co = attached();
    return co.backup != nullptr ? co.backup(p_result) : 0;
}
