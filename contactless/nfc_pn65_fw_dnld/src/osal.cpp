#include "osal.h"

#include <array>
#include <condition_variable>
#include <csignal>
#include <cstdio>
#include <mutex>

#include "plat/plat.h"

namespace pn65_dnld {

namespace {

constexpr std::size_t SLOTS = 16;
constexpr std::size_t NAME_ROOM = 16; // of a thread, with NUL
constexpr std::uint32_t MS_PER_S = 1000;
constexpr long NS_PER_MS = 1000000;

struct slot {
    bool taken = false;
    bool armed = false;
    bool calls = false;      // its callback runs now
    std::uint32_t owner = 0; // counts up, so that a late expiry doesn't find the next owner
    timer_t timer{};
    timer_cb cb = nullptr;
    void* context = nullptr;
};

std::mutex slots_mutex; // guards all below
std::condition_variable called;
std::array<slot, SLOTS> slots;

// A slot and its owner as one number, for the way through the expiry.
int expiry_of(std::uint32_t id, std::uint32_t owner)
{
    return static_cast<int>((owner << 4 | id) & INT32_MAX);
}

void expired(sigval value)
{
    const auto id = static_cast<std::uint32_t>(value.sival_int) % SLOTS;
    std::unique_lock lock(slots_mutex);
    slot& s = slots[id];
    if (!s.taken || !s.armed || expiry_of(id, s.owner) != value.sival_int)
        return;
    s.armed = false;
    s.calls = true;
    lock.unlock();
    s.cb(id, s.context);
    lock.lock();
    s.calls = false;
    plat_cond_wake(called);
}

bool create_timer(std::uint32_t id, slot& s)
{
    sigevent event{};
    event.sigev_notify = SIGEV_THREAD;
    event.sigev_notify_function = expired;
    event.sigev_value.sival_int = expiry_of(id, s.owner);
    return plat_timer_create(CLOCK_MONOTONIC, &event, &s.timer) == 0;
}

bool is_taken(std::uint32_t id)
{
    return id < SLOTS && slots[id].taken;
}

void disarm(slot& s)
{
    const itimerspec never{};
    s.armed = false;
    plat_timer_settime(s.timer, 0, &never, nullptr);
}

} // namespace

bool osal_thread::start(const char* name, void* (*fn)(void*), void* arg)
{
    join();
    runs = pthread_create(&thread, nullptr, fn, arg) == 0;
    char text[NAME_ROOM];
    std::snprintf(text, sizeof text, "%s", name);
    if (runs)
        pthread_setname_np(thread, text);
    return runs;
}

void osal_thread::join()
{
    if (runs)
        pthread_join(thread, nullptr);
    runs = false;
}

std::uint32_t phOsalNfc_Timer_Create()
{
    const std::lock_guard lock(slots_mutex);
    for (std::uint32_t id = 0; id < SLOTS; id++) {
        slot& s = slots[id];
        if (s.taken)
            continue;
        s.owner++;
        s.armed = false;
        s.taken = create_timer(id, s);
        return s.taken ? id : TIMER_NONE;
    }
    return TIMER_NONE;
}

bool phOsalNfc_Timer_Start(std::uint32_t id, std::uint32_t ms, timer_cb cb, void* context)
{
    const std::lock_guard lock(slots_mutex);
    if (!is_taken(id))
        return false;
    slot& s = slots[id];
    s.cb = cb;
    s.context = context;
    itimerspec time{};
    time.it_value.tv_sec = ms / MS_PER_S;
    time.it_value.tv_nsec = ms > 0 ? static_cast<long>(ms % MS_PER_S) * NS_PER_MS : 1;
    s.armed = plat_timer_settime(s.timer, 0, &time, nullptr) == 0;
    return s.armed;
}

void phOsalNfc_Timer_Stop(std::uint32_t id)
{
    const std::lock_guard lock(slots_mutex);
    if (is_taken(id))
        disarm(slots[id]);
}

void phOsalNfc_Timer_Delete(std::uint32_t id)
{
    std::unique_lock lock(slots_mutex);
    if (!is_taken(id))
        return;
    slot& s = slots[id];
    disarm(s);
    plat_wait(called, lock, [&s] { return !s.calls; });
    plat_timer_delete(s.timer);
    s.taken = false;
}

} // namespace pn65_dnld
