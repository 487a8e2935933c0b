// The download's link layer: one write and one read at a time on the chip's own bus, each done by a thread
// and told by a callback. All callbacks come on the writer's thread, so who stands above needs no lock. Knows
// nothing of what is written. A link lives for one download; between two attempts it comes to rest.
#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "i2c/i2c.h"
#include "msg.h"
#include "osal.h"

namespace pn65_dnld {

// Who is told of what was done. `status` is NFCSTATUS_SUCCESS or what failed.
struct link_callbacks {
    void* context = nullptr;
    void (*send_complete)(void* context, int status, std::size_t size) = nullptr;
    void (*receive_complete)(void* context, std::span<const std::uint8_t> reply) = nullptr;
    void (*exception)(void* context) = nullptr; // the attempt can't go on
};

struct link_config {
    bool wait_behind_57 = false;   // a single byte of 0x57 says that the chip isn't ready: read again
    std::uint32_t time_gap_us = 0; // before each write
};

struct dal_link {
    link_config config;
    i2c_handle bus = {0, 0, -1};
    message_queue queue;
    osal_thread writer, reader;
    std::atomic<bool> i2c_error = false; // the chip didn't say in time that it was ready

    std::mutex mutex; // guards the next six
    std::condition_variable changed;
    bool alive = false;     // the reader's thread goes on
    bool cancelled = false; // waits end at once
    bool reading = false;   // the reader's thread is at it
    bool rests = false;     // the writer's thread has done all that was wanted of it
    std::size_t wanted = 0; // bytes to be read, 0 for none

    // The writer's thread alone.
    link_callbacks callbacks;
    bool initialised = false;
    bool writing = false;
    std::vector<std::uint8_t> to_write;

    // The reader's thread while it reads, the writer's thread otherwise.
    std::vector<std::uint8_t> reply;

    deferred_call write_call, read_call, exception_call, rest_call;

    // What a user gets by phDal4Nfc_Register.
    struct operations {
        int (*init)(dal_link& link);
        int (*shutdown)(dal_link& link);
        int (*write)(dal_link& link, std::span<const std::uint8_t> data);
        int (*read)(dal_link& link, std::size_t size);
        int (*read_wait)(dal_link& link);
        int (*read_wait_cancel)(dal_link& link);
        int (*unregister)(dal_link& link);
    };
};

// Starts both threads, once. False if they can't be had.
bool link_start(dal_link& link);

// Opens the bus for an attempt.
int phDal4Nfc_Config(dal_link& link, const link_config& config);

// Keeps the callbacks and gives the operations.
int phDal4Nfc_Register(dal_link& link, const link_callbacks& callbacks, const dal_link::operations** pp_ops);

// Any thread: has `call` made on the writer's thread, whose waits end at once from now on.
void link_abort(dal_link& link, deferred_call& call);

// Ends an attempt: behind it nobody is told of anything any more, neither thread does anything, and the bus
// is closed.
void link_rest(dal_link& link);

// Ends both threads.
void link_stop(dal_link& link);

} // namespace pn65_dnld
