#include <algorithm>
#include <cerrno>
#include <sys/timerfd.h>

#include "audio/card_inner.h"
#include "audio/mixer.h"

namespace phone {

using namespace card_inner;

log_id card_inner::log_sound;
std::array<stream_state, 2> card_inner::streams;
unsigned card_inner::rate = 48000;

namespace {

constexpr nanoseconds ns_per_s = 1'000'000'000;
constexpr nanoseconds ns_per_ms = 1'000'000;

std::mutex card_mutex;

// The card's time.
clock_followed seen;     // up to where it has been brought
nanoseconds lag;         // passed while a thread was at work, and not caught up yet
std::int64_t part_frame; // of the frame that runs, in billionths

std::uint64_t filled(card_stream stream)
{
    const stream_state& s = state_of(stream);
    return stream == card_playback ? s.given - s.done : s.done - s.given;
}

// Has the mixer carry frames, in pieces that lie in one piece in the rings. Within them no stream starts or
// ends.
void carry(std::uint64_t frames)
{
    stream_state& play = streams[card_playback];
    stream_state& capture = streams[card_capture];
    while (frames > 0) {
        std::uint64_t n = std::min<std::uint64_t>(frames, mixer_history);
        mixer_block block{rate,        0, nullptr, play.setting.channels, nullptr, capture.setting.channels,
                          capture.done};
        if (runs(play)) {
            const std::uint64_t at = play.done % play.setting.ring;
            block.p_playback = &play.ring[at * play.setting.channels];
            n = std::min(n, play.setting.ring - at);
        }
        if (runs(capture)) {
            const std::uint64_t at = capture.done % capture.setting.ring;
            block.p_capture = &capture.ring[at * capture.setting.channels];
            n = std::min(n, capture.setting.ring - at);
        }
        block.frames = static_cast<unsigned>(n);
        mixer_carry(block);
        for (stream_state& s : streams)
            s.done += runs(s) ? n : 0;
        frames -= n;
    }
}

// How many frames can pass before a running stream under- or overruns.
std::uint64_t until_xrun()
{
    std::uint64_t n = UINT64_MAX;
    if (runs(streams[card_playback]))
        n = filled(card_playback);
    if (runs(streams[card_capture]))
        n = std::min(n, streams[card_capture].setting.ring - filled(card_capture));
    return n;
}

void pass_frames(std::uint64_t frames)
{
    if (!any_runs())
        frames = std::min<std::uint64_t>(frames, mixer_history); // nobody can hear what was before
    while (frames > 0) {
        const std::uint64_t n = std::min(frames, until_xrun());
        carry(n);
        frames -= n;
        for (const card_stream stream : {card_playback, card_capture})
            if (frames > 0 && runs(state_of(stream)) &&
                filled(stream) == (stream == card_playback ? 0 : state_of(stream).setting.ring))
                end_stream(stream, phase::xrun, "xrun");
    }
}

void pass_time(nanoseconds span)
{
    constexpr nanoseconds longest = 100 * ns_per_s;
    part_frame += std::min(span, longest) * rate;
    pass_frames(static_cast<std::uint64_t>(part_frame / ns_per_s));
    part_frame %= ns_per_s;
}

// What can be caught up at once without bringing a stream into need: half of its ring stays.
nanoseconds bearable()
{
    std::uint64_t frames = UINT32_MAX;
    for (const card_stream stream : {card_playback, card_capture}) {
        const stream_state& s = state_of(stream);
        if (!runs(s))
            continue;
        const std::uint64_t left = stream == card_playback ? filled(stream) : s.setting.ring - filled(stream);
        frames = std::min(frames, left - std::min<std::uint64_t>(left, s.setting.ring / 2));
    }
    return static_cast<nanoseconds>(frames) * ns_per_s / rate;
}

bool is_awaited(stream_state& s)
{
    if (s.awaited && std::chrono::steady_clock::now() > s.awaited_until)
        set_awaited(s, false);
    return s.awaited;
}

void advance()
{
    constexpr nanoseconds most_lag = 200 * ns_per_ms;
    const clock_followed t = clock_follow_time();
    const nanoseconds passed = t.now - seen.now;
    const nanoseconds rested = t.at_rest - seen.at_rest;
    seen = t;
    if (is_awaited(streams[card_playback]))
        return; // as if it had been started later
    if (!any_runs()) {
        lag = 0;
        pass_time(passed);
        return;
    }
    pass_time(rested);
    lag = std::min(lag + passed - rested, most_lag);
    const nanoseconds caught_up = std::min(lag, bearable());
    lag -= caught_up;
    pass_time(caught_up);
}

} // namespace

bool card_inner::any_runs()
{
    return runs(streams[card_playback]) || runs(streams[card_capture]);
}

std::uint64_t card_inner::available(card_stream stream)
{
    return stream == card_playback ? state_of(stream).setting.ring - filled(stream) : filled(stream);
}

void card_inner::note(card_stream stream, const std::string& what)
{
    log_line(log_sound, std::string(card_stream_name(stream)) + " " + what);
}

void card_inner::ring_timer(const stream_state& s)
{
    const itimerspec now{{}, {0, 1}};
    timerfd_settime(s.timer_fd, 0, &now, nullptr);
}

void card_inner::set_awaited(stream_state& s, bool awaited)
{
    if (s.awaited != awaited)
        clock_expect_thread(awaited);
    s.awaited = awaited;
}

void card_inner::end_stream(card_stream stream, phase now, const char* what)
{
    state_of(stream).now = now;
    set_awaited(state_of(stream), false);
    note(stream, what);
    clock_unfollow(stream);
    ring_timer(state_of(stream));
}

void card_inner::stop_running(card_stream stream, phase now)
{
    if (runs(state_of(stream)))
        end_stream(stream, now, "stop");
}

int card_inner::error_of(const stream_state& s)
{
    switch (s.now) {
    case phase::xrun:
        return EPIPE;
    case phase::suspended:
        return ESTRPIPE;
    case phase::dead:
        return ENODEV;
    default:
        return 0;
    }
}

void card_inner::begin_time()
{
    part_frame = 0;
    seen = clock_follow_time();
}

nanoseconds card_inner::this_moment()
{
    return seen.now;
}

nanoseconds card_inner::moment_after(std::uint64_t frames)
{
    return seen.now + (static_cast<nanoseconds>(frames) * ns_per_s - part_frame + rate - 1) / rate;
}

nanoseconds card_inner::moment_of_period(card_stream stream)
{
    const stream_state& s = state_of(stream);
    if (error_of(s) != 0 || available(stream) >= s.setting.period)
        return seen.now;
    if (!runs(s))
        return forever;
    return moment_after(s.setting.period - available(stream));
}

card_lock::card_lock() : lock(card_mutex)
{
    advance();
}

// The clock follows the thread before it is asked for the time: what it counted without one isn't rest.
card_lock::card_lock(card_stream served) : lock(card_mutex)
{
    stream_state& s = state_of(served);
    if (runs(s))
        clock_follow(served);
    advance();
    set_awaited(s, false);
}

} // namespace phone
