// The layer between the audio tests and libasound: writes routes (lists of mixer settings) to the sound
// card's control interface, and runs at most one playback and one capture, each on a thread of its own. Knows
// no route by name and measures nothing. Everything but the two threads' loops runs on the caller's thread,
// which is one thread at a time. Results are 0 or more for success, negative for failure, ALSA_FAILED unless
// told otherwise.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>

using snd_pcm_t = struct _snd_pcm;

constexpr int ALSA_FAILED = -10;

// States of the capture side.
constexpr int ALSA_STATE_NO_CONTROL = -9; // before alsa_ctl_init
constexpr int ALSA_STATE_READY = 0;
constexpr int ALSA_STATE_CAPTURE = 2;
constexpr int ALSA_STATE_STOP = -8; // the capture has been told to stop
constexpr int ALSA_STATE_ERROR = -10;

// How a control's value is written. The low byte of a type is one of the first three; 0 ends a route.
constexpr std::uint32_t ALSA_BOOLEAN = 1;
constexpr std::uint32_t ALSA_INTEGER = 2;
constexpr std::uint32_t ALSA_ENUMERATED = 3;
constexpr std::uint32_t ALSA_GAIN = 0xAA00;  // a gain entry
constexpr std::uint32_t ALSA_DELAY = 0xDD00; // waits values[0] ms while a route is written

// The values of an entry by place. A gain entry has further steps from 2 on, -1 where it lacks one.
constexpr int ALSA_VALUES = 10;
constexpr int ALSA_VALUE_DEFAULT = 0;
constexpr int ALSA_VALUE_WORKING = 1; // what "no change" writes, and where a saved selection goes
constexpr int ALSA_VALUE_ON = 2;
constexpr int ALSA_VALUE_SHORT_STEP =
    9; // of a gain entry: where a gain goes for a moment when a stream starts

struct alsa_ctl_entry {
    std::uint32_t type;
    std::uint32_t numid;
    std::uint32_t index;
    std::int16_t values[ALSA_VALUES];
    std::int16_t off_value;
};

struct alsa_free {
    void operator()(void* p) const { std::free(p); }
};
using alsa_samples = std::unique_ptr<std::int16_t[], alsa_free>;

// A sine in memory, from phase 0 on. It never changes; a thread that plays one keeps it for as long.
struct alsa_wave {
    alsa_samples samples;
    unsigned long count;
    unsigned period_samples; // of one wave
};

// One direction of the card. Sizes are frames, as the card takes them, but where a comment says bytes. The
// card may grant another rate, buffer_size and period_size than was asked; what it grants is written here.
struct alsa_pcm_config {
    const char* device;
    int stream; // 0 playback, 1 capture
    int format; // 2: signed, 16 bits, low byte first
    unsigned rate;
    unsigned channels;
    unsigned periods;           // whole waves in the buffer
    unsigned analysis_periods;  // waves in the analysed block
    unsigned frequency;         // Hz
    std::int16_t amplitude;     // the sine's peak
    std::uint32_t dump_samples; // low byte not 0: the tests write their text dumps
    snd_pcm_t* pcm;
    alsa_samples buffer;                   // of a capture: its newest block
    std::shared_ptr<const alsa_wave> wave; // of a playback; through alsa_wave_get and alsa_wave_set alone
    unsigned long buffer_size;
    unsigned long period_size;
    unsigned transfer_frames; // of one write, or of the analysed block
    unsigned period_samples;  // of one wave
};

void alsa_init();

// Opens the card's control interface, once. 0, or the error of the library; -1 for a null name or when it is
// open already, which makes ALSA_STATE_ERROR too.
int alsa_ctl_init(const char* name);

// Write value `n` of each entry of a route: all entries, or those of gain alone; and, unless told otherwise,
// make it the working value of the entry, which it is even if the card then refuses it. Plain entries take 2
// for any greater n. The result is that of the last write; -1 for a null route, a negative n, or without a
// card.
int alsa_ctl_set(alsa_ctl_entry* p_route, int n);
int alsa_ctl_set_default(alsa_ctl_entry* p_route);
int alsa_ctl_set_no_change(alsa_ctl_entry* p_route);
int alsa_ctl_set_on(alsa_ctl_entry* p_route);
int alsa_ctl_set_nosave(alsa_ctl_entry* p_route, int n);
int alsa_ctl_set_gain(alsa_ctl_entry* p_route, int n);
int alsa_ctl_set_gain_no_save(alsa_ctl_entry* p_route, int n);

// Writes the off value of each entry, without a wait. 0 for a null route; -1 on failure.
int alsa_ctl_set_off(const alsa_ctl_entry* p_route);

// Make value `n` the working value and leave the card alone. The result is minus the number of entries that
// have no such step; -1 for a null route or an n outside 0 to 9.
int alsa_ctl_set_noapply(alsa_ctl_entry* p_route, int n);
int alsa_ctl_set_gain_noapply(alsa_ctl_entry* p_route, int n);

// alsa_ctl_set_on with 0 or ALSA_FAILED.
int alsa_set_route(alsa_ctl_entry* p_route);

// A wave of `count` samples, or null when there is no memory or a wave would have no sample.
std::shared_ptr<const alsa_wave> alsa_wave_make(unsigned period_samples, std::int16_t amplitude,
                                                unsigned long count);

// Samples that a playback can reach in a wave: the ring from sample 0, and a write from the last position.
unsigned long alsa_wave_reach(const alsa_pcm_config& config, unsigned period_samples);

// The wave of a playback. A running tone goes over to a new one between two writes; without one it ends by
// itself, and counts as running until it is stopped.
std::shared_ptr<const alsa_wave> alsa_wave_get(const alsa_pcm_config& config);
void alsa_wave_set(alsa_pcm_config* p_config, std::shared_ptr<const alsa_wave> wave);

// Starts the tone: routes, stream, thread. 0, also while one runs, which is left as it is. A failed start
// leaves the routes as they were written.
int alsa_tgen_start(alsa_pcm_config* p_config, alsa_ctl_entry* p_route, alsa_ctl_entry* p_gain);

// Ends the tone and switches its routes off. 0, also without one.
int alsa_tgen_stop();

int alsa_auan_init();

// Starts a capture into the record's buffer, which must hold a block. Refused while one runs.
int alsa_auan_start(alsa_pcm_config* p_config, alsa_ctl_entry* p_route, alsa_ctl_entry* p_gain);

// Ends the capture behind its block and gives its routes their default values. The buffer holds the newest
// block then, and stays the caller's. Without a capture it fails.
int alsa_auan_stop();

int get_alsa_state();

// The routes of the running tone and capture, null without one.
alsa_ctl_entry* get_tgen_cfg();
alsa_ctl_entry* get_tgen_gain_cfg();
alsa_ctl_entry* get_auan_cfg();
alsa_ctl_entry* get_auan_gain_cfg();

// The phone's two streams and its routes: a driver attaches them, the tests look them up. Routes stand by
// slot number, from slot 2 on; a slot may be empty. "No tgen" and "no auan" are the routes of a loopback,
// which has no stream.
// clang-format off
constexpr int ALSA_SLOTS                   = 43;
constexpr int ALSA_SPEAKER                 =  2;
constexpr int ALSA_SPEAKER_NO_TGEN         =  3;
constexpr int ALSA_SPEAKER_LEFT_NO_TGEN    =  4;
constexpr int ALSA_SPEAKER_RIGHT_NO_TGEN   =  5;
constexpr int ALSA_SPEAKER_GAIN            =  6;
constexpr int ALSA_SPEAKER_GAIN_NO_TGEN    =  7;
constexpr int ALSA_SPEAKER2_GAIN           =  8; // the second speaker
constexpr int ALSA_SPEAKER_RIGHT_GAIN_NO_TGEN = 9;
constexpr int ALSA_EAR                     = 10;
constexpr int ALSA_EAR_NO_TGEN             = 11;
constexpr int ALSA_EAR_GAIN                = 12;
constexpr int ALSA_EAR_GAIN_NO_TGEN        = 13;
constexpr int ALSA_PLUG                    = 14;
constexpr int ALSA_PLUG_LEFT_GAIN          = 15;
constexpr int ALSA_PLUG_RIGHT_GAIN         = 16;
constexpr int ALSA_PLUG_THIRD_GAIN         = 17;
constexpr int ALSA_MIC                     = 18;
constexpr int ALSA_MIC1_NO_AUAN            = 19;
constexpr int ALSA_SLOT_20                 = 20; // a loopback input
constexpr int ALSA_MIC2_NO_AUAN            = 21;
constexpr int ALSA_SLOT_22                 = 22; // a loopback input
constexpr int ALSA_HS_MIC_NO_AUAN          = 23;
constexpr int ALSA_AMIC1_GAIN              = 24;
constexpr int ALSA_AMIC1_GAIN_NO_AUAN      = 25;
constexpr int ALSA_AMIC2_GAIN              = 26;
constexpr int ALSA_AMIC2_GAIN_NO_AUAN      = 27;
constexpr int ALSA_AMIC3_GAIN              = 28;
constexpr int ALSA_AMIC4_GAIN              = 29;
constexpr int ALSA_HS_MIC                  = 30;
constexpr int ALSA_HS_MIC_GAIN             = 31;
constexpr int ALSA_HS_MIC_GAIN_NO_AUAN     = 32;
constexpr int ALSA_LINE_IN_RIGHT_GAIN      = 33;
constexpr int ALSA_LINE_IN_LEFT_GAIN       = 34;
constexpr int ALSA_FM                      = 35;
constexpr int ALSA_FM_GAIN                 = 36;
constexpr int ALSA_LOOP_FIRST1             = 37; // loopback both: three first halves,
constexpr int ALSA_LOOP_FIRST2             = 38;
constexpr int ALSA_LOOP_FIRST3             = 39;
constexpr int ALSA_LOOP_SECOND1            = 40; // and three second ones
constexpr int ALSA_LOOP_SECOND2            = 41;
constexpr int ALSA_LOOP_SECOND3            = 42;
// clang-format on

struct alsa_cfg {
    alsa_pcm_config* p_output;
    alsa_pcm_config* p_input;
    alsa_ctl_entry* p_route[ALSA_SLOTS];
};
void alsa_cfg_attach(const alsa_cfg* p_cfg);
const alsa_cfg* alsa_cfg_get();
