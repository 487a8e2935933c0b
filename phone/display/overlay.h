// The display driver's overlays, one set for each framebuffer: pictures of luminance and chroma that lie in
// shared memory and cover the framebuffer inside their destination, scaled; and jobs that turn a picture from
// one memory into another. A picture becomes colours only when somebody looks. The caller serialises.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "display/shared_memory.h"

namespace phone {

struct overlay_rectangle {
    std::uint32_t x, y, width, height;
};

struct overlay_pipe {
    std::uint32_t width, height; // of the source
    overlay_rectangle src, dst;
    std::uint32_t flags;
    int fd;                   // the descriptor that it was set through
    shared_memory_ref memory; // what is played; null before the first time
    std::uint32_t offset;
};

struct overlay_set {
    std::map<std::uint32_t, overlay_pipe> pipes;
    std::uint32_t next_id = 1;
};

// Carries out an overlay request of a framebuffer of `width` x `height`: 0, or -1 and errno; nothing for a
// request of another kind.
std::optional<int> overlay_ioctl(overlay_set& set, int fd, unsigned width, unsigned height,
                                 unsigned long request, void* arg);

// A descriptor is closed: what was set through it goes.
void overlay_closed(overlay_set& set, int fd);

// The colour of a pixel as red, green, blue; false where no picture lies.
bool overlay_pixel(const overlay_set& set, unsigned x, unsigned y, std::uint8_t* rgb);

} // namespace phone
