// Error rates.
#include <algorithm>
#include <cmath>

#include "moni_state.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_moni.h"
#include "unit.h"

namespace {

constexpr std::uint8_t B = TUNER_B;
constexpr std::uint8_t C = TUNER_C;

constexpr unsigned LIMIT_MS = 3000;
constexpr double BITS_OF_A_PACKET = 203 * 8;
constexpr double SCALE = 100000;
constexpr std::uint32_t RATIO_ONE = 100000;

// What a measurement reads, and how.
struct measurement {
    std::uint8_t unit;
    std::uint8_t status_reg; // with the bits that tell ready and complete
    std::uint8_t ready;
    std::uint8_t complete;
    std::uint8_t errors_reg; // three bytes, and two of the period behind them
    unsigned mode;
    unsigned method;
};

std::uint32_t cut_ratio(double ratio)
{
    return static_cast<std::uint32_t>(std::min(ratio, double{UINT32_MAX}));
}

std::uint32_t ratio_of(const tunerx_berper& r, unsigned mode, unsigned method)
{
    if (mode == 0)
        return cut_ratio(std::ldexp(r.errors, -static_cast<int>(r.period)) * SCALE);
    if (r.period == 0)
        return RATIO_ONE;
    return cut_ratio(r.errors / (method == 0 ? r.period * BITS_OF_A_PACKET : r.period) * SCALE);
}

// 259 when the control register says so.
int check_available(int path, int kind)
{
    tunerx_field_record control = {0, 0};
    const int rc = tunerx_ctl_berper(path, kind, control);
    return rc == TUNERX_OK && (control.value & 1) != 0 ? TUNERX_WRONG_STATE : rc;
}

int wait_for_counters(const measurement& m, int nowait, std::uint32_t& flags)
{
    const std::uint64_t start_ms = tuner_get_time();
    for (;;) {
        std::uint8_t status;
        if (unit_get(m.unit, m.status_reg, status) != 0)
            return -1;
        flags &= ~(BERPER_READY | BERPER_COMPLETE);
        flags |= (status & m.ready) != 0 ? BERPER_READY : 0;
        flags |= (status & m.complete) != 0 ? BERPER_COMPLETE : 0;
        if (nowait != 0 || (flags & (BERPER_READY | BERPER_COMPLETE)) == (BERPER_READY | BERPER_COMPLETE))
            return TUNERX_OK;
        if (!unit_poll_goes_on(start_ms, UNIT_PAUSE_MS, LIMIT_MS)) {
            flags |= BERPER_TIMEOUT;
            return TUNERX_OK;
        }
    }
}

int read_counters(const measurement& m, tunerx_berper& result)
{
    if (unit_get_number(m.unit, m.errors_reg, 3, result.errors) != 0)
        return -1;
    if (m.mode != 0)
        return unit_get_number(m.unit, m.errors_reg + 3u, 2, result.period);
    std::uint8_t reg140;
    if (unit_get(B, 140, reg140) != 0)
        return -1;
    result.period = reg140 >> 4;
    return TUNERX_OK;
}

int measure(const measurement& m, int nowait, tunerx_berper& result)
{
    result.flags |= m.mode << BERPER_MODE_AT | (m.method != 0 ? BERPER_METHOD : 0);
    if (wait_for_counters(m, nowait, result.flags) != TUNERX_OK || read_counters(m, result) != TUNERX_OK)
        return -1;
    result.ratio = ratio_of(result, m.mode, m.method);
    return TUNERX_OK;
}

int prepare_packets(measurement& m, std::uint32_t layer)
{
    std::uint8_t reg145;
    if (unit_get(B, 145, reg145) != 0)
        return -1;
    m.mode = 1;
    m.method = reg145 >> 5 & 1;
    return unit_put(B, 147, 0x03, layer);
}

int prepare_bits(measurement& m, std::uint32_t layer, std::uint32_t& flags)
{
    std::uint8_t reg144, reg139;
    if (unit_get(B, 144, reg144) != 0 || unit_get(B, 139, reg139) != 0)
        return -1;
    m.mode = reg144 >> 2 & 3;
    m.method = reg139 >> 5 & 1;
    flags |= (reg139 >> 6 & 3u) << BERPER_FIELD_AT;
    return m.mode != 0 ? unit_put(B, 144, 0x03, layer) : TUNERX_OK;
}

// The bits of register 195 for a layer: ready above complete. A and the layer without a name share theirs.
void pick_wide_bits(measurement& m, std::uint32_t layer)
{
    constexpr std::uint8_t ready_of[4] = {0x20, 0x20, 0x08, 0x02};
    m.ready = m.mode == 0 ? 0x80 : ready_of[layer];
    m.complete = m.ready >> 1;
}

int measure_wide(int nowait, tunerx_berper& result)
{
    const int kind = (result.flags & BERPER_KIND) != 0 ? 1 : 0;
    const std::uint32_t layer = result.flags & BERPER_LAYER;
    const int rc = check_available(0, kind);
    if (rc != TUNERX_OK)
        return rc;
    measurement m = {
        .unit = B, .status_reg = 195, .ready = 0, .complete = 0, .errors_reg = 196, .mode = 0, .method = 0};
    if (unit_put(B, 147, 0x80, kind != 0 ? 0x80 : 0) != 0)
        return -1;
    if ((kind != 0 ? prepare_packets(m, layer) : prepare_bits(m, layer, result.flags)) != TUNERX_OK)
        return -1;
    pick_wide_bits(m, layer);
    return measure(m, nowait, result);
}

int measure_narrow(int nowait, tunerx_berper& result)
{
    const int kind = (result.flags & BERPER_KIND) != 0 ? 1 : 0;
    const int rc = check_available(1, kind);
    if (rc != TUNERX_OK)
        return rc;
    result.flags = (result.flags & ~BERPER_LAYER) | 1 | BERPER_NARROW;
    std::uint8_t method;
    if (unit_put(C, 133, 0x80, kind != 0 ? 0x80 : 0) != 0 || unit_get(C, kind != 0 ? 130 : 128, method) != 0)
        return -1;
    const measurement m = {.unit = C,
                           .status_reg = 174,
                           .ready = static_cast<std::uint8_t>(kind != 0 ? 0x08 : 0x20),
                           .complete = static_cast<std::uint8_t>(kind != 0 ? 0x04 : 0x10),
                           .errors_reg = 175,
                           .mode = 1,
                           .method = method >> 5 & 1u};
    return measure(m, nowait, result);
}

} // namespace

int tunerx_get_berper(int nowait, tunerx_berper& result)
{
    result = {0, 0, 0, result.flags & (BERPER_LAYER | BERPER_KIND)};
    if (moni_is_wide())
        return measure_wide(nowait, result);
    return moni_is_narrow() ? measure_narrow(nowait, result) : TUNERX_WRONG_STATE;
}
