// What the files of this module share: the state of the life cycle, and memory of the C heap with its owner.
#pragma once

#include <cstddef>
#include <cstdint>

#include "camera/camera.h"
#include "heap/heap.h"

using camera_bytes = heap_ptr<std::uint8_t>;

// `size` bytes, null when there is no memory; never null for 0 bytes otherwise.
inline camera_bytes camera_alloc(std::size_t size)
{
    return heap_alloc<std::uint8_t>(size > 0 ? size : 1);
}

struct camera_state {
    camera_callouts co;
    camera_snapshot snapshot;
    std::uint32_t current;
    bool viewfinder_started;
};

extern camera_state camera_me;

// Calls the driver's release of a snapshot and gives back a picture that was loaded: its result.
int camera_release_picture(camera_snapshot* p_snapshot);

// Whether an image test may look at a picture: bytes, and format 0 or 5.
inline bool camera_is_judged(const camera_snapshot* p)
{
    return p != nullptr && p->buffer != nullptr &&
           (p->format == CAMCONF_FORMAT_YUV || p->format == CAMCONF_FORMAT_YUV_DIRECT);
}
