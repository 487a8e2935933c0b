// A closed library of the tests' own: it passes on what its host record gives it.
#include <atomic>
#include <condition_variable>
#include <mutex>

#include "core/library_host.h"

namespace {

const phone_library_host* p_host;
int opened;

std::mutex mutex;
std::condition_variable changed;
bool rung;
std::atomic<std::int64_t> woken_at;

void ring(void*)
{
    const std::lock_guard lock(mutex);
    rung = true;
    p_host->cond_wake(&changed);
}

void wait_for_ring(void*)
{
    std::unique_lock lock(mutex);
    while (!rung && p_host->cond_wait(&changed, &lock, INT64_MAX)) {
    }
    woken_at = p_host->now();
}

} // namespace

extern "C" {

void phone_library_attach(const phone_library_host* p)
{
    p_host = p;
    opened++;
}

int probe_opened()
{
    return opened;
}

const phone_library_host* probe_host()
{
    return p_host;
}

// A thread that waits for a timer to ring in `time`.
void probe_start(std::int64_t time)
{
    static const int timer = p_host->timer_create(ring, nullptr);
    rung = false;
    woken_at = 0;
    p_host->thread(wait_for_ring, nullptr);
    p_host->timer_set(timer, time);
}

std::int64_t probe_woken_at()
{
    return woken_at;
}

// As a call of a card: 0, its EIO as -5, 1 when it got less.
int probe_write()
{
    const phone_call_fate fate = p_host->call_on("write", "playback");
    const int result = fate == phone_call_fails ? -5 : fate == phone_call_short ? 1 : 0;
    p_host->result("write", "playback", result);
    return result;
}

} // extern "C"
