// What the download's link layer wants of the system: threads whose start may fail, single-shot timers in a
// fixed number of slots, and the firmware library.
#pragma once

#include <cstdint>
#include <pthread.h>

namespace pn65_dnld {

// Results of this layer and of those above it.
constexpr int NFCSTATUS_SUCCESS = 0;
constexpr int NFCSTATUS_INVALID_PARAMETER = 1;
constexpr int NFCSTATUS_PENDING = 13; // done later, a callback tells
constexpr int NFCSTATUS_BUSY = 111;
constexpr int NFCSTATUS_NOT_INITIALISED = 262;
constexpr int NFCSTATUS_WRITE_FAILED = 271;
constexpr int NFCSTATUS_INVALID_DEVICE = 305; // no context
constexpr int NFCSTATUS_THREAD_FAILED = 511;

constexpr std::uint32_t TIMER_NONE = 65535;

// A thread that is joined by its owner. False if it can't be started.
class osal_thread {
public:
    osal_thread() = default;
    osal_thread(const osal_thread&) = delete;
    osal_thread& operator=(const osal_thread&) = delete;
    ~osal_thread() { join(); }

    bool start(const char* name, void* (*fn)(void*), void* arg);
    void join();

private:
    pthread_t thread{};
    bool runs = false;
};

using timer_cb = void (*)(std::uint32_t id, void* context);

// Takes a free slot: its number, or TIMER_NONE when there is none or no timer to be had.
std::uint32_t phOsalNfc_Timer_Create();

// Has `cb` called once in `ms` milliseconds, on a thread of the timer's. False if it can't be armed.
bool phOsalNfc_Timer_Start(std::uint32_t id, std::uint32_t ms, timer_cb cb, void* context);
void phOsalNfc_Timer_Stop(std::uint32_t id);

// Stops the timer and gives the slot back. Behind it no callback runs, and none comes.
void phOsalNfc_Timer_Delete(std::uint32_t id);

} // namespace pn65_dnld
