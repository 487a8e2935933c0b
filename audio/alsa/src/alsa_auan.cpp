// The capture: a thread that fills the record's buffer with one block after the other, each over the one
// before.
#include <pthread.h>
#include <utility>

#include "alsa_inner.h"
#include "tmr/tmr.h"

namespace {

struct {
    alsa_ctl_entry* p_route;
    alsa_ctl_entry* p_gain;
    pthread_t thread;
    bool runs; // the thread is to be joined
} capture;

// One block into the record's buffer. False when it had to be given up.
bool read_block(alsa_pcm_config* p_config)
{
    std::int16_t* p_to = p_config->buffer.get();
    unsigned long left = p_config->transfer_frames;
    while (left > 0) {
        const long n = snd_pcm_readi(p_config->pcm, p_to, left);
        if (n == -EPIPE && alsa_state >= 0 && snd_pcm_prepare(p_config->pcm) >= 0)
            continue;
        if (n <= 0)
            return false;
        p_to += n; // so many samples, whatever a frame has of them: a block always stays inside the buffer
        left -= static_cast<unsigned long>(n);
    }
    return true;
}

void* alsa_pcm_read_thread(void* arg)
{
    auto* const p_config = static_cast<alsa_pcm_config*>(arg);
    while (alsa_state >= 0)
        if (!read_block(p_config))
            tmr_msleep(1); // a card that is gone or suspended mustn't make a thread that never rests
    snd_pcm_close(p_config->pcm);
    p_config->pcm = nullptr;
    return nullptr;
}

bool auan_setup(alsa_pcm_config* p_config)
{
    if (p_config->buffer == nullptr)
        return false;
    alsa_pcm_guard pcm = alsa_pcm_open(p_config);
    if (pcm == nullptr)
        return false;
    p_config->pcm = pcm.get();
    if (pthread_create(&capture.thread, nullptr, alsa_pcm_read_thread, p_config) != 0) {
        p_config->pcm = nullptr;
        return false;
    }
    [[maybe_unused]] const snd_pcm_t* const of_the_thread = pcm.release();
    capture.runs = true;
    return true;
}

int capture_failed()
{
    alsa_state = ALSA_STATE_ERROR;
    if (capture.runs)
        pthread_join(capture.thread, nullptr);
    capture = {};
    return ALSA_FAILED;
}

} // namespace

int alsa_auan_init()
{
    return 0;
}

int alsa_auan_start(alsa_pcm_config* p_config, alsa_ctl_entry* p_route, alsa_ctl_entry* p_gain)
{
    if (capture.runs)
        return ALSA_FAILED;
    if (alsa_ctl_set_on(p_route) < 0 || alsa_ctl_set_no_change(p_gain) < 0)
        return capture_failed();
    alsa_state =
        ALSA_STATE_CAPTURE; // behind the routes: a control interface that they had to open sets it too
    if (!auan_setup(p_config))
        return capture_failed();
    capture.p_route = p_route;
    capture.p_gain = p_gain;
    if (alsa_ctl_set_gain_no_save(p_gain, ALSA_VALUE_SHORT_STEP) < 0 ||
        alsa_ctl_set_gain(p_gain, ALSA_VALUE_WORKING) < 0)
        return capture_failed();
    return 0;
}

int alsa_auan_stop()
{
    if (alsa_state != ALSA_STATE_CAPTURE || !capture.runs)
        return ALSA_FAILED;
    alsa_state = ALSA_STATE_STOP;
    pthread_join(capture.thread, nullptr);
    const auto stopped = std::exchange(capture, {});
    int result = alsa_ctl_set_nosave(stopped.p_route, ALSA_VALUE_DEFAULT);
    const int gain_result = alsa_ctl_set_nosave(stopped.p_gain, ALSA_VALUE_DEFAULT);
    if (result >= 0)
        result = gain_result;
    alsa_state = result < 0 ? ALSA_STATE_ERROR : ALSA_STATE_READY;
    return result < 0 ? result : 0;
}

alsa_ctl_entry* get_auan_cfg()
{
    return capture.p_route;
}

alsa_ctl_entry* get_auan_gain_cfg()
{
    return capture.p_gain;
}
