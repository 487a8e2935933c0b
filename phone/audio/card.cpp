#include "audio/card.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <sys/timerfd.h>

#include "audio/card_inner.h"
#include "audio/mixer.h"
#include "audio/sound_words.h"
#include "core/libraries.h"
#include "core/watch.h"

namespace phone {

using namespace card_inner;

namespace {

constexpr unsigned bytes_per_sample = 2;

bool is_gone;
unsigned fixed_rate;
unsigned fixed_ring;

// A call of the program: watched, and failing by a bench's will. `call` gives its result.
template <typename Call>
int watched(const char* operation, std::string_view what, Call call)
{
    const int result = watch_call(operation, what) == fault::none ? call() : -EIO;
    errno = -std::min(result, 0);
    watch_result(operation, what, result);
    return result;
}

int open_unwatched(card_stream stream)
{
    const card_lock lock;
    stream_state& s = state_of(stream);
    if (is_gone)
        return -ENODEV;
    if (s.now != phase::closed)
        return -EBUSY;
    s.now = phase::open;
    s.setting = {};
    note(stream, "open");
    return 0;
}

int open_stream(card_stream stream)
{
    return watched("open", card_stream_name(stream), [stream] { return open_unwatched(stream); });
}

card_limits limits(card_stream stream)
{
    const card_lock lock;
    const stream_state& other = state_of(stream == card_playback ? card_capture : card_playback);
    card_limits l = {8000, 48000, 512, 131072};
    if (fixed_rate != 0) {
        const unsigned channels = stream == card_playback ? 1 : 2;
        l.rate_least = l.rate_most = fixed_rate;
        l.ring_least = l.ring_most = fixed_ring * channels * bytes_per_sample;
    } else if (other.setting.rate != 0) {
        l.rate_least = l.rate_most = other.setting.rate; // both have one clock
    }
    return l;
}

int set_up_unwatched(card_stream stream, const card_setting& setting)
{
    const card_lock lock;
    stream_state& s = state_of(stream);
    if (s.now == phase::dead)
        return -ENODEV;
    s.setting = setting;
    s.ring.assign(s.setting.ring * s.setting.channels, 0);
    s.given = s.done = 0;
    s.now = phase::set;
    rate = s.setting.rate;
    note(stream, "setup " + std::to_string(s.setting.rate) + " " + std::to_string(s.setting.channels) + " " +
                     std::to_string(s.setting.ring) + " " + std::to_string(s.setting.period));
    return 0;
}

int set_up(card_stream stream, const card_setting* p_setting)
{
    return watched("setup", card_stream_name(stream), [&] { return set_up_unwatched(stream, *p_setting); });
}

int prepare_unwatched(card_stream stream)
{
    const card_lock lock;
    stream_state& s = state_of(stream);
    if (s.now == phase::dead)
        return -ENODEV;
    stop_running(stream, phase::prepared);
    s.given = s.done = 0;
    s.now = phase::prepared;
    return 0;
}

int prepare(card_stream stream)
{
    return watched("prepare", card_stream_name(stream), [stream] { return prepare_unwatched(stream); });
}

int resume(card_stream stream)
{
    const card_lock lock;
    stream_state& s = state_of(stream);
    if (s.now != phase::suspended)
        return -error_of(s);
    if (stream == card_playback)
        s.done = s.given;
    s.now = phase::prepared;
    return 0;
}

int start(card_stream stream)
{
    constexpr auto thread_comes_within = std::chrono::seconds(2);
    const card_lock lock;
    stream_state& s = state_of(stream);
    if (s.now != phase::prepared)
        return error_of(s) != 0 ? -error_of(s) : -EBADFD;
    clock_follow(stream);
    if (!any_runs())
        begin_time(); // not when the lock was taken: the mixer may have had much to catch up with
    s.now = phase::running;
    s.awaited_until = std::chrono::steady_clock::now() + thread_comes_within;
    set_awaited(s, stream == card_playback);
    note(stream, "start");
    return 0;
}

void stop(card_stream stream)
{
    const card_lock lock;
    stop_running(stream, phase::set);
}

void free_stream(card_stream stream)
{
    const card_lock lock;
    stop_running(stream, phase::set);
    stream_state& s = state_of(stream);
    s.setting = {};
    if (s.now != phase::dead)
        s.now = phase::open;
}

void close_stream(card_stream stream)
{
    const card_lock lock;
    stop_running(stream, phase::open);
    state_of(stream).now = phase::closed;
    state_of(stream).setting = {};
    note(stream, "close");
}

card_place place(card_stream stream)
{
    clock_library_goes_on();
    const card_lock lock(stream);
    const stream_state& s = state_of(stream);
    return {error_of(s), s.done};
}

// Copies between the ring and the program's frames, from the place of the next transfer on.
void copy(card_stream stream, std::int16_t* p_frames, std::uint64_t frames)
{
    stream_state& s = state_of(stream);
    while (frames > 0) {
        const std::uint64_t at = s.given % s.setting.ring;
        const std::uint64_t n = std::min(frames, s.setting.ring - at);
        const std::uint64_t samples = n * s.setting.channels;
        std::int16_t* const p_ring = &s.ring[at * s.setting.channels];
        if (stream == card_playback)
            std::copy_n(p_frames, samples, p_ring);
        else
            std::copy_n(p_ring, samples, p_frames);
        p_frames += samples;
        s.given += n;
        frames -= n;
    }
}

long transfer(card_stream stream, void* p_frames, unsigned long frames)
{
    const char* const operation = stream == card_playback ? "write" : "read";
    const fault fate = watch_call(operation, card_stream_name(stream));
    if (fate == fault::shortened)
        frames = std::max(frames / 2, 1UL);
    const bool fails = fate == fault::eio || fate == fault::eof; // a card has no end
    const long result = fails ? -EIO : card_transfer_unwatched(stream, p_frames, frames);
    errno = static_cast<int>(-std::min(result, 0L));
    watch_result(operation, card_stream_name(stream), result);
    return result;
}

int wait_descriptor(card_stream stream)
{
    return state_of(stream).timer_fd;
}

void wait(card_stream stream)
{
    const card_lock lock(stream);
    clock_library_waits_until(state_of(stream).timer_fd, moment_of_period(stream));
}

bool wait_is_over(card_stream stream)
{
    clock_library_goes_on();
    const card_lock lock;
    return moment_of_period(stream) <= this_moment();
}

int mixer_open()
{
    return watched("open", "mixer", [] {
        const card_lock lock;
        return is_gone ? -ENODEV : 0;
    });
}

unsigned controls()
{
    return mixer_controls;
}

int control_get(unsigned numid)
{
    const card_lock lock;
    return is_gone ? -ENODEV : mixer_value(numid);
}

int control_set(unsigned numid, long value)
{
    const int result = watched("mixer", std::to_string(numid), [numid, value] {
        const card_lock lock;
        if (is_gone)
            return -ENODEV;
        return mixer_set(numid, value) ? 0 : -EINVAL;
    });
    log_line(log_sound, "control " + std::to_string(numid) + " " + std::to_string(value) +
                            (result < 0 ? " refused" : ""));
    return result;
}

void control_unknown(unsigned numid)
{
    strange("mixer " + std::to_string(numid));
}

} // namespace

// clang-format off
const card_calls card_here = {
    .mixer_open      = mixer_open,
    .controls        = controls,
    .control_kind    = mixer_kind,
    .control_most    = mixer_most,
    .control_get     = control_get,
    .control_set     = control_set,
    .control_unknown = control_unknown,
    .open            = open_stream,
    .limits          = limits,
    .set_up          = set_up,
    .prepare         = prepare,
    .resume          = resume,
    .start           = start,
    .stop            = stop,
    .free            = free_stream,
    .close           = close_stream,
    .place           = place,
    .transfer        = transfer,
    .wait_descriptor = wait_descriptor,
    .wait            = wait,
    .wait_is_over    = wait_is_over,
};
// clang-format on

void sound_attach()
{
    for (stream_state& s : streams)
        s.timer_fd = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
    begin_time();
    log_sound =
        log_add("sound", "what the sound card was told last: its controls, and the life of its streams");
    // What libasound reads by itself: the configuration, and where the plug-in lies that it names.
    setenv("ALSA_CONFIG_PATH", libraries_place("asound.conf").c_str(), 1);
    setenv("ALSA_PLUGIN_DIR", libraries_place("").c_str(), 1);
    watch_target_add("mixer", {target_number::decimal});
    libraries_offer("card", &card_here);
    sound_words_attach();
}

// Behind phone.conf, which may say that there is no such library.
void sound_start()
{
    libraries_introduce("libphone_card.so");
}

unsigned card_rate()
{
    return rate;
}

bool card_is_open(card_stream stream)
{
    return state_of(stream).now != phase::closed;
}

bool card_runs(card_stream stream)
{
    return runs(state_of(stream));
}

void card_set_gone(bool gone)
{
    is_gone = gone;
    for (const card_stream stream : {card_playback, card_capture}) {
        if (!gone || !card_is_open(stream))
            continue;
        stop_running(stream, phase::dead);
        state_of(stream).now = phase::dead;
        ring_timer(state_of(stream));
    }
}

bool card_is_gone()
{
    return is_gone;
}

void card_fix(unsigned new_rate, unsigned ring)
{
    fixed_rate = new_rate;
    fixed_ring = ring;
}

void card_fixed(unsigned* p_rate, unsigned* p_ring)
{
    *p_rate = fixed_rate;
    *p_ring = fixed_ring;
}

void card_xrun(card_stream stream)
{
    end_stream(stream, phase::xrun, "xrun");
}

void card_suspend(card_stream stream)
{
    end_stream(stream, phase::suspended, "suspend");
}

int card_open_unwatched(card_stream stream)
{
    return open_unwatched(stream);
}

int card_set_up_unwatched(card_stream stream, const card_setting& setting)
{
    const int result = set_up_unwatched(stream, setting) == 0 ? prepare_unwatched(stream) : -ENODEV;
    if (result < 0)
        close_stream(stream);
    return result;
}

long card_transfer_unwatched(card_stream stream, void* p_frames, unsigned long frames)
{
    clock_library_goes_on();
    const card_lock lock(stream);
    if (const int error = error_of(state_of(stream)); error != 0)
        return -error;
    frames = std::min<std::uint64_t>(frames, available(stream));
    copy(stream, static_cast<std::int16_t*>(p_frames), frames);
    return static_cast<long>(frames);
}

void card_sleep(card_stream stream, std::uint64_t frame)
{
    nanoseconds until;
    {
        const card_lock lock(stream);
        const std::uint64_t done = state_of(stream).done;
        until = moment_after(frame - std::min(frame, done));
    }
    clock_sleep_until(until);
}

std::string_view card_stream_name(card_stream stream)
{
    return stream == card_playback ? "playback" : "capture";
}

} // namespace phone
