// Carrier to noise ratio, level, AC data.
#include <algorithm>
#include <cmath>

#include "moni_state.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_moni.h"
#include "unit.h"

namespace {

constexpr std::uint8_t A = TUNER_A;
constexpr std::uint8_t B = TUNER_B;
constexpr std::uint8_t C = TUNER_C;

constexpr unsigned LIMIT_MS = 3000;
constexpr double SCALE = 100000;

// The registers of a half of the chip.
struct signal_regs {
    std::uint8_t unit;
    std::uint32_t good_sync;
    std::uint8_t cn_status, cn_ready, cn_complete;
    std::uint8_t cn_raw; // two bytes
    std::uint16_t cn_raw_mask;
    double cn_full; // raw value of 0 dB, but for cn_offset
    double cn_offset;
    std::uint8_t ac_ctl, ac_status, ac_data;
};

// clang-format off
constexpr signal_regs wide_regs = {
    .unit = B, .good_sync = SYNC_GOOD_WIDE,
    .cn_status = 191, .cn_ready = 0x02, .cn_complete = 0x01, .cn_raw = 192, .cn_raw_mask = 0xFFFF,
    .cn_full = 65536, .cn_offset = 2.0,
    .ac_ctl = 128, .ac_status = 152, .ac_data = 168,
};
constexpr signal_regs narrow_regs = {
    .unit = C, .good_sync = SYNC_GOOD_NARROW,
    .cn_status = 171, .cn_ready = 0x04, .cn_complete = 0x08, .cn_raw = 172, .cn_raw_mask = 0x3FFF,
    .cn_full = 1024, .cn_offset = 2.3,
    .ac_ctl = 120, .ac_status = 166, .ac_data = 154,
};
// clang-format on

const signal_regs& regs_now()
{
    return moni_is_narrow() ? narrow_regs : wide_regs;
}

// 259 unless the sync word says that the half has what is asked for.
int check_good_sync(const signal_regs& regs)
{
    std::uint32_t sync;
    const int rc = tunerx_get_sync(sync);
    if (rc != TUNERX_OK)
        return rc;
    return (sync & regs.good_sync) != 0 ? TUNERX_OK : TUNERX_WRONG_STATE;
}

int check_cn_available()
{
    tunerx_field_record control = {0, 0};
    const int rc = tunerx_ctl_cn(moni_is_narrow() ? 1 : 0, control);
    return rc == TUNERX_OK && (control.value & 1) != 0 ? TUNERX_WRONG_STATE : rc;
}

int wait_for_cn(const signal_regs& regs, int nowait, std::uint32_t& flags)
{
    const std::uint64_t start_ms = tuner_get_time();
    for (;;) {
        std::uint8_t status;
        if (unit_get(regs.unit, regs.cn_status, status) != 0)
            return -1;
        flags &= ~(CN_READY | CN_COMPLETE);
        flags |= (status & regs.cn_ready) != 0 ? CN_READY : 0;
        flags |= (status & regs.cn_complete) != 0 ? CN_COMPLETE : 0;
        if (nowait != 0 || (flags & (CN_READY | CN_COMPLETE)) == (CN_READY | CN_COMPLETE))
            return TUNERX_OK;
        if (!unit_poll_goes_on(start_ms, UNIT_PAUSE_MS, LIMIT_MS)) {
            flags |= CN_TIMEOUT;
            return TUNERX_OK;
        }
    }
}

// 259 for a modulation that has no such ratio. A raw value of 0 counts as 1, the best that can be told.
int tuner_cn_calc(std::uint32_t raw, std::int32_t& value)
{
    std::uint32_t tmcc[2];
    const int rc = tunerx_get_tmcc(tmcc);
    if (rc != TUNERX_OK)
        return rc;
    if ((tmcc[0] >> 8 & 7) >= 4)
        return TUNERX_WRONG_STATE;
    const signal_regs& regs = regs_now();
    double quotient = regs.cn_full / std::max(raw, 1u);
    if (!moni_is_narrow())
        quotient = static_cast<float>(quotient);
    value = static_cast<std::int32_t>((10 * std::log10(quotient) + regs.cn_offset) * SCALE);
    return TUNERX_OK;
}

// Bits 4 and 5 of the control register are a number: which half of the data the registers show. Bit 7 goes
// with it where the configuration says so.
int pick_ac_half(const signal_regs& regs, unsigned half, bool other_kind)
{
    const unsigned with = other_kind ? 0x80 : 0;
    return unit_put(regs.unit, regs.ac_ctl, 0x30 | with, half << 4 | with);
}

int read_ac_half(const signal_regs& regs, std::uint8_t* p_data)
{
    for (unsigned i = 0; i < 12; i++)
        if (unit_get(regs.unit, regs.ac_data + i, p_data[i]) != 0)
            return -1;
    return 0;
}

} // namespace

int tunerx_get_cn(int nowait, tunerx_cn& result)
{
    const signal_regs& regs = regs_now();
    result = {0, 0, 0};
    int rc = check_good_sync(regs);
    if (rc == TUNERX_OK)
        rc = check_cn_available();
    if (rc != TUNERX_OK)
        return rc;
    result.flags = moni_is_narrow() ? CN_NARROW : 0;
    if (wait_for_cn(regs, nowait, result.flags) != 0 ||
        unit_get_number(regs.unit, regs.cn_raw, 2, result.raw) != 0)
        return -1;
    result.raw &= regs.cn_raw_mask;
    return tuner_cn_calc(result.raw, result.cn);
}

int tunerx_get_rssi(std::int32_t& value)
{
    if (!moni_is_tuned())
        return TUNERX_WRONG_STATE;
    std::uint8_t reg185, whole, parts;
    if (unit_get(A, 185, reg185) != 0)
        return -1;
    if ((reg185 & 0x80) == 0)
        return TUNERX_WRONG_STATE;
    if (unit_get(A, 215, whole) != 0 || unit_get(A, 216, parts) != 0)
        return -1;
    const double v = whole + (parts >> 4) / 16.0;
    value = static_cast<std::int32_t>((v >= 128 ? v - 256 : v) * SCALE);
    return TUNERX_OK;
}

int tunerx_get_ac(tunerx_ac& result)
{
    const signal_regs& regs = regs_now();
    tunerx_field_record cfg = {0, 0};
    int rc = check_good_sync(regs);
    if (rc == TUNERX_OK)
        rc = tunerx_cfg_ac(cfg);
    if (rc != TUNERX_OK)
        return rc;
    const bool other_kind = (cfg.value & 1) != 0;
    std::uint8_t status;
    if (pick_ac_half(regs, 0, other_kind) != 0 || unit_get(regs.unit, regs.ac_status, status) != 0 ||
        read_ac_half(regs, result.data) != 0)
        return -1;
    result.flags = (status & 0x7Fu) | (moni_is_narrow() ? AC_NARROW : 0);
    return pick_ac_half(regs, 1, other_kind) != 0 ? -1 : read_ac_half(regs, result.data + 12);
}
