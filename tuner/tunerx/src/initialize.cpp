// Bring-up: clocks, the two programs of the chip with their patches, its settings, the channel table.
#include <iterator>

#include "tmr/tmr.h"
#include "tunerx/tuner_reg.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_files.h"
#include "unit.h"

namespace {

constexpr std::uint8_t A = TUNER_A;
constexpr std::uint8_t B = TUNER_B;
constexpr std::uint8_t C = TUNER_C;

// clang-format off
constexpr unit_bits pll_and_adc_cold[] = {
    // unit  reg  mask  value
    { A,      50, 0xFF,    7 },
    { A,     109, 0xFF,    7 },
    { A,     110, 0xFF,   57 },
    { A,      76, 0xFF,   16 },
    { A,     148, 0xFF,   18 },
    { A,     149, 0xFF,   20 },
};
constexpr unit_bits pll_and_adc[] = {
    { A,      48, 0xFF,   33 },
    { A,     151, 0x02, 0x02 },
    { A,     151, 0x01, 0x01 },
};
constexpr unit_bits pseq1_loadrom_start[] = {
    { B,     244, 0x1F, 0x00 },
    { B,     245, 0xFF, 0x00 },
    { B,     243, 0x03, 0x03 },
    { C,     210, 0xFF, 0x00 },
    { B,     242, 0x07, 0x00 },
    { B,     242, 0x02, 0x02 },
    { B,     242, 0x01, 0x01 },
};
constexpr unit_bits tnctl_loadrom_start[] = {
    { A,     244, 0x1F, 0x00 },
    { A,     245, 0xFF, 0x00 },
    { A,     243, 0x03, 0x03 },
    { C,     210, 0xFF, 0x00 },
    { A,     242, 0x07, 0x00 },
    { A,     242, 0x02, 0x02 },
    { A,     242, 0x01, 0x01 },
};
constexpr unit_bits pseq1_release[] = {
    { B,     243, 0x02, 0x02 },
    { B,     243, 0x01, 0x00 },
};
constexpr unit_bits tnctl_release[] = {
    { A,     245, 0xFF, 0x00 },
    { A,     244, 0x3F,   39 },
    { A,     243, 0x02, 0x02 },
    { A,     243, 0x01, 0x00 },
};
// clang-format on

int device(int rc)
{
    return rc == 0 ? TUNERX_OK : TUNERX_DEVICE;
}

int tuner_ini_pll_and_adc()
{
    std::uint8_t reg149;
    if (unit_get(A, 149, reg149) != 0)
        return TUNERX_DEVICE;
    if (reg149 == 0 && unit_write(pll_and_adc_cold) != 0)
        return TUNERX_DEVICE;
    return device(unit_write(pll_and_adc));
}

int tuner_ini_pseq1_loadrom_start()
{
    return device(unit_write(pseq1_loadrom_start));
}

int tuner_ini_tnctl_loadrom_start()
{
    return device(unit_write(tnctl_loadrom_start));
}

int tuner_ini_setup_reg()
{
    int warnings = 0;
    for (int i = 0; i < 4; i++) {
        std::vector<tunerx_reg_line> lines;
        if (!tunerx_read_reg_file(tunXParams.setup.reg_file[i], lines)) {
            warnings |= TUNERX_NO_REGISTERS << i;
            continue;
        }
        std::vector<unit_bits> group;
        for (const tunerx_reg_line& line : lines)
            group.push_back({line.unit, line.reg, 0xFF, line.value});
        if (unit_write(group) != 0)
            return TUNERX_DEVICE;
    }
    return warnings;
}

// The program of a unit is loaded when bit 6 says so; bit 4 is its fault.
int check_loaded(unsigned unit)
{
    std::uint8_t reg248;
    if (unit_poll(unit, 248, 0x40, 100, 500, reg248) != 0)
        return TUNERX_DEVICE;
    return (reg248 & 0x10) == 0 ? TUNERX_OK : TUNERX_DEVICE;
}

int tuner_ini_pseq1_loadrom_check()
{
    return check_loaded(B);
}

int tuner_ini_tnctl_loadrom_check()
{
    return check_loaded(A);
}

int load_block(std::uint8_t unit, const tunerx_patch& block)
{
    // clang-format off
    const unit_bits start[] = {
        { unit, 244, 0x1F, static_cast<std::uint8_t>(block.adr >> 8 & 0x1F) },
        { unit, 245, 0xFF, static_cast<std::uint8_t>(block.adr & 0xFF) },
        { unit, 243, 0x02, 0x02 },
    };
    // clang-format on
    std::uint8_t reg248;
    if (unit_write(start) != 0 ||
        tuner_device_write(tunerx_slave(unit), 246, block.data.data(), block.data.size()) != 0 ||
        unit_get(unit, 248, reg248) != 0)
        return TUNERX_DEVICE;
    return (reg248 >> 4 & 1) == block.parity ? TUNERX_OK : TUNERX_DEVICE;
}

int patch_load(std::uint8_t unit, const tunerx_patch_list& list)
{
    for (const tunerx_patch& block : list)
        if (load_block(unit, block) != TUNERX_OK)
            return TUNERX_DEVICE;
    return TUNERX_OK;
}

int patch_apply(std::uint8_t unit, int which, int warning)
{
    tunerx_patch_list list;
    return tuner_read_fw_patch(which, list) == 0 ? patch_load(unit, list) : warning;
}

int tuner_ini_pseq1_patch_apply()
{
    return patch_apply(B, TUNER_FW_PSEQ1, TUNERX_NO_PSEQ1);
}

int tuner_ini_tnctl_patch_apply()
{
    return patch_apply(A, TUNER_FW_TNCTL, TUNERX_NO_TNCTL);
}

int tuner_ini_pseq1_release()
{
    return device(unit_write(pseq1_release));
}

int tuner_ini_tnctl_release()
{
    const int rc = device(unit_write(tnctl_release));
    if (rc == TUNERX_OK)
        tmr_msleep(250);
    return rc;
}

int tuner_ini_wait_calend()
{
    std::uint8_t reg214;
    const int rc = unit_poll(A, 214, 0x01, 50, 500, reg214);
    return rc == UNIT_TIME_OVER ? TUNERX_GENERAL : device(rc);
}

using step_fn = int (*)();

constexpr step_fn steps[] = {
    tuner_ini_pll_and_adc,       tuner_ini_pseq1_loadrom_start, tuner_ini_tnctl_loadrom_start,
    tuner_ini_setup_reg,         tuner_ini_pseq1_loadrom_check, tuner_ini_tnctl_loadrom_check,
    tuner_ini_pseq1_patch_apply, tuner_ini_tnctl_patch_apply,   tuner_ini_pseq1_release,
    tuner_ini_tnctl_release,     tuner_ini_wait_calend,
};

} // namespace

int tunerx_initialize()
{
    const int rc = tuner_check_circuit();
    if (rc != TUNERX_OK)
        return rc;
    if (tunXParams.state != TUNER_BOOTED)
        return TUNERX_WRONG_STATE;
    int warnings = 0;
    for (const step_fn step : steps) {
        const int result = step();
        if ((result & TUNERX_FAILED) != 0)
            return result;
        warnings |= result;
    }
    tunXParams.state = TUNER_INITIALISED;
    return warnings | tuner_read_chfile(tunXParams.setup.ch_file);
}
