// Readings as plain numbers.
#include <cstring>

#include "tuner/tuner.h"
#include "tunerx/tunerx_moni.h"

namespace {

constexpr float SCALE = 100000;

int path_of(int circuit)
{
    return circuit == TUNER_CIRCUIT_NARROW ? 1 : 0;
}

// `kind` 0 bits, 1 packets; false on failure.
bool get_ratio(int kind, int circuit, int layer, float& ratio)
{
    // method, on, period of 2
    tunerx_field_record cfg = {(kind != 0 ? 1u << 6 : 0) | 1u << 7 | 2u << 8, 1u << 6 | 1u << 7 | 15u << 8};
    tunerx_berper result = {
        0, 0, 0, (static_cast<std::uint32_t>(layer) & BERPER_LAYER) | (kind != 0 ? BERPER_KIND : 0)};
    if (tunerx_cfg_berper(path_of(circuit), kind, cfg) != TUNERX_OK ||
        tunerx_get_berper(0, result) != TUNERX_OK)
        return false;
    ratio = static_cast<float>(result.ratio) / SCALE;
    return true;
}

bool get_moni_ber(int circuit, float& ratio)
{
    return get_ratio(0, circuit, 2, ratio);
}

bool get_moni_per(int circuit, float& ratio)
{
    return get_ratio(1, circuit, 2, ratio);
}

// A ratio that can't be had is 0 once the monitor is set up.
bool get_moni_cn(int circuit, float& cn)
{
    tunerx_field_record wide = {3, 7};
    tunerx_field_record narrow = {3u << 3, 0x78};
    const int path = path_of(circuit);
    if (tunerx_cfg_cn(path, path == 0 ? wide : narrow) != TUNERX_OK)
        return false;
    tunerx_cn result = {0, 0, 0};
    tunerx_get_cn(0, result);
    cn = static_cast<float>(result.cn) / SCALE;
    return true;
}

bool get_moni_rssi(float& level)
{
    std::int32_t value;
    if (tunerx_get_rssi(value) != TUNERX_OK)
        return false;
    level = static_cast<float>(value) / SCALE;
    return true;
}

template <typename Value>
int hand_out(bool had, const Value& value, void* p_out)
{
    if (!had)
        return TUNERX_BAD_ARGUMENT;
    std::memcpy(p_out, &value, sizeof value);
    return TUNERX_OK;
}

} // namespace

int tuner_get_moni_info(int kind, int circuit, void* p_out)
{
    if (p_out == nullptr)
        return TUNERX_BAD_ARGUMENT;
    float number = 0;
    std::uint32_t tmcc[2], sync;
    switch (kind) {
    case TUNER_MONI_TMCC:
        return hand_out(tunerx_get_tmcc(tmcc) == TUNERX_OK, tmcc, p_out);
    case TUNER_MONI_CN:
        return hand_out(get_moni_cn(circuit, number), number, p_out);
    case TUNER_MONI_BER:
        return hand_out(get_moni_ber(circuit, number), number, p_out);
    case TUNER_MONI_PER:
        return hand_out(get_moni_per(circuit, number), number, p_out);
    case TUNER_MONI_RSSI:
        return hand_out(get_moni_rssi(number), number, p_out);
    case TUNER_MONI_SYNC:
        if (tunerx_get_sync(sync) != TUNERX_OK)
            return TUNERX_BAD_ARGUMENT;
        return hand_out(true, std::uint32_t{(sync & SYNC_NONE) != 0}, p_out);
    default:
        return TUNERX_BAD_ARGUMENT;
    }
}

float tuner_get_bper(int mode, int circuit, int layer)
{
    float ratio;
    return get_ratio(mode == 1 ? 0 : 1, circuit, layer, ratio) ? ratio : -1.0f;
}

float tuner_get_rssi()
{
    float level;
    return get_moni_rssi(level) ? level : -1.0f;
}

int tuner_get_sync(int)
{
    std::uint32_t sync;
    if (tunerx_get_sync(sync) != TUNERX_OK)
        return -1;
    return (sync & SYNC_NONE) != 0 ? 0 : 1;
}
