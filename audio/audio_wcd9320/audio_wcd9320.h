// The WCD9320 codec: its mixer routes, which it hands to the audio tests, its registers through a file of the
// kernel's, and recording and playing with the system's tools. It starts no stream of its own. The board's
// start-up calls audio_wcd9320_init before the first command; alsa and audio_v2 must be there.
#pragma once

constexpr int AUDIO_WCD9320_SPEAKER_DRIVER = 5; // a speaker at the codec's own amplifier

// Attaches operations and routes, opens the card's controls, makes the tone's wave and switches the bias on.
// `main_config` tells the speaker; with any but AUDIO_WCD9320_SPEAKER_DRIVER there are no speaker routes.
void audio_wcd9320_init(int main_config, int stereo_config);

// From now on the registers are in another file.
void audio_wcd9320_conf(const char* path);

// Adds the switching of a hearing aid's amplifier, which this board does without.
void audio_wcd9320_set_hac_amp();

// A register, 0 or -1. A write is read back, and done a second time when another value stands there; the
// second form gives the chip time after each.
int audio_wcd9320_write(unsigned reg, unsigned value);
int audio_wcd9320_write_with_delay(unsigned reg, unsigned value);
int audio_wcd9320_read(unsigned reg, unsigned* p_value);

// Switches off the routes of tone and capture, both stopped (request 0), or of the loopbacks (request 3). 1,
// or 0 when a route couldn't be written; the others are.
int audio_wcd9320_reset(unsigned request);
