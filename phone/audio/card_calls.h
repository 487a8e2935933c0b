// The sound card as a driver finds it: what the phone offers to the plug-in (plug_in.cpp), a shared object
// that libasound opens and that only hands on. Results are 0 or more, or a negative errno.
#pragma once

#include <cstdint>

extern "C" {

enum card_stream { card_playback, card_capture };
enum card_kind { card_boolean, card_integer, card_enumerated };

// What a stream can be asked for.
struct card_limits {
    unsigned rate_least, rate_most;
    unsigned ring_least, ring_most; // bytes
};

struct card_setting {
    unsigned rate;
    unsigned channels;
    unsigned long ring;   // frames
    unsigned long period; // frames
};

// Where a stream is.
struct card_place {
    int error;          // 0, or why it is nowhere: EPIPE, ESTRPIPE, ENODEV
    std::uint64_t done; // frames that have left, or come into, the ring since the last prepare
};

struct card_calls {
    // The controls are numbered from 1 on.
    int (*mixer_open)();
    unsigned (*controls)();
    card_kind (*control_kind)(unsigned numid);
    int (*control_most)(unsigned numid); // the greatest value, or item
    int (*control_get)(unsigned numid);
    int (*control_set)(unsigned numid, long value);
    void (*control_unknown)(unsigned numid);

    int (*open)(card_stream stream);
    card_limits (*limits)(card_stream stream);
    int (*set_up)(card_stream stream, const card_setting* p_setting);
    int (*prepare)(card_stream stream);
    int (*resume)(card_stream stream);
    int (*start)(card_stream stream);
    void (*stop)(card_stream stream);
    void (*free)(card_stream stream);
    void (*close)(card_stream stream);
    card_place (*place)(card_stream stream);

    // Moves `frames` interleaved frames into or out of the ring. The result is how many.
    long (*transfer)(card_stream stream, void* p_frames, unsigned long frames);

    // The descriptor that a waiting thread polls; the thread begins to wait; it has been woken: whether it
    // has a period to transfer, or an error to meet, else it waits on.
    int (*wait_descriptor)(card_stream stream);
    void (*wait)(card_stream stream);
    bool (*wait_is_over)(card_stream stream);
};
}
