// What the files of the card share: card_time.cpp has its state and its time, card.cpp the calls of the
// plug-in, of the phone's tools and of a bench. All of it is guarded by the card's lock.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "audio/card.h"
#include "core/log.h"

namespace phone::card_inner {

enum class phase { closed, open, set, prepared, running, xrun, suspended, dead };

struct stream_state {
    phase now = phase::closed;
    card_setting setting{};
    std::vector<std::int16_t> ring;
    std::uint64_t given = 0; // frames that the program has transferred since the last prepare
    std::uint64_t done = 0;  // frames that the card has taken or made
    int timer_fd = -1;       // what a waiting thread polls
    // A playback's thread comes after its start: until its first call, or for a while of the host's time, the
    // card stands.
    bool awaited = false;
    std::chrono::steady_clock::time_point awaited_until;
};

extern log_id log_sound;
extern std::array<stream_state, 2> streams;
extern unsigned rate;

inline stream_state& state_of(card_stream stream)
{
    return streams[stream];
}

inline bool runs(const stream_state& s)
{
    return s.now == phase::running;
}

bool any_runs();

// Frames that a transfer would find room or samples for.
std::uint64_t available(card_stream stream);

// 0, or what a transfer meets.
int error_of(const stream_state& s);

// A line of the stream's log.
void note(card_stream stream, const std::string& what);

// A running stream ends, for the reason that the log tells; the second does nothing for another.
void end_stream(card_stream stream, phase now, const char* what);
void stop_running(card_stream stream, phase now);

// The stream's thread is on its way, or has come, or isn't waited for any longer.
void set_awaited(stream_state& s, bool awaited);

// Who waits for the stream looks again.
void ring_timer(const stream_state& s);

// The card's time begins with this moment.
void begin_time();

// The moment up to which the card has been brought; those at which so many frames more have passed, and at
// which a transfer of a period can be made.
nanoseconds this_moment();
nanoseconds moment_after(std::uint64_t frames);
nanoseconds moment_of_period(card_stream stream);

} // namespace phone::card_inner
