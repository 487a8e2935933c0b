// Gains. A request for a route that runs goes to the card; for any other route it is kept for its next start.
#include "audio_inner.h"

namespace {

constexpr int NO_PAIR = -1;

struct gain_row {
    unsigned mode;
    unsigned route;
    int slot;
    int gain_slot;
    int step_byte; // of the path word
};

// clang-format off
constexpr gain_row tgen_gains[] = {
    { 1, 1, ALSA_SPEAKER, ALSA_SPEAKER_GAIN,    1 },
    { 1, 2, ALSA_SPEAKER, ALSA_SPEAKER2_GAIN,   1 },
    { 1, 3, ALSA_EAR,     ALSA_EAR_GAIN,        1 },
    { 1, 4, ALSA_PLUG,    ALSA_PLUG_RIGHT_GAIN, 1 },
    { 1, 5, ALSA_PLUG,    ALSA_PLUG_LEFT_GAIN,  1 },
    { 3, 1, ALSA_PLUG,    ALSA_PLUG_LEFT_GAIN,  1 },
    { 3, 2, ALSA_PLUG,    ALSA_PLUG_RIGHT_GAIN, 1 },
};

constexpr gain_row auan_gains[] = {
    { 2, 1, ALSA_MIC,    ALSA_AMIC1_GAIN,  1 },
    { 2, 2, ALSA_MIC,    ALSA_AMIC2_GAIN,  1 },
    { 2, 3, ALSA_HS_MIC, ALSA_HS_MIC_GAIN, 1 },
    { 3, 1, ALSA_HS_MIC, ALSA_HS_MIC_GAIN, 0 },
    { 3, 2, ALSA_HS_MIC, ALSA_HS_MIC_GAIN, 0 },
};

struct lb_row {
    unsigned mode;
    unsigned route;
    int slot;
    int instead; // where the phone lacks the first
};

constexpr lb_row lb_gains[] = {
    { 5, 1, ALSA_EAR_GAIN_NO_TGEN,           SLOT_NONE                 },
    { 5, 2, ALSA_SPEAKER_RIGHT_GAIN_NO_TGEN, ALSA_SPEAKER_GAIN_NO_TGEN },
    { 5, 3, ALSA_SPEAKER_GAIN_NO_TGEN,       SLOT_NONE                 },
    { 6, 1, ALSA_AMIC1_GAIN_NO_AUAN,         SLOT_NONE                 },
    { 6, 2, ALSA_AMIC2_GAIN_NO_AUAN,         SLOT_NONE                 },
    { 6, 9, ALSA_HS_MIC_GAIN_NO_AUAN,        SLOT_NONE                 },
};
// clang-format on

constexpr audio_path TGEN_SPEAKER2 =
    0x0102; // upper half: a speaker that a phone may lack, which is no failure

// The sum of both results; NO_PAIR when the request has no pair of routes.
template <std::size_t size>
int apply(const gain_row (&rows)[size], audio_path path, const alsa_ctl_entry* p_running,
          const alsa_ctl_entry* p_running_gain)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    if (p_cfg == nullptr)
        return AUDIO_FAILED;
    for (const gain_row& row : rows) {
        if (row.mode != audio_byte(path, 3) || row.route != audio_byte(path, 2))
            continue;
        alsa_ctl_entry* const p_route = audio_slot(*p_cfg, row.slot);
        alsa_ctl_entry* const p_gain = audio_slot(*p_cfg, row.gain_slot);
        const int step = static_cast<int>(audio_byte(path, row.step_byte));
        if (p_route == nullptr || p_gain == nullptr)
            return path >> 16 == TGEN_SPEAKER2 ? 0 : NO_PAIR;
        const bool runs = p_running == p_route && p_running_gain == p_gain;
        const auto set = runs ? alsa_ctl_set_gain : alsa_ctl_set_gain_noapply;
        const int result = set(p_route, step);
        return result + set(p_gain, step);
    }
    return NO_PAIR;
}

int tgen_gain_apply(audio_path path)
{
    return apply(tgen_gains, path, get_tgen_cfg(), get_tgen_gain_cfg());
}

int auan_gain_apply(audio_path path)
{
    return apply(auan_gains, path, get_auan_cfg(), get_auan_gain_cfg());
}

int tgen_gain(audio_path path)
{
    return tgen_gain_apply(path) < 0 ? AUDIO_FAILED : AUDIO_OK;
}

int auan_gain(audio_path path)
{
    return auan_gain_apply(path) < 0 ? AUDIO_FAILED : AUDIO_OK;
}

int tgen_auan_gain(audio_path path)
{
    const int input = auan_gain_apply(path);
    const int output = tgen_gain_apply(path);
    return input + output != 0 ? AUDIO_FAILED : AUDIO_OK;
}

int lb_gain(audio_path path, unsigned mode)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    if (p_cfg == nullptr)
        return AUDIO_FAILED;
    if (audio_byte(path, 3) != mode)
        return AUDIO_WRONG_PATH;
    for (const lb_row& row : lb_gains) {
        if (row.mode != mode || row.route != audio_byte(path, 2))
            continue;
        alsa_ctl_entry* p_gain = audio_slot(*p_cfg, row.slot);
        if (p_gain == nullptr)
            p_gain = audio_slot(*p_cfg, row.instead);
        const int result = alsa_ctl_set_gain_no_save(p_gain, static_cast<int>(audio_byte(path, 1)));
        return result < 0 ? AUDIO_FAILED : AUDIO_OK;
    }
    return AUDIO_FAILED;
}

int lb_sp_gain(audio_path path)
{
    return lb_gain(path, 5);
}

// Route 0 is no input, which has nothing to set.
int lb_mic_gain(audio_path path)
{
    if (audio_byte(path, 3) == 6 && audio_byte(path, 2) == 0)
        return AUDIO_OK;
    return lb_gain(path, 6);
}

} // namespace

int audio_tgen_gain(audio_path path)
{
    return audio_run(&audio_co::tgen_gain, tgen_gain, AUDIO_OK, path);
}

int audio_auan_gain(audio_path path)
{
    return audio_run(&audio_co::auan_gain, auan_gain, AUDIO_OK, path);
}

int audio_tgen_auan_gain(audio_path path)
{
    return audio_run(&audio_co::tgen_auan_gain, tgen_auan_gain, AUDIO_OK, path);
}

int audio_lb_sp_gain(audio_path path)
{
    return audio_run(&audio_co::lb_sp_gain, lb_sp_gain, AUDIO_OK, path);
}

int audio_lb_mic_gain(audio_path path)
{
    return audio_run(&audio_co::lb_mic_gain, lb_mic_gain, AUDIO_OK, path);
}
