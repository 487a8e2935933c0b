#include "aclmr/aclmr.h"

#include "check/check.h"

namespace {

const aclmr_co* p_aclmr_co;

const aclmr_co& attached()
{
    HVT_CHECK(p_aclmr_co != nullptr);
    return *p_aclmr_co;
}

} // namespace

void aclmr_init()
{
    p_aclmr_co = nullptr;
}

void aclmr_co_attach(const aclmr_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_aclmr_co = p_co;
}

int aclmr_store_offset()
{
    const aclmr_co& co = attached();
    return co.store_offset != nullptr ? co.store_offset() : 0;
}

int aclmr_offset_calibration(const aclmr_vector vector)
{
    const aclmr_co& co = attached();
    return co.offset_calibration != nullptr ? co.offset_calibration(vector) : 0;
}

void aclmr_start()
{
    const aclmr_co& co = attached();
    if (co.start != nullptr)
        co.start();
}

void aclmr_stop()
{
    const aclmr_co& co = attached();
    if (co.stop != nullptr)
        co.stop();
}

int aclmr_chip_id()
{
    const aclmr_co& co = attached();
    return co.chip_id != nullptr ? co.chip_id() : 0;
}

int aclmr_get(aclmr_vector vector)
{
    const aclmr_co& co = attached();
    return co.get != nullptr ? co.get(vector) : 0;
}

int aclmr_get_samples(int count, int mode, int bandwidth, char* text)
{
    const aclmr_co& co = attached();
    return co.get_samples != nullptr ? co.get_samples(count, mode, bandwidth, text) : 0;
}

int aclmr_get_offset(aclmr_vector vector)
{
    const aclmr_co& co = attached();
    return co.get_offset != nullptr ? co.get_offset(vector) : 0;
}

int aclmr_get_rom_state()
{
    const aclmr_co& co = attached();
    return co.get_rom_state != nullptr ? co.get_rom_state() : ACLMR_NO_ROM_STATE;
}

int aclmr_selftest(aclmr_vector vector)
{
    const aclmr_co& co = attached();
    return co.selftest != nullptr ? co.selftest(vector) : 0;
}

int aclmr_get_temp()
{
    const aclmr_co& co = attached();
    return co.get_temp != nullptr ? co.get_temp() : 0;
}

std::uint16_t aclmr_nvm_backup()
{
    const aclmr_co& co = attached();
    return static_cast<std::uint16_t>(co.nvm_backup != nullptr ? co.nvm_backup() : 0);
}
