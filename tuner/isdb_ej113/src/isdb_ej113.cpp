#include "isdb_ej113/isdb_ej113.h"

#include <cmath>

#include "isdb/isdb.h"
#include "pin/pin.h"
#include "pin/signals.h"
#include "reg.h"
#include "stream_tests.h"
#include "tmr/tmr.h"
#include "tuner/tuner.h"
#include "tunerx/tunerx_hwl.h"

namespace {

constexpr std::uint64_t COUNTER_LIMIT_US = 3000000;
constexpr std::uint32_t COUNTER_PAUSE_US = 10000;
constexpr std::uint64_t BUS_LIMIT_US = 3000000;
constexpr std::uint32_t BUS_PAUSE_US = 100000;

// clang-format off
constexpr int band_of_uhf[2] = { 0, 1 }; // by mode: wide, narrow
constexpr int band_of_vhf[2] = { 3, 4 };
// clang-format on

int isdb_ej113_pon()
{
    pin_out_set(PIN_OUT_TUNER_POWER2, PIN_ACTIVE);
    tmr_msleep(15);
    pin_out_set(PIN_OUT_TUNER_POWER1, PIN_ACTIVE);
    tmr_msleep(5);
    tuner_put_status(TUNER_POWERED);
    tunerx_hwl_device_open();
    tuner_ctl_power(0);
    tuner_put_status(TUNER_BOOTED);
    tuner_initialize(1);
    pin_out_set(PIN_OUT_TUNER_RESET, PIN_ACTIVE);
    return 1;
}

int isdb_ej113_poff()
{
    pin_out_set(PIN_OUT_TUNER_RESET, PIN_INACTIVE);
    pin_out_set(PIN_OUT_TUNER_POWER1, PIN_INACTIVE);
    tmr_msleep(5);
    pin_out_set(PIN_OUT_TUNER_POWER2, PIN_INACTIVE);
    return 1;
}

int isdb_ej113_tuning(std::uint32_t ch, int mode)
{
    tunerx_tuning(band_of_uhf[mode == 1 ? 1 : 0], ch);
    return 1;
}

int isdb_ej113_select_mode_ch(int, int mode, std::uint32_t ch)
{
    tunerx_tuning(band_of_vhf[mode == 1 ? 1 : 0], ch);
    return 1;
}

int isdb_ej113_controlLNA(int)
{
    return 1;
}

int isdb_ej113_lbOP()
{
    return 1;
}

int isdb_ej113_i2c_rd(unsigned slave, unsigned reg, std::uint8_t* p_byte)
{
    isdb_reg_rd(slave, reg, p_byte);
    return 1;
}

int isdb_ej113_getID(std::uint8_t* p_byte)
{
    return isdb_ej113_i2c_rd(ISDB_WIDE, 255, p_byte);
}

int isdb_ej113_getSigLev(std::uint8_t* p_byte)
{
    return isdb_ej113_i2c_rd(ISDB_CONTROL, 215, p_byte);
}

int isdb_ej113_checkSync(std::uint8_t* p_byte, int mode)
{
    if (mode == 0)
        return isdb_ej113_i2c_rd(ISDB_WIDE, 149, p_byte);
    if (mode == 1)
        return isdb_ej113_i2c_rd(ISDB_NARROW, 135, p_byte);
    return 1;
}

int isdb_ej113_switchANT(int value)
{
    if (value < 0 || value > 7)
        value = 0;
    const auto state = [value](int bit) { return (value >> bit & 1) != 0 ? PIN_ACTIVE : PIN_INACTIVE; };
    pin_out_set(PIN_OUT_ANTENNA2, state(2));
    pin_out_set(PIN_OUT_ANTENNA1, state(1));
    return pin_out_set(PIN_OUT_ANTENNA0, state(0));
}

// Registers from `reg` on, highest byte first.
double number_at(unsigned slave, unsigned reg, unsigned bytes)
{
    double number = 0;
    for (unsigned i = 0; i < bytes; i++)
        number = number * 256 + isdb_reg(slave, reg + i);
    return number;
}

double decibels(double full, double x, double offset)
{
    return std::log10(full / x) * 10 + offset;
}

// No errors in no period is "nan" without a sign.
double ratio_of(double errors, double period, int kind)
{
    const double ratio = errors / (kind == 0 ? period * 203 * 8 : period);
    return std::isnan(ratio) ? std::fabs(ratio) : ratio;
}

// Until the counter of a layer is ready, or its time is over; layer 0 has no such bit.
void wait_for_counter(int layer)
{
    constexpr std::uint8_t ready_of[4] = {0, 0x20, 0x08, 0x02};
    const std::uint8_t ready = ready_of[layer];
    const std::uint64_t start = tmr_get64();
    while (ready != 0 && (isdb_reg(ISDB_WIDE, 195) & ready) == 0 && tmr_get64() - start < COUNTER_LIMIT_US)
        tmr_usleep(COUNTER_PAUSE_US);
}

int get_wide_bper(int kind, int layer, isdb_bper_result* p_result)
{
    p_result->cn = decibels(65536, number_at(ISDB_WIDE, 192, 2), 2.0);
    isdb_reg_bits(ISDB_WIDE, 139, 0x10, 0x10);
    isdb_reg_bits(ISDB_WIDE, 139, 0x20, (kind & 1u) << 5);
    isdb_reg_bits(ISDB_WIDE, 139, 0x0F, 9);
    isdb_reg_bits(ISDB_WIDE, 144, 0x03, static_cast<unsigned>(layer));
    isdb_reg_bits(ISDB_WIDE, 147, 0x80, 0);
    isdb_reg_bits(ISDB_NARROW, 133, 0x80, 0);
    wait_for_counter(layer);
    const double errors = number_at(ISDB_WIDE, 196, 3);
    p_result->ratio = ratio_of(errors, number_at(ISDB_WIDE, 199, 2), kind);
    p_result->lock = isdb_reg(ISDB_WIDE, 149) & 0x0F;
    return 1;
}

int get_narrow_bper(int kind, isdb_bper_result* p_result)
{
    const double high = isdb_reg(ISDB_NARROW, 172) & 0x3F;
    p_result->cn = decibels(1024, high * 256 + isdb_reg(ISDB_NARROW, 173), 2.3);
    isdb_reg_bits(ISDB_NARROW, 128, 0x10, (kind & 1u) << 4);
    // All bits but bit 7 go; for packets that one, too.
    const unsigned goes = kind == 0 ? 0x7F : 0xFF;
    isdb_reg_bits(ISDB_WIDE, 147, goes, 0);
    isdb_reg_bits(ISDB_NARROW, 133, goes, 0);
    const double errors = number_at(ISDB_NARROW, 175, 3);
    p_result->ratio = ratio_of(errors, number_at(ISDB_NARROW, 178, 2), kind);
    p_result->lock = isdb_reg(ISDB_NARROW, 135) & 0x07;
    return 1;
}

int isdb_ej113_get_bper(int path, int kind, int layer, isdb_bper_result* p_result)
{
    if (path == 0)
        return get_wide_bper(kind, layer & 3, p_result);
    return path == 1 ? get_narrow_bper(kind, p_result) : 0;
}

int isdb_ej113_check_bbif(std::uint8_t* p_values)
{
    if ((tuner_get_status() & 1) == 0)
        return 0;
    isdb_reg_wr(ISDB_WIDE, 220, 0);
    isdb_reg_wr(ISDB_WIDE, 221, 0);
    const std::uint8_t wanted = p_values[2];
    if (wanted > 1)
        return 1;
    isdb_reg_wr(ISDB_WIDE, 219, wanted);
    const std::uint64_t start = tmr_get64();
    do {
        p_values[2] = pin_in_get_lev(PIN_IN_TUNER_BUS) == 1 ? 1 : 0;
        if (p_values[2] == wanted) {
            p_values[0] = p_values[1] = 0;
            return 1;
        }
        tmr_usleep(BUS_PAUSE_US);
    } while (tmr_get64() - start < BUS_LIMIT_US);
    return 1;
}

// clang-format off
constexpr isdb_co isdb_ej113_co = {
    .pon            = isdb_ej113_pon,
    .poff           = isdb_ej113_poff,
    .tuning         = isdb_ej113_tuning,
    .get_parameter  = nullptr,
    .control_lna    = isdb_ej113_controlLNA,
    .i2c_rd         = isdb_ej113_i2c_rd,
    .norm_op        = isdb_ej113_normOP,
    .lb_op          = isdb_ej113_lbOP,
    .tptn_op        = isdb_ej113_tptnOP,
    .get_id         = isdb_ej113_getID,
    .check_sync     = isdb_ej113_checkSync,
    .get_sig_lev    = isdb_ej113_getSigLev,
    .select_mode_ch = isdb_ej113_select_mode_ch,
    .switch_ant     = isdb_ej113_switchANT,
    .get_bper       = isdb_ej113_get_bper,
    .check_bbif     = isdb_ej113_check_bbif,
};
// clang-format on

} // namespace

void isdb_ej113_init()
{
    isdb_co_attach(&isdb_ej113_co);
}
