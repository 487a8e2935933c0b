// The tests of the audio path: a tone through an output (generator, "tgen"), a capture from an input that is
// measured when it stops (analyser, "auan"), both at once, and loopbacks, which are routes without a stream.
// Which controls make a route is the driver's; what a command prints is the command module's. All of it on
// the caller's thread. Results are AUDIO_OK, AUDIO_FAILED, or AUDIO_WRONG_PATH, unless told otherwise.
#pragma once

#include <cstdint>

#include "alsa/alsa.h"

constexpr int AUDIO_OK = 0;
constexpr int AUDIO_FAILED = -10;
constexpr int AUDIO_WRONG_PATH = -9; // a path word of the wrong kind
constexpr int AUDIO_NO_DUMP = -8;

// A path word: from the top byte down mode, route, and 16 bits of value (1 start, 0 stop, AUDIO_NO_VALUE, or
// a frequency). A gain path: mode, route, step, second step, bytes that are left out being 0xFF.
using audio_path = std::uint32_t;
constexpr std::uint32_t AUDIO_NO_VALUE = 0xFFFF;

// The measurement of a captured block.
struct audio_result {
    std::int32_t frequency; // Hz, of the strongest tone
    std::int32_t level;
    std::int32_t power; // of all there is
};

// Takes a register of a dump.
using audio_register_fn = void (*)(unsigned reg, unsigned value, void* arg);

// What a codec does by itself; an entry that isn't null replaces the logic of this module.
struct audio_co {
    int (*tgen_init)(audio_path path);
    int (*tgen_start)(audio_path path);
    int (*tgen_stop)(audio_path path);
    int (*auan_init)(audio_path path);
    int (*auan_start)(audio_path path);
    int (*unused1)();
    int (*tgen_auan_init)(audio_path path);
    int (*tgen_auan_start)(audio_path path);
    int (*unused2)();
    int (*loopback)(audio_path path);
    int (*reset)(unsigned request);
    int (*ajdt_detect)();
    int (*tgen_gain)(audio_path path);
    int (*auan_gain)(audio_path path);
    int (*tgen_auan_gain)(audio_path path);
    int (*lb_sp_gain)(audio_path path);
    int (*lb_mic_gain)(audio_path path);
    int (*dump)(audio_register_fn fn, void* arg);
    int (*external_bias)(int on);
    int (*hac_amp)(int on);
    int (*record)(unsigned source);
    int (*play)(unsigned sink);
    int (*write_register)(unsigned reg, unsigned value);
    int (*read_register)(unsigned reg, unsigned* p_value);
};

void audio_init();
void audio_co_attach(const audio_co* p_co);

// Without a driver's table, or without its routes, the operations fail; the gains and audio_tgen_stop,
// without a table, do nothing and give AUDIO_OK.

// The tone. Init sets its frequency, 1000 Hz for AUDIO_NO_VALUE, also of one that runs; without a wave of
// that frequency (0 Hz, too low or above the rate) it fails, and so does a start until another is set.
int audio_tgen_init(audio_path path);
int audio_tgen_start(audio_path path);
int audio_tgen_stop(audio_path path);

// The capture. Stop ends tone and capture, whatever runs, and measures the newest block; `*p_result` stays as
// it is without one. A block without a tone to be measured fails, with its power in the result. A start is
// refused while a capture runs.
int audio_auan_init(audio_path path);
int audio_auan_start(audio_path path);
int audio_auan_stop(audio_path path, audio_result* p_result);

// Both.
int audio_tgen_auan_init(audio_path path);
int audio_tgen_auan_start(audio_path path);
int audio_tgen_auan_stop(audio_path path, audio_result* p_result);

// Sets a loopback's route, which stays until a reset.
int audio_loopback(audio_path path);

// Gains: of a running route at once, else stored for its next start. The last two are those of the loopbacks,
// and go to the card.
int audio_tgen_gain(audio_path path);
int audio_auan_gain(audio_path path);
int audio_tgen_auan_gain(audio_path path);
int audio_lb_sp_gain(audio_path path);
int audio_lb_mic_gain(audio_path path);

// The codec's own; AUDIO_OK where it has no such operation, audio_dump then AUDIO_NO_DUMP.
int audio_reset(unsigned request);
int record_audio(unsigned source);
int play_audio(unsigned sink);
int audio_write_register(unsigned reg, unsigned value);
int audio_read_register(unsigned reg, unsigned* p_value);
int audio_dump(audio_register_fn fn, void* arg);

// 1 when a plug is in the jack, else 0.
int ajdt_detect();

// Makes the wave of a playback from its rate, frequency and amplitude. 1; 0 when it has one already, or when
// there is none to be had.
int pcm_generate_wavebuf(alsa_pcm_config* p_config);
