#include "audio_wcd9320/audio_wcd9320.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "attr/attr.h"
#include "audio_v2/audio.h"
#include "cfg/cfg.h"
#include "plat/plat.h"
#include "routes.h"
#include "tmr/tmr.h"

namespace {

constexpr unsigned BIAS_REGISTER = 436;
constexpr unsigned BIAS_ON = 39;

constexpr unsigned REQUEST_STREAMS = 0;
constexpr unsigned REQUEST_LOOPBACKS = 3;

constexpr const char* RECORD_LINE = "arec -D hw:0,0 -C 1 -R 48000 -T 5 /system/testfile.wav";
constexpr const char* PLAY_LINE = "aplay /system/testfile.wav";

// "01b4: 27": where the value stands behind the beginning of the number.
constexpr std::size_t VALUE_AT = 6;

const char* codec_reg = "/sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg";
char codec_text[7000]; // the whole file

audio_co wcd9320_co;

int hex_char_to_int(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : 0;
}

// A write's line, with a wait behind it; whether the register then holds the value.
bool write_once(unsigned reg, unsigned value, std::uint32_t wait_ms)
{
    char line[256];
    std::snprintf(line, sizeof line, "echo \"0x%03x 0x%02x\" > %s", reg, value, codec_reg);
    plat_system(line);
    if (wait_ms > 0)
        tmr_msleep(wait_ms);
    unsigned found;
    return audio_wcd9320_read(reg, &found) == 0 && found == value;
}

// Empty slots have nothing to switch off. Non-zero when all others could be.
template <std::size_t size>
bool switch_off(const int (&slots)[size])
{
    bool done = true;
    for (const int slot : slots)
        done = alsa_ctl_set_off(routes_cfg.p_route[slot]) >= 0 && done;
    return done;
}

void reset_amplifiers()
{
    if (wcd9320_co.hac_amp != nullptr)
        wcd9320_co.hac_amp(0);
    if (cfg_get_int("audio_wcd9320", "internal_micbias", 0) != 1)
        wcd9320_co.external_bias(0);
}

bool reset_streams()
{
    if (get_tgen_cfg() != nullptr)
        alsa_tgen_stop();
    if (get_auan_cfg() != nullptr)
        alsa_auan_stop();
    constexpr int slots[] = {ALSA_SPEAKER,
                             ALSA_SPEAKER_GAIN,
                             ALSA_SPEAKER2_GAIN,
                             ALSA_EAR,
                             ALSA_EAR_GAIN,
                             ALSA_PLUG,
                             ALSA_PLUG_LEFT_GAIN,
                             ALSA_PLUG_RIGHT_GAIN,
                             ALSA_MIC,
                             ALSA_AMIC1_GAIN,
                             ALSA_AMIC2_GAIN,
                             ALSA_HS_MIC,
                             ALSA_HS_MIC_GAIN,
                             ALSA_LINE_IN_LEFT_GAIN,
                             ALSA_LINE_IN_RIGHT_GAIN};
    return switch_off(slots);
}

bool reset_loopbacks()
{
    constexpr int slots[] = {ALSA_SPEAKER_NO_TGEN,
                             ALSA_SPEAKER_LEFT_NO_TGEN,
                             ALSA_SPEAKER_RIGHT_NO_TGEN,
                             ALSA_SPEAKER_GAIN_NO_TGEN,
                             ALSA_SPEAKER_RIGHT_GAIN_NO_TGEN,
                             ALSA_EAR_NO_TGEN,
                             ALSA_EAR_GAIN_NO_TGEN,
                             ALSA_MIC1_NO_AUAN,
                             ALSA_MIC2_NO_AUAN,
                             ALSA_HS_MIC_NO_AUAN,
                             ALSA_AMIC1_GAIN_NO_AUAN,
                             ALSA_AMIC2_GAIN_NO_AUAN,
                             ALSA_HS_MIC_GAIN_NO_AUAN};
    const bool done = switch_off(slots);
    audio_wcd9320_write(BIAS_REGISTER, BIAS_ON);
    return done;
}

// Runs a tool over a route. All of it is done whatever fails, so that the route is off again behind it.
int run_over(const char* line, alsa_ctl_entry* p_route, std::initializer_list<alsa_ctl_entry*> gains)
{
    int result = alsa_ctl_set_on(p_route);
    for (alsa_ctl_entry* p_gain : gains)
        result += alsa_ctl_set_no_change(p_gain);
    result += plat_system(line);
    result += alsa_ctl_set_off(p_route);
    for (const alsa_ctl_entry* p_gain : gains)
        result += alsa_ctl_set_off(p_gain);
    return result != 0 ? AUDIO_FAILED : AUDIO_OK;
}

int wcd9320_record(unsigned source)
{
    if (source != 1 && source != 2)
        return AUDIO_FAILED;
    return run_over(RECORD_LINE, routes_cfg.p_route[ALSA_MIC],
                    {routes_cfg.p_route[source == 1 ? ALSA_AMIC1_GAIN : ALSA_AMIC2_GAIN]});
}

int wcd9320_play(unsigned sink)
{
    alsa_ctl_entry* const* const p = routes_cfg.p_route;
    switch (sink) {
    case 0:
        return run_over(PLAY_LINE, p[ALSA_SPEAKER], {p[ALSA_SPEAKER_GAIN], p[ALSA_SPEAKER2_GAIN]});
    case 1:
        return run_over(PLAY_LINE, p[ALSA_PLUG], {p[ALSA_PLUG_LEFT_GAIN], p[ALSA_PLUG_RIGHT_GAIN]});
    default:
        return AUDIO_FAILED;
    }
}

// All registers go to the kernel log; the caller gets none.
int wcd9320_dump(audio_register_fn, void*)
{
    attr_read(codec_reg, codec_text, sizeof codec_text);
    const std::string line = codec_text[0] != '\0'
                                 ? std::string("echo \"") + codec_text + "\" > /dev/kmsg"
                                 : std::string("Read error, could not find file ") + codec_reg;
    plat_system(line.c_str());
    return 0;
}

int wcd9320_external_bias(int)
{
    return 1; // the codec's own bias is in use
}

} // namespace

void audio_wcd9320_init(int main_config, int)
{
    std::memset(codec_text, 0, sizeof codec_text);
    wcd9320_co = {};
    wcd9320_co.reset = audio_wcd9320_reset;
    wcd9320_co.dump = wcd9320_dump;
    wcd9320_co.external_bias = wcd9320_external_bias;
    wcd9320_co.record = wcd9320_record;
    wcd9320_co.play = wcd9320_play;
    wcd9320_co.write_register = audio_wcd9320_write;
    wcd9320_co.read_register = audio_wcd9320_read;
    audio_co_attach(&wcd9320_co);
    routes_fill(main_config == AUDIO_WCD9320_SPEAKER_DRIVER);
    alsa_cfg_attach(&routes_cfg);
    alsa_ctl_init("default");
    pcm_generate_wavebuf(routes_cfg.p_output);
    audio_wcd9320_write(BIAS_REGISTER, BIAS_ON);
}

void audio_wcd9320_conf(const char* path)
{
    codec_reg = path;
}

void audio_wcd9320_set_hac_amp()
{
    wcd9320_co.hac_amp = [](int) { return 0; };
}

int audio_wcd9320_write(unsigned reg, unsigned value)
{
    if (write_once(reg, value, 0))
        return 0;
    return write_once(reg, value, 0) ? 0 : -1;
}

int audio_wcd9320_write_with_delay(unsigned reg, unsigned value)
{
    if (!write_once(reg, value, 6) && !write_once(reg, value, 14))
        return -1;
    tmr_msleep(2);
    return 0;
}

int audio_wcd9320_read(unsigned reg, unsigned* p_value)
{
    char number[16];
    std::snprintf(number, sizeof number, "%04x", reg);
    if (attr_read(codec_reg, codec_text, sizeof codec_text) != ATTR_OK)
        return -1;
    const char* const found = std::strstr(codec_text, number);
    if (found == nullptr || std::strlen(found) < VALUE_AT + 2)
        return -1;
    *p_value =
        static_cast<unsigned>(hex_char_to_int(found[VALUE_AT]) << 4 | hex_char_to_int(found[VALUE_AT + 1]));
    return 0;
}

int audio_wcd9320_reset(unsigned request)
{
    bool done = false;
    if (request == REQUEST_STREAMS)
        done = reset_streams();
    else if (request == REQUEST_LOOPBACKS)
        done = reset_loopbacks();
    else
        return 0;
    reset_amplifiers();
    return done ? 1 : 0;
}
