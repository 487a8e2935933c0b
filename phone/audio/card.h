// The sound card: two streams, one each way, that run by the phone's clock through the mixer (mixer.h). Its
// time waits for the threads that serve its streams while they are at work, so that neither a slow host nor a
// fast phone makes an underrun; one that sleeps too long by the phone's clock gets one. libasound reaches it
// through the plug-in.
#pragma once

#include <cstdint>
#include <mutex>
#include <string_view>

#include "audio/card_calls.h"
#include "core/clock.h"

namespace phone {

// Make the card known to libasound: before the program runs.
void sound_attach();
void sound_start();

// Guards the mixer and all below. Taking it brings card and mixer up to the present moment.
class card_lock {
public:
    card_lock();
    explicit card_lock(card_stream served); // by the calling thread, whose work the card waits for

private:
    std::lock_guard<std::mutex> lock;
};

// The frames that pass in a second, now.
unsigned card_rate();

bool card_is_open(card_stream stream);
bool card_runs(card_stream stream);

// What a bench does to the card; under the card's lock. The last two want a stream that runs.
void card_set_gone(bool gone); // a stream that is open then stays dead until it is closed
bool card_is_gone();
void card_fix(unsigned rate,
              unsigned ring); // frames of one channel in playback, of two in capture; 0: as asked
void card_fixed(unsigned* p_rate, unsigned* p_ring);
void card_xrun(card_stream stream);
void card_suspend(card_stream stream);

// The card for the phone's own tools, which use it as the plug-in does; not under the lock. What is unwatched
// is none of the program's calls.
extern const card_calls card_here;
int card_open_unwatched(card_stream stream);
int card_set_up_unwatched(card_stream stream, const card_setting& setting); // a failure has closed the stream
long card_transfer_unwatched(card_stream stream, void* p_frames, unsigned long frames);

// The calling thread, which serves the stream, sleeps until so many of its frames are done.
void card_sleep(card_stream stream, std::uint64_t frame);

std::string_view card_stream_name(card_stream stream);

} // namespace phone
