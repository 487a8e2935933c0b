// The parameter block and the state word.
#include <cstring>

#include "tmr/tmr.h"
#include "tunerx/tunerx.h"
#include "unit.h"

tunx_params tunXParams;

namespace {

// clang-format off
constexpr tunerx_setup default_setup = {
    .slave    = { 104, 105, 106 },
    .reg_file = { "/system/etc/isdbtmm/MN88552_OFDM_F_DIFF_ISDB-T_6MHz_130128.rgs",
                  "/system/etc/isdbtmm/MN88552_ofdm_s_20121108_diff.rgs",
                  "/system/etc/isdbtmm/MN88552_MT_20121107.rgs",
                  "/system/etc/isdbtmm/MN88552_RF_20121108.rgs" },
    .fw_file  = { "/system/etc/isdbtmm/PSEQ1_MN88552_130129_bprty.hex",
                  "/system/etc/isdbtmm/TNCTL20130219p_diff.hex" },
    .ch_file  =   "/system/etc/isdbtmm/MN88552_chfile_20130301_Tmm.csv",
};
// clang-format on

void take_name(char (&to)[512], const char (&from)[512])
{
    if (from[0] == '\0')
        return;
    std::memcpy(to, from, sizeof to);
    to[sizeof to - 1] = '\0';
}

// What the chip says of its program: running or not.
int check_running()
{
    std::uint8_t reg242;
    if (unit_get(TUNER_A, 242, reg242) != 0)
        return -1;
    const bool runs = (reg242 & 0x02) != 0;
    if (runs == tunerx_is_initialised())
        return TUNERX_OK;
    tunXParams.state = runs ? TUNER_INITIALISED : TUNER_BOOTED;
    return TUNERX_WRONG_STATE;
}

// Which path a tuned chip is on.
int check_path()
{
    std::uint8_t reg0, reg2;
    if (unit_get(TUNER_B, 0, reg0) != 0 || unit_get(TUNER_B, 2, reg2) != 0)
        return -1;
    const unsigned variant = reg2 >> 6;
    const bool narrow = (reg0 & 0x01) != 0;
    if (variant == 2 || (narrow && variant != 1))
        return TUNERX_WRONG_STATE;
    const std::uint32_t wide = variant == 1 ? TUNER_WIDE_THIRD : TUNER_WIDE;
    tunXParams.state = narrow ? TUNER_NARROW : wide;
    return TUNERX_OK;
}

} // namespace

std::uint16_t tunerx_slave(unsigned unit)
{
    return tunXParams.setup.slave[unit];
}

std::uint64_t tuner_get_time()
{
    return tmr_get64() / 1000;
}

void libtuner_init()
{
    tunXParams = {};
    tunXParams.setup = default_setup;
    tunXParams.ch = 13;
    tunXParams.record = -1;
    tunXParams.status = TUNER_NOT_TUNED;
    tunXParams.wait = 1;
}

int tunerx_start(const tunerx_setup* p_setup)
{
    if (p_setup == nullptr)
        return TUNERX_BAD_ARGUMENT;
    libtuner_init();
    tunerx_setup& own = tunXParams.setup;
    std::memcpy(own.slave, p_setup->slave, sizeof own.slave);
    for (int i = 0; i < 4; i++)
        take_name(own.reg_file[i], p_setup->reg_file[i]);
    for (int i = 0; i < 2; i++)
        take_name(own.fw_file[i], p_setup->fw_file[i]);
    take_name(own.ch_file, p_setup->ch_file);
    return TUNERX_OK;
}

bool tunerx_is_initialised()
{
    return (tunXParams.state & TUNER_INITIALISED) >= TUNER_INITIALISED;
}

int tuner_check_circuit()
{
    if ((tunXParams.state & TUNER_BOOTED) < TUNER_BOOTED)
        return TUNERX_WRONG_STATE;
    if (tunXParams.state == TUNER_BOOTED)
        return TUNERX_OK;
    const int rc = check_running();
    if (rc != TUNERX_OK || tunXParams.state == TUNER_INITIALISED)
        return rc;
    return check_path();
}
