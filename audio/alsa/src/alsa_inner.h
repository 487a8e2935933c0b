// What the files of the module share.
#pragma once

#include <alsa/asoundlib.h>
#include <atomic>

#include "alsa/alsa.h"

extern std::atomic<int> alsa_state;

// Closes a stream that a start gives up.
struct alsa_pcm_close {
    void operator()(snd_pcm_t* pcm) const { snd_pcm_close(pcm); }
};
using alsa_pcm_guard = std::unique_ptr<snd_pcm_t, alsa_pcm_close>;

// Opens the record's stream with its parameters, ready to run; what the card grants is written to the record.
// Null on failure.
alsa_pcm_guard alsa_pcm_open(alsa_pcm_config* p_config);
