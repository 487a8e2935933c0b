// Snapshots. The picture that tests work on is the client's thumbnail, which has the full size; the JPEG that
// comes with it isn't used.
#include "callout/callout.h"
#include "camera_durnspire_inner.h"
#include "plat/plat.h"

namespace {

constexpr std::uint32_t PICTURE_FORMAT = 2;
constexpr std::uint32_t THUMBNAIL_FORMAT = 0x40000;
constexpr std::int64_t PICTURE_LIMIT_US = 5'000'000;

bool set_sizes(const durnspire_size& size)
{
    return durnspire_set_size(DRNS_PICTURE_SIZE, size) &&
           durnspire_set(DRNS_PICTURE_FORMAT, PICTURE_FORMAT) &&
           durnspire_set_size(DRNS_THUMBNAIL_SIZE, size) &&
           durnspire_set(DRNS_THUMBNAIL_FORMAT, THUMBNAIL_FORMAT);
}

// Both memories, and the capture on its way: the thumbnail's bytes, 0 on failure.
std::uint32_t durnspire_initPicture()
{
    drns_buffer_info thumbnail = {}, picture = {};
    if (durnspire_call(&drns_operations::get_buffer_info, DRNS_THUMBNAIL, &thumbnail) < 0 ||
        durnspire_call(&drns_operations::get_buffer_info, DRNS_PICTURE, &picture) < 0 ||
        !durnspire.picture_heap.alloc(DRNS_PICTURE, picture.size, 1) ||
        !durnspire.thumbnail_heap.alloc(DRNS_THUMBNAIL, thumbnail.size, 1))
        return 0;
    drns_buffer* const thumbnail_list[] = {&durnspire.thumbnail_heap.heap.buffers[0]};
    drns_buffer* const picture_list[] = {&durnspire.picture_heap.heap.buffers[0]};
    constexpr std::uint16_t ONE = 1;
    if (durnspire_call(&drns_operations::set_thumbnail_buffers, ONE, thumbnail_list + 0) < 0 ||
        durnspire_call(&drns_operations::take_picture, ONE, picture_list + 0) < 0)
        return 0;
    return thumbnail.size;
}

// Waits until the picture is there. The screen keeps the thumbnail meanwhile, and behind it.
bool wait_for_picture()
{
    std::unique_lock lock(durnspire.mutex);
    return plat_wait_for(durnspire.picture_taken, lock, PICTURE_LIMIT_US,
                         [] { return !durnspire.picture_wanted; });
}

// A snapshot begins, or has failed: then the preview goes on as it was.
void set_wanted(bool wanted, bool preview_running)
{
    const std::lock_guard lock(durnspire.mutex);
    durnspire.picture_wanted = wanted;
    durnspire.preview_running = preview_running;
}

} // namespace

bool durnspire_deinit_picture()
{
    camera_snapshot* const p = durnspire.p_taken;
    if (p != nullptr && durnspire.thumbnail_heap.held &&
        p->buffer == durnspire.thumbnail_heap.first(durnspire.mem_config)) {
        p->buffer = nullptr;
        p->nbr_of_bytes = 0;
    }
    durnspire.p_taken = nullptr;
    const bool freed = durnspire.thumbnail_heap.free();
    return durnspire.picture_heap.free() && freed;
}

int durnspire_take_snapshot(std::uint32_t, camera_snapshot* p_snapshot)
{
    const bool preview_running = durnspire.preview_running;
    const durnspire_size size = {p_snapshot->width, p_snapshot->height};
    {
        const std::lock_guard lock(durnspire.mutex);
        durnspire.thumbnail_size = size;
    }
    if (!set_sizes(size))
        return DURNSPIRE_FAILED;
    set_wanted(true, false);
    const std::uint32_t bytes = durnspire_initPicture();
    if (bytes == 0 || !wait_for_picture()) {
        set_wanted(false, preview_running);
        durnspire_deinit_picture();
        return DURNSPIRE_FAILED;
    }
    durnspire.p_taken = p_snapshot;
    p_snapshot->nbr_of_bytes = bytes;
    p_snapshot->buffer = durnspire.thumbnail_heap.first(durnspire.mem_config);
    return DURNSPIRE_DONE;
}

int durnspire_release_snapshot(camera_snapshot* p_snapshot)
{
    const camera_callouts& co = *camera_get_platform_callout();
    durnspire_memory& grab = durnspire.grab_heap;
    bool freed = durnspire_deinit_picture();
    if (grab.held) {
        grab.held = callout(co.munmap, DURNSPIRE_FAILED, &grab.heap) < 1;
        freed = freed && !grab.held;
    }
    p_snapshot->buffer = nullptr;
    p_snapshot->nbr_of_bytes = 0;
    const std::lock_guard lock(durnspire.mutex);
    durnspire.preview_running = true;
    return freed ? DURNSPIRE_DONE : DURNSPIRE_FAILED;
}
