// Routes by path word, and the starts and stops of tone and capture.
#include "audio_inner.h"

#include "attr/attr.h"
#include "cfg/cfg.h"
#include "pin/pin.h"
#include "pin/signals.h"

const audio_co* p_audio_co;

namespace {

constexpr audio_path TONE_MODE = 0x0100; // upper half of the word that sets a frequency
constexpr unsigned DEFAULT_FREQUENCY = 1000;
constexpr audio_path EAR_START = 0x01030001;
constexpr audio_path LOOPBACK_INPUT_NONE = 0x0600FFFF;

struct route_row {
    audio_path path;
    int route;
    int gain; // or a loopback's second route
};

// clang-format off
constexpr route_row tgen_routes[] = {
    { 0x01010001, ALSA_SPEAKER, ALSA_SPEAKER_GAIN    },
    { 0x01020001, ALSA_SPEAKER, ALSA_SPEAKER2_GAIN   },
    { EAR_START,  ALSA_EAR,     ALSA_EAR_GAIN        },
    { 0x01040001, ALSA_PLUG,    ALSA_PLUG_RIGHT_GAIN },
    { 0x01050001, ALSA_PLUG,    ALSA_PLUG_LEFT_GAIN  },
    { 0x01060001, ALSA_PLUG,    ALSA_PLUG_THIRD_GAIN },
};

constexpr route_row auan_routes[] = {
    { 0x02010001, ALSA_MIC,  ALSA_AMIC1_GAIN },
    { 0x02020001, ALSA_MIC,  ALSA_AMIC2_GAIN },
    { 0x02040001, ALSA_FM,   ALSA_FM_GAIN    },
    { 0x02050001, SLOT_NONE, SLOT_NONE       },
    { 0x02060001, ALSA_MIC,  ALSA_AMIC3_GAIN },
    { 0x02070001, ALSA_MIC,  ALSA_AMIC4_GAIN },
};

struct both_row {
    audio_path path;
    int input;
    int input_gain;
    int output;
    int output_gain;
};

constexpr both_row both_routes[] = {
    { 0x03010001, ALSA_HS_MIC, ALSA_HS_MIC_GAIN,        ALSA_PLUG, ALSA_PLUG_LEFT_GAIN  },
    { 0x03020001, ALSA_HS_MIC, ALSA_HS_MIC_GAIN,        ALSA_PLUG, ALSA_PLUG_RIGHT_GAIN },
    { 0x03030001, ALSA_MIC,    ALSA_LINE_IN_LEFT_GAIN,  ALSA_PLUG, ALSA_PLUG_LEFT_GAIN  },
    { 0x03040001, ALSA_MIC,    ALSA_LINE_IN_RIGHT_GAIN, ALSA_PLUG, ALSA_PLUG_RIGHT_GAIN },
};

struct loopback_row {
    audio_path path;
    int route;
    int instead; // where the phone lacks the route
    int second;
};

constexpr loopback_row loopbacks[] = {
    { 0x0501FFFF, ALSA_EAR_NO_TGEN,           SLOT_NONE,            SLOT_NONE         },
    { 0x0502FFFF, ALSA_SPEAKER_RIGHT_NO_TGEN, ALSA_SPEAKER_NO_TGEN, SLOT_NONE         },
    { 0x0503FFFF, ALSA_SPEAKER_LEFT_NO_TGEN,  ALSA_SPEAKER_NO_TGEN, SLOT_NONE         },
    { 0x0601FFFF, ALSA_MIC1_NO_AUAN,          SLOT_NONE,            SLOT_NONE         },
    { 0x0602FFFF, ALSA_MIC2_NO_AUAN,          SLOT_NONE,            SLOT_NONE         },
    { 0x0609FFFF, ALSA_HS_MIC_NO_AUAN,        SLOT_NONE,            SLOT_NONE         },
    { 0x060AFFFF, ALSA_SLOT_20,               SLOT_NONE,            SLOT_NONE         },
    { 0x060BFFFF, ALSA_SLOT_22,               SLOT_NONE,            SLOT_NONE         },
    { 0x0701FFFF, ALSA_LOOP_FIRST1,           SLOT_NONE,            ALSA_LOOP_SECOND2 },
    { 0x0702FFFF, ALSA_LOOP_FIRST2,           SLOT_NONE,            ALSA_LOOP_SECOND2 },
    { 0x0703FFFF, ALSA_LOOP_FIRST3,           SLOT_NONE,            ALSA_LOOP_SECOND2 },
    { 0x0704FFFF, ALSA_LOOP_FIRST1,           SLOT_NONE,            ALSA_LOOP_SECOND1 },
    { 0x0705FFFF, ALSA_LOOP_FIRST2,           SLOT_NONE,            ALSA_LOOP_SECOND1 },
    { 0x0706FFFF, ALSA_LOOP_FIRST3,           SLOT_NONE,            ALSA_LOOP_SECOND1 },
    { 0x0707FFFF, ALSA_LOOP_FIRST1,           SLOT_NONE,            ALSA_LOOP_SECOND3 },
    { 0x0708FFFF, ALSA_LOOP_FIRST2,           SLOT_NONE,            ALSA_LOOP_SECOND3 },
    { 0x0709FFFF, ALSA_LOOP_FIRST3,           SLOT_NONE,            ALSA_LOOP_SECOND3 },
};
// clang-format on

template <typename Row, std::size_t size>
const Row* row_of(const Row (&rows)[size], audio_path path)
{
    for (const Row& row : rows)
        if (row.path == path)
            return &row;
    return nullptr;
}

int tgen_init(audio_path path)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    if (p_cfg == nullptr || path >> 16 != TONE_MODE)
        return AUDIO_FAILED;
    alsa_pcm_config& output = *p_cfg->p_output;
    const std::uint32_t value = path & 0xFFFF;
    const unsigned frequency = value == AUDIO_NO_VALUE ? DEFAULT_FREQUENCY : value;
    if (frequency != output.frequency) {
        output.frequency = frequency;
        alsa_wave_set(&output, nullptr);
        if (pcm_generate_wavebuf(&output) == 0)
            return AUDIO_FAILED;
    }
    const auto wave = alsa_wave_get(output);
    if (audio_dumps(output) && wave != nullptr)
        pcm_write_samples(PATH_SAMPLES_OUT, output.transfer_frames, wave->samples.get());
    return AUDIO_OK;
}

int tgen_start(audio_path path)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    const route_row* const p_row = row_of(tgen_routes, path);
    if (p_cfg == nullptr || p_row == nullptr)
        return AUDIO_FAILED;
    if (path == EAR_START && p_audio_co->hac_amp != nullptr)
        p_audio_co->hac_amp(1);
    return alsa_tgen_start(p_cfg->p_output, audio_slot(*p_cfg, p_row->route),
                           audio_slot(*p_cfg, p_row->gain));
}

int tgen_stop(audio_path path)
{
    const unsigned route = audio_byte(path, 2);
    if (path != (0x01000000 | route << 16) || route < 1 || route > 6)
        return AUDIO_FAILED;
    return alsa_tgen_stop();
}

int nothing(audio_path)
{
    return AUDIO_OK;
}

// A capture into a buffer of its own, which a failed start gives back.
int capture(const alsa_cfg& cfg, int route, int gain, bool bias)
{
    alsa_pcm_config& input = *cfg.p_input;
    int result = AUDIO_FAILED;
    if (pcm_allocate_input_buf(&input) != 0) {
        if (bias && p_audio_co->external_bias != nullptr)
            p_audio_co->external_bias(1);
        result = alsa_auan_start(&input, audio_slot(cfg, route), audio_slot(cfg, gain));
    }
    if (result != AUDIO_OK)
        input.buffer.reset();
    return result;
}

bool captures()
{
    return get_alsa_state() == ALSA_STATE_CAPTURE;
}

int auan_start(audio_path path)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    const route_row* const p_row = row_of(auan_routes, path);
    if (p_cfg == nullptr || p_row == nullptr || captures())
        return AUDIO_FAILED;
    return capture(*p_cfg, p_row->route, p_row->gain, true);
}

int tgen_auan_start(audio_path path)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    const both_row* const p_row = row_of(both_routes, path);
    if (p_cfg == nullptr || p_row == nullptr || captures())
        return AUDIO_FAILED;
    const bool tone_ran = get_tgen_cfg() != nullptr;
    const int result = alsa_tgen_start(p_cfg->p_output, audio_slot(*p_cfg, p_row->output),
                                       audio_slot(*p_cfg, p_row->output_gain));
    if (result != AUDIO_OK)
        return result;
    if (capture(*p_cfg, p_row->input, p_row->input_gain, false) == AUDIO_OK)
        return AUDIO_OK;
    if (!tone_ran)
        alsa_tgen_stop();
    return AUDIO_FAILED;
}

int stop_and_analyze(audio_path path, audio_result* p_result)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    const unsigned mode = audio_byte(path, 3) & 0x0F;
    if (p_audio_co == nullptr || p_cfg == nullptr || (mode != 2 && mode != 3))
        return AUDIO_FAILED;
    alsa_auan_stop();
    alsa_tgen_stop();
    alsa_pcm_config& input = *p_cfg->p_input;
    if (input.buffer == nullptr)
        return AUDIO_FAILED;
    if (audio_dumps(input))
        pcm_write_samples(PATH_SAMPLES_IN, input.transfer_frames, input.buffer.get());
    const int measured = audio_analyze(input, p_result);
    input.buffer.reset();
    return measured != 0 ? AUDIO_OK : AUDIO_FAILED;
}

int loopback(audio_path path)
{
    const alsa_cfg* const p_cfg = alsa_cfg_get();
    if (p_cfg == nullptr)
        return AUDIO_FAILED;
    if (path == LOOPBACK_INPUT_NONE)
        return AUDIO_OK;
    const loopback_row* const p_row = row_of(loopbacks, path);
    if (p_row == nullptr)
        return AUDIO_FAILED;
    alsa_ctl_entry* p_route = audio_slot(*p_cfg, p_row->route);
    if (p_route == nullptr)
        p_route = audio_slot(*p_cfg, p_row->instead);
    const int result = alsa_set_route(p_route);
    return result == AUDIO_OK && p_row->second != SLOT_NONE
               ? alsa_set_route(audio_slot(*p_cfg, p_row->second))
               : result;
}

// The first character of the kernel's file is a number, or, without such a file, a line tells of the plug.
int plug_detect()
{
    const char* const path = cfg_get_str("audio", "debug_fs_plug_detect", nullptr);
    if (path == nullptr)
        return pin_in_get(PIN_IN_HEADSET_PLUG) == PIN_ACTIVE ? 1 : 0;
    char text[2];
    attr_read(path, text, sizeof text);
    return text[0] >= '1' && text[0] <= '9' ? 1 : 0;
}

} // namespace

alsa_ctl_entry* audio_slot(const alsa_cfg& cfg, int slot)
{
    return slot != SLOT_NONE ? cfg.p_route[slot] : nullptr;
}

void audio_init()
{
    p_audio_co = nullptr;
}

void audio_co_attach(const audio_co* p_co)
{
    p_audio_co = p_co;
}

int audio_tgen_init(audio_path path)
{
    return audio_run(&audio_co::tgen_init, tgen_init, AUDIO_FAILED, path);
}

int audio_tgen_start(audio_path path)
{
    return audio_run(&audio_co::tgen_start, tgen_start, AUDIO_FAILED, path);
}

int audio_tgen_stop(audio_path path)
{
    return audio_run(&audio_co::tgen_stop, tgen_stop, AUDIO_OK, path);
}

int audio_auan_init(audio_path path)
{
    return audio_run(&audio_co::auan_init, nothing, AUDIO_FAILED, path);
}

int audio_auan_start(audio_path path)
{
    return audio_run(&audio_co::auan_start, auan_start, AUDIO_FAILED, path);
}

int audio_auan_stop(audio_path path, audio_result* p_result)
{
    return stop_and_analyze(path, p_result);
}

int audio_tgen_auan_init(audio_path path)
{
    return audio_run(&audio_co::tgen_auan_init, nothing, AUDIO_FAILED, path);
}

int audio_tgen_auan_start(audio_path path)
{
    return audio_run(&audio_co::tgen_auan_start, tgen_auan_start, AUDIO_FAILED, path);
}

int audio_tgen_auan_stop(audio_path path, audio_result* p_result)
{
    return stop_and_analyze(path, p_result);
}

int audio_loopback(audio_path path)
{
    return audio_run(&audio_co::loopback, loopback, AUDIO_FAILED, path);
}

int audio_reset(unsigned request)
{
    return audio_run(
        &audio_co::reset, +[](unsigned) { return AUDIO_OK; }, AUDIO_FAILED, request);
}

int record_audio(unsigned source)
{
    return audio_run(
        &audio_co::record, +[](unsigned) { return AUDIO_OK; }, AUDIO_FAILED, source);
}

int play_audio(unsigned sink)
{
    return audio_run(
        &audio_co::play, +[](unsigned) { return AUDIO_OK; }, AUDIO_FAILED, sink);
}

int audio_write_register(unsigned reg, unsigned value)
{
    return audio_run(
        &audio_co::write_register, +[](unsigned, unsigned) { return AUDIO_OK; }, AUDIO_FAILED, reg, value);
}

int audio_read_register(unsigned reg, unsigned* p_value)
{
    return audio_run(
        &audio_co::read_register, +[](unsigned, unsigned*) { return AUDIO_OK; }, AUDIO_FAILED, reg, p_value);
}

int audio_dump(audio_register_fn fn, void* arg)
{
    return audio_run(
        &audio_co::dump, +[](audio_register_fn, void*) { return AUDIO_NO_DUMP; }, AUDIO_FAILED, fn, arg);
}

int ajdt_detect()
{
    const bool own = p_audio_co != nullptr && p_audio_co->ajdt_detect != nullptr;
    return own ? p_audio_co->ajdt_detect() : plug_detect();
}
