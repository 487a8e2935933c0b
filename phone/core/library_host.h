// What a closed library of the virtual phone gets from the phone that it is loaded into. A library that wants
// it has the function phone_library_attach, which is called each time it is opened, before anything else. A
// closed library links nothing of the phone's; it lives by the phone's clock as the program does.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <poll.h>

extern "C" {

// How a watched call has to go: as it should, or as a fault that the bench has armed.
enum phone_call_fate { phone_call_good, phone_call_fails, phone_call_short, phone_call_ends };

struct phone_library_host {
    // Watches a call of the library as a platform call, "OPERATION 0xNUMBER"; true: it has to fail.
    bool (*call)(const char* operation, std::uint32_t number);
    // The same, "OPERATION WHAT". Short and end of file come for the operations "read" and "write" alone.
    // Behind it, `result` for `log` and `calls`.
    phone_call_fate (*call_on)(const char* operation, const char* what);
    void (*result)(const char* operation, const char* what, long long result);
    // An inner target such as "mixer 36": true when it has to fail.
    bool (*target)(const char* text);
    // Something that the model doesn't know.
    void (*strange)(const char* what);

    // Nanoseconds of the phone's monotonic clock; the longest time is INT64_MAX.
    std::int64_t (*now)();
    void (*sleep_until)(std::int64_t moment);
    // One-shot timers: 0 disarms. `fire` runs on a thread of the clock's.
    int (*timer_create)(void (*fire)(void* arg), void* arg);
    void (*timer_set)(int timer, std::int64_t time);
    void (*timer_delete)(int timer);
    // A thread whose work is the phone's work; it blocks through the calls here alone.
    void (*thread)(void (*body)(void* arg), void* arg);
    // True when woken, false when the moment has come.
    bool (*cond_wait)(std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock,
                      std::int64_t moment);
    void (*cond_wake)(std::condition_variable* p_cond);
    // Around a wait in another library's poll: see clock_library_waits (core/clock.h).
    void (*poll_begins)(const pollfd* fds, nfds_t count);
    void (*poll_is_over)();

    // One line, without its end, into the log of that name ("kmsg").
    void (*log)(const char* name, const char* line);
    // Where the phone's file `path` lies on the host, into `buf`; false when there is no such place.
    bool (*place)(const char* path, char* buf, std::size_t size);
    // What a device of the phone offers to libraries under a name (libraries_offer); null when none does.
    const void* (*offered)(const char* name);
};

typedef void (*phone_library_attach_fn)(const phone_library_host* p_host);
}
