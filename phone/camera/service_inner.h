// What the files of the camera service share.
#pragma once

#include <cstdint>
#include <mutex>
#include <vector>

#include "camera/service_host.h"
#include "core/clock.h"
#include "display/shared_memory.h"

namespace phone {

constexpr nanoseconds ms = 1'000'000;

enum class focus_end { good, bad, error };

struct preview_buffer {
    std::uintptr_t address;
    bool held; // handed over and not given back
};

struct camera_service {
    std::mutex mutex;     // guards all below
    bool started = false; // the tool `start` has been given the service
    unsigned open = 0;    // camera 1 or 2; 0 for none
    const phone_camera_callback* callbacks = nullptr;

    bool preview = false;
    std::uint32_t width = 0, height = 0; // of the preview that runs
    std::vector<preview_buffer> buffers;
    nanoseconds frame_due = 0;
    std::uintptr_t thumbnail = 0, picture = 0;              // addresses of their buffers
    nanoseconds picture_due = forever, focus_due = forever; // `forever`: none is on its way
    bool in_callback = false;
    bool worker_runs = false;

    std::uint64_t frames[3] = {}; // by camera
    focus_end focus[3] = {};
    bool eeprom_bad[3] = {};
    unsigned heaps = 0;
};

extern camera_service cameras;

// Wakes the worker, and who waits for it. With the mutex taken.
void camera_worker_wake();

// Waits until no callback runs, unless it is a callback that asks.
void camera_wait_for_callbacks(std::unique_lock<std::mutex>& lock);

// Starts the worker when there is none yet.
void camera_worker_start();

// The operations, as the libraries get them.
extern const phone_camera_service camera_operations;

// The word `camera`.
void camera_words_attach();

} // namespace phone
