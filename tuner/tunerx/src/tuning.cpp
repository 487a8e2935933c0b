// Tuning, and what stands on it: the confirmation, the sync, the pin check, the seamless change.
#include "numbers.h"
#include "tmr/tmr.h"
#include "tunerx/ant_swt.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_cfg.h"
#include "tunerx/tunerx_files.h"
#include "unit.h"

namespace {

constexpr std::uint8_t A = TUNER_A;
constexpr std::uint8_t B = TUNER_B;
constexpr std::uint8_t C = TUNER_C;

constexpr unsigned SETTLE_LIMIT_MS = 3000;
constexpr unsigned SYNC_LIMIT_MS = 5000;

bool is_band(int band)
{
    return band >= 0 && band < TUNER_BANDS;
}

std::uint8_t byte_of(std::uint32_t value, unsigned shift = 0)
{
    return static_cast<std::uint8_t>(value >> shift);
}

int write_clocks(std::uint32_t state, const tunerx_channel& c)
{
    // clang-format off
    if (state == TUNER_NARROW) {
        const unit_bits narrow[] = {
            { C, 12, 0xFF, byte_of(c.fad, 16) },
            { C, 13, 0xFF, byte_of(c.fad, 8)  },
            { C, 14, 0xFF, byte_of(c.fad)     },
            { C,  9, 0xFF, byte_of(c.ncofrq, 4) },
            { C, 10, 0xF0, byte_of(c.ncofrq << 4) },
        };
        return unit_write(narrow);
    }
    const unit_bits wide[] = {
        { B, 13, 0xFF, byte_of(c.fad, 16) },
        { B, 14, 0xFF, byte_of(c.fad, 8)  },
        { B, 15, 0xFF, byte_of(c.fad)     },
        { B, 10, 0xFF, byte_of(c.ncofrq, 16) },
        { B, 11, 0xFF, byte_of(c.ncofrq, 8)  },
        { B, 12, 0xFF, byte_of(c.ncofrq)     },
    };
    // clang-format on
    return unit_write(wide);
}

int write_shift(int band, const tunerx_channel& c)
{
    if (dtvSysMap[band] != 1)
        return 0;
    // clang-format off
    const unit_bits shift[] = {
        { B, 16, 0xFF, byte_of(c.fsft, 8) },
        { B, 17, 0xFF, byte_of(c.fsft)    },
        { B, 18, 0xFF, byte_of(c.fsft, 8) },
        { B, 19, 0xFF, byte_of(c.fsft)    },
    };
    // clang-format on
    return unit_write(shift);
}

int write_synthesiser(const tunerx_channel& c)
{
    // clang-format off
    const unit_bits group[] = {
        { A, 117, 0x0F, byte_of(c.p_k, 16) },
        { A, 118, 0xFF, byte_of(c.p_k, 8)  },
        { A, 119, 0xFF, byte_of(c.p_k)     },
        { A, 116, 0xFF, byte_of(c.p_m)     },
    };
    // clang-format on
    return unit_write(group);
}

// The path: the third variant has 01 in the top two bits where the table leaves them open.
int write_path(std::uint32_t state, const tunerx_channel& c)
{
    const bool third = state == TUNER_WIDE_THIRD && (c.sysset & 0xC0) == 0;
    return unit_put(B, 237, 0xFF, c.sysset | (third ? 0x40u : 0u));
}

int write_options(const tunerx_channel& c)
{
    // clang-format off
    const unit_bits group[] = {
        { A, 200, 0xFF, byte_of(c.tncop1)   },
        { A, 201, 0xFF, byte_of(c.tncop2)   },
        { A, 202, 0xFF, byte_of(c.tncop3)   },
        { A, 203, 0xFF, byte_of(c.tncop4)   },
        { A, 120, 0xFF, byte_of(c.adclksel) },
    };
    // clang-format on
    return unit_write(group);
}

int write_start(const tunerx_channel& c)
{
    const std::uint32_t f = cut_u32(double{c.frf});
    // clang-format off
    const unit_bits group[] = {
        { A, 204, 0xFF, byte_of(f, 2) },
        { A, 205, 0xFF, byte_of(c.tncop6 | (f & 3) << 6) },
        { A, 206, 0xFF, byte_of((c.tncop7 & 0x3Fu) | 0xC0) },
    };
    // clang-format on
    return unit_write(group);
}

int write_channel(int band, const tunerx_channel& c)
{
    const std::uint32_t state = opeStatMap[band];
    if (write_clocks(state, c) != 0 || unit_put(B, 0, 0x02, dtvSysMap[band] * 2u) != 0 ||
        write_shift(band, c) != 0 || unit_put(C, 242, 0xFF, c.ckrat) != 0 || write_synthesiser(c) != 0 ||
        write_path(state, c) != 0 || write_options(c) != 0)
        return -1;
    tmr_msleep(10);
    return write_start(c);
}

// The sync flags from the two registers of the path.
int read_sync_flags(std::uint32_t& flags)
{
    const bool narrow = tunXParams.state == TUNER_NARROW;
    std::uint8_t first, second;
    if (unit_get(narrow ? C : B, narrow ? 135 : 149, first) != 0 ||
        unit_get(narrow ? C : B, narrow ? 137 : 151, second) != 0)
        return -1;
    flags = (first >> 5 & 1u) | (first >> 4 & 1u) << 1 | (first >> 7 & 1u) << 2 | (first >> 6 & 1u) << 3 |
            (second >> 4 & 1u) << 4;
    return 0;
}

int check_answers()
{
    for (const unsigned unit : {TUNER_A, TUNER_B, TUNER_C}) {
        std::uint8_t id;
        if (unit_get(unit, 255, id) != 0)
            return -1;
        if (id != 0x52)
            return TUNERX_DEVICE;
    }
    std::uint8_t old;
    if (unit_get(B, 8, old) != 0)
        return -1;
    int rc = TUNERX_OK;
    for (const unsigned wanted : {~old & 0x80u, old & 0x80u}) {
        std::uint8_t now;
        if (unit_put(B, 8, 0x80, wanted) != 0 || unit_get(B, 8, now) != 0)
            return -1;
        if ((now & 0x80) != wanted)
            rc = TUNERX_DEVICE;
    }
    return rc;
}

int set_up_pattern(std::uint32_t value)
{
    // clang-format off
    const tunerx_pctl no_outputs = { { 1u << 17, 0 }, { 0x0Fu | 3u << 6 | 1u << 17, 0 } };
    const unit_bits before[] = {
        { B, 231, 0xFF, byte_of(value) },
        { B,   8, 0x01, 0x01 },
    };
    constexpr unit_bits behind[] = {
        { A, 114, 0xFF,  27 },
        { A, 115, 0xFF,  73 },
        { A,  45, 0xFF,   3 },
        { B,  13, 0xFF, 133 },
        { B,  14, 0xFF, 168 },
        { B,  15, 0xFF, 143 },
    };
    // clang-format on
    tunerx_pctl record = no_outputs;
    if (tunerx_cfg_pctl(record) != 0 || unit_write(before) != 0)
        return -1;
    const int rc = tunerx_tuning(TUNER_BAND_UF, 13);
    std::uint8_t reg232;
    if (unit_write(behind) != 0 || unit_get(B, 232, reg232) != 0 || unit_put(B, 232, 0xFF, reg232) != 0)
        return rc != TUNERX_OK ? rc : -1;
    return rc;
}

} // namespace

int tuner_disable_irq(std::uint32_t state)
{
    return state == TUNER_NARROW || state == TUNER_WIDE || state == TUNER_WIDE_THIRD ? TUNERX_OK
                                                                                     : TUNERX_BAD_ARGUMENT;
}

int tuner_tuning_core(int band, std::uint32_t ch)
{
    if (!is_band(band))
        return TUNERX_BAD_ARGUMENT;
    tunXParams.band = band;
    tunXParams.ch = static_cast<std::uint16_t>(ch);
    tunXParams.status = TUNER_NOT_TUNED;
    tunXParams.sync_flags = 0;
    tunXParams.record = tuner_get_chrcd_id(band, ch);
    const int rc = tunXParams.record < 0 ? TUNERX_BAD_ARGUMENT
                                         : write_channel(band, tunXParams.channels[tunXParams.record]);
    tunXParams.status = rc == 0 ? TUNER_TUNED : TUNER_TUNE_FAILED;
    if (rc == 0)
        tunXParams.state = opeStatMap[band];
    return rc;
}

int tuner_confirm_tuning(unsigned period_ms)
{
    std::uint8_t reg185;
    int rc = unit_put(A, 186, 0xF0, 0);
    if (rc == 0)
        rc = unit_poll(A, 185, 0x80, period_ms, SETTLE_LIMIT_MS, reg185);
    if (rc != 0)
        tunXParams.status = TUNER_TUNE_FAILED;
    return rc == UNIT_TIME_OVER ? TUNERX_DEVICE : rc;
}

int tuner_sync_detect(std::uint32_t* p_flags, unsigned period_ms)
{
    if (tunXParams.status != TUNER_TUNED)
        return TUNERX_BAD_ARGUMENT;
    if (tunXParams.state != opeStatMap[tunXParams.band])
        return TUNERX_WRONG_STATE;
    const std::uint64_t start_ms = tuner_get_time();
    do {
        std::uint32_t flags;
        if (read_sync_flags(flags) != 0)
            return -1;
        if (flags != 0) {
            tunXParams.sync_flags = *p_flags = flags;
            return TUNERX_OK;
        }
    } while (unit_poll_goes_on(start_ms, period_ms, SYNC_LIMIT_MS));
    tunXParams.sync_flags |= TUNER_NO_SYNC;
    *p_flags = tunXParams.sync_flags;
    return TUNERX_DEVICE;
}

int tunerx_tuning(int band, std::uint32_t ch)
{
    int rc = tuner_check_circuit();
    if (rc != TUNERX_OK)
        return rc;
    if (!tunerx_is_initialised())
        return TUNERX_WRONG_STATE;
    rc = is_band(band) ? tuner_disable_irq(opeStatMap[band]) : TUNERX_BAD_ARGUMENT;
    if (rc == TUNERX_OK)
        rc = tuner_tuning_core(band, ch);
    if (rc != TUNERX_OK)
        return rc;
    tmr_msleep(20);
    std::uint32_t flags;
    rc = tuner_confirm_tuning(500);
    if (rc == TUNERX_OK)
        rc = tuner_sync_detect(&flags, 500);
    if (rc == TUNERX_OK)
        tuner_ant_search(ant_swt.counter + 1);
    return rc;
}

int tunerx_chkpin(int kind, std::uint32_t value)
{
    switch (kind) {
    case 0:
        return check_answers();
    case 3:
        return set_up_pattern(value);
    default:
        return TUNERX_BAD_KIND;
    }
}

int tunerx_change_seamless()
{
    const int rc = tuner_check_circuit();
    if (rc != TUNERX_OK)
        return rc;
    if ((tunXParams.state & TUNER_WIDE) != TUNER_WIDE)
        return TUNERX_WRONG_STATE;
    tunXParams.status = TUNER_NOT_TUNED;
    const int band = tunXParams.band;
    const bool has_partner = band == 0 || band == 2 || band == 3 || band == 5 || band == 6 || band == 8;
    if (!has_partner || tunXParams.record < 0)
        return TUNERX_BAD_ARGUMENT;
    const int partner = opeStatMap[band] == TUNER_WIDE ? band + 2 : band - 2;
    const std::uint32_t state = opeStatMap[partner];
    tunXParams.band = partner;
    if (write_path(state, tunXParams.channels[tunXParams.record]) != 0) {
        tunXParams.status = TUNER_TUNE_FAILED;
        return -1;
    }
    tmr_msleep(10);
    tunXParams.status = TUNER_TUNED;
    tunXParams.state = state;
    return TUNERX_OK;
}
