#include "display/overlay.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

#include "display/turn.h"

namespace phone {

namespace {

constexpr unsigned long request_set = 0xC1506D87;
constexpr unsigned long request_unset = 0x40046D88;
constexpr unsigned long request_play = 0x40686D89;

constexpr std::uint32_t new_id = UINT32_MAX;
constexpr std::uint32_t write_back = 128;
constexpr std::uint32_t turns = turn_left_right | turn_up_down | turn_quarter;
constexpr std::uint32_t format_vu = 2; // luminance, then V and U by turns
constexpr std::size_t most_pipes = 8;

// The driver's records, words of 32 bits.
constexpr std::size_t at_src = 0, at_format = 2, at_src_rect = 3, at_dst_rect = 7, at_flags = 16, at_id = 17;
constexpr std::size_t set_words = 84;
constexpr std::size_t at_play_src = 1, at_play_dst = 20; // offset, memory id
constexpr std::size_t play_words = 26;

int refuse(int error)
{
    errno = error;
    return -1;
}

std::uint64_t bytes_of(std::uint64_t width, std::uint64_t height)
{
    return width * height * 3 / 2;
}

bool lies_in(const overlay_rectangle& r, std::uint64_t width, std::uint64_t height)
{
    return r.width != 0 && r.height != 0 && std::uint64_t{r.x} + r.width <= width &&
           std::uint64_t{r.y} + r.height <= height;
}

// Whether a job that turns a picture says the size that this gives.
bool is_turned(const overlay_pipe& pipe)
{
    const bool quarter = (pipe.flags & turn_quarter) != 0;
    return pipe.src.x == 0 && pipe.src.y == 0 && pipe.src.width == pipe.width &&
           pipe.src.height == pipe.height && pipe.dst.x == 0 && pipe.dst.y == 0 &&
           pipe.dst.width == (quarter ? pipe.height : pipe.width) &&
           pipe.dst.height == (quarter ? pipe.width : pipe.height);
}

int set_pipe(overlay_set& set, int fd, unsigned width, unsigned height, std::uint32_t* w)
{
    const auto rectangle = [&](std::size_t at) {
        return overlay_rectangle{w[at], w[at + 1], w[at + 2], w[at + 3]};
    };
    overlay_pipe pipe = {.width = w[at_src],
                         .height = w[at_src + 1],
                         .src = rectangle(at_src_rect),
                         .dst = rectangle(at_dst_rect),
                         .flags = w[at_flags],
                         .fd = fd,
                         .memory = nullptr,
                         .offset = 0};
    const bool even = ((pipe.width | pipe.height) & 1) == 0;
    if (w[at_format] != format_vu || !even || (pipe.flags & ~(turns | write_back)) != 0 ||
        !lies_in(pipe.src, pipe.width, pipe.height))
        return refuse(EINVAL);
    if ((pipe.flags & write_back) != 0 ? !is_turned(pipe)
                                       : (pipe.flags & turns) != 0 || !lies_in(pipe.dst, width, height))
        return refuse(EINVAL);
    const auto old = set.pipes.find(w[at_id]);
    if (w[at_id] != new_id && old == set.pipes.end())
        return refuse(EINVAL);
    if (w[at_id] == new_id) {
        if (set.pipes.size() == most_pipes)
            return refuse(ENOMEM);
        w[at_id] = set.next_id++;
    }
    set.pipes[w[at_id]] = std::move(pipe);
    return 0;
}

// The memory that a record names, if it holds a picture of that size.
shared_memory_ref memory_of(const std::uint32_t* w, std::uint64_t width, std::uint64_t height)
{
    shared_memory_ref memory = shared_memory_of(static_cast<int>(w[1]));
    return memory != nullptr && w[0] + bytes_of(width, height) <= memory->size ? memory : nullptr;
}

int play(overlay_set& set, const std::uint32_t* w)
{
    const auto found = set.pipes.find(w[0]);
    if (found == set.pipes.end())
        return refuse(ENODEV);
    overlay_pipe& pipe = found->second;
    const shared_memory_ref src = memory_of(w + at_play_src, pipe.width, pipe.height);
    if (src == nullptr)
        return refuse(EINVAL);
    if ((pipe.flags & write_back) == 0) {
        pipe.memory = src;
        pipe.offset = w[at_play_src];
        return 0;
    }
    const shared_memory_ref dst = memory_of(w + at_play_dst, pipe.dst.width, pipe.dst.height);
    if (dst == nullptr || dst == src)
        return refuse(EINVAL);
    turn_picture(src->p + w[at_play_src], dst->p + w[at_play_dst], pipe.width, pipe.height,
                 pipe.flags & turns);
    return 0;
}

std::uint8_t level(double value)
{
    return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
}

// ITU-R BT.601, 16 to 235.
void to_colour(int y, int u, int v, std::uint8_t* rgb)
{
    const double luma = (y - 16) * 255.0 / 219.0, blue = (u - 128) * 255.0 / 224.0,
                 red = (v - 128) * 255.0 / 224.0;
    rgb[0] = level(luma + 1.402 * red);
    rgb[1] = level(luma - 0.344136 * blue - 0.714136 * red);
    rgb[2] = level(luma + 1.772 * blue);
}

} // namespace

std::optional<int> overlay_ioctl(overlay_set& set, int fd, unsigned width, unsigned height,
                                 unsigned long request, void* arg)
{
    switch (request) {
    case request_set: {
        std::uint32_t w[set_words];
        std::memcpy(w, arg, sizeof w);
        const int result = set_pipe(set, fd, width, height, w);
        if (result == 0)
            std::memcpy(arg, w, sizeof w);
        return result;
    }
    case request_unset: {
        std::uint32_t id;
        std::memcpy(&id, arg, sizeof id);
        return set.pipes.erase(id) == 1 ? 0 : refuse(EINVAL);
    }
    case request_play: {
        std::uint32_t w[play_words];
        std::memcpy(w, arg, sizeof w);
        return play(set, w);
    }
    default:
        return std::nullopt;
    }
}

void overlay_closed(overlay_set& set, int fd)
{
    std::erase_if(set.pipes, [fd](const auto& pipe) { return pipe.second.fd == fd; });
}

bool overlay_pixel(const overlay_set& set, unsigned x, unsigned y, std::uint8_t* rgb)
{
    // The newest lies on top.
    for (auto i = set.pipes.rbegin(); i != set.pipes.rend(); ++i) {
        const overlay_pipe& pipe = i->second;
        const overlay_rectangle& d = pipe.dst;
        if (pipe.memory == nullptr || x < d.x || y < d.y || x - d.x >= d.width || y - d.y >= d.height)
            continue;
        const std::size_t sx = pipe.src.x + std::uint64_t{x - d.x} * pipe.src.width / d.width;
        const std::size_t sy = pipe.src.y + std::uint64_t{y - d.y} * pipe.src.height / d.height;
        const std::uint8_t* p = pipe.memory->p + pipe.offset;
        const std::uint8_t* vu =
            p + std::size_t{pipe.width} * pipe.height + sy / 2 * pipe.width + (sx & ~std::size_t{1});
        to_colour(p[sy * pipe.width + sx], vu[1], vu[0], rgb);
        return true;
    }
    return false;
}

} // namespace phone
