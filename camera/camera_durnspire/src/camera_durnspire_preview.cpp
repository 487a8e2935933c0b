// The viewfinder, and a frame of it for who wants one.
#include <algorithm>

#include "callout/callout.h"
#include "camera_durnspire_inner.h"
#include "plat/plat.h"
#include "screen/screen.h"

namespace {

constexpr std::uint32_t PREVIEW_FORMAT = 2;
constexpr std::int64_t GRAB_LIMIT_US = 2'000'000;

void clear_screen()
{
    const std::lock_guard drawing(screen_drawing);
    screen_clear(0);
    screen_invalidate();
}

// The preview's shared memory and the records of its buffers.
bool durnspire_initPreview()
{
    drns_buffer_info info = {};
    if (durnspire_call(&drns_operations::get_buffer_info, DRNS_PREVIEW, &info) < 0 ||
        info.count > std::size(durnspire.preview_buffers) ||
        !durnspire.preview_heap.alloc(DRNS_PREVIEW, info.size, info.count))
        return false;
    const std::lock_guard lock(durnspire.mutex);
    durnspire.preview_count = info.count;
    durnspire.preview_frame_size = info.size;
    std::copy_n(durnspire.preview_heap.heap.buffers, info.count, durnspire.preview_buffers);
    return true;
}

bool prepare(const camconf_sizeconfig& size)
{
    const durnspire_size wanted = {size.width, size.height};
    clear_screen();
    if (!durnspire_set_size(DRNS_PREVIEW_SIZE, wanted) ||
        !durnspire_set(DRNS_PREVIEW_FORMAT, PREVIEW_FORMAT) || !durnspire_initPreview())
        return false;
    const std::lock_guard lock(durnspire.mutex);
    durnspire.preview_size = wanted;
    durnspire.preview_initialized = true;
    return true;
}

void set_running(bool camera, bool preview)
{
    const std::lock_guard lock(durnspire.mutex);
    durnspire.camera_running = camera;
    durnspire.preview_running = preview;
}

// Stops the client's preview, takes it off the screen and frees its memory. False while any of it is left,
// for another attempt.
bool durnspire_stopPreviewInternal()
{
    if (durnspire.camera_running) {
        if (durnspire_call(&drns_operations::stop_preview) < 0)
            return false;
        set_running(false, durnspire.preview_running);
    }
    if (!durnspire.preview_initialized)
        return true;
    if (callout(camera_get_platform_callout()->overlay_unset, 0) < 0 || !durnspire.preview_heap.free())
        return false;
    durnspire.preview_initialized = false;
    return true;
}

} // namespace

// A preview that runs keeps its size.
int durnspire_start_viewfinder(const camconf_sizeconfig* p_size, std::int32_t rotation)
{
    if (!durnspire.opened)
        return DURNSPIRE_FAILED;
    {
        const std::lock_guard lock(durnspire.mutex);
        durnspire.rotation = rotation;
    }
    if (!durnspire.preview_initialized && !prepare(*p_size))
        return DURNSPIRE_FAILED;
    drns_buffer* list[std::size(durnspire.preview_buffers)];
    for (std::uint32_t i = 0; i < durnspire.preview_count; i++)
        list[i] = &durnspire.preview_buffers[i];
    drns_buffer* const* p_list = list;
    if (durnspire_call(&drns_operations::start_preview, static_cast<std::uint16_t>(durnspire.preview_count),
                       p_list) < 0) {
        durnspire_stopPreviewInternal();
        return DURNSPIRE_FAILED;
    }
    set_running(true, true);
    return DURNSPIRE_DONE;
}

int durnspire_stop_viewfinder()
{
    const bool freed = durnspire_deinit_picture();
    if (durnspire.opened)
        durnspire_call(&drns_operations::cancel_auto_lock);
    const bool stopped = durnspire_stopPreviewInternal();
    {
        const std::lock_guard lock(durnspire.mutex);
        durnspire.preview_running = false;
    }
    clear_screen();
    return freed && stopped ? DURNSPIRE_DONE : DURNSPIRE_FAILED;
}

void durnspire_drop_preview()
{
    set_running(false, false);
    if (durnspire.preview_initialized && durnspire.preview_heap.free())
        durnspire.preview_initialized = false;
}

int durnspire_grab_viewfinder_frame(camera_snapshot* p_snapshot)
{
    const camera_callouts& co = *camera_get_platform_callout();
    const auto size =
        static_cast<std::uint64_t>(std::uint64_t{p_snapshot->width} * p_snapshot->height * 3 / 2);
    durnspire_memory& memory = durnspire.grab_heap;
    if (!durnspire.camera_running || !durnspire.preview_running || p_snapshot->format != CAMCONF_FORMAT_YUV ||
        size > UINT32_MAX || co.mmap == nullptr || co.munmap == nullptr)
        return DURNSPIRE_FAILED;
    if (memory.held && co.munmap(&memory.heap) < 1)
        return DURNSPIRE_FAILED;
    memory.held = co.mmap(static_cast<std::uint32_t>(size), &memory.heap) != 0;
    if (!memory.held)
        return DURNSPIRE_FAILED;
    std::unique_lock lock(durnspire.mutex);
    durnspire.grab_size = static_cast<std::uint32_t>(size);
    durnspire.grab_to = memory.first(durnspire.mem_config);
    const bool came =
        plat_wait_for(durnspire.grabbed, lock, GRAB_LIMIT_US, [] { return durnspire.grab_to == nullptr; });
    durnspire.grab_to = nullptr;
    lock.unlock();
    if (!came) {
        memory.held = co.munmap(&memory.heap) < 1;
        return DURNSPIRE_FAILED;
    }
    p_snapshot->buffer = memory.first(durnspire.mem_config);
    p_snapshot->nbr_of_bytes = static_cast<std::uint32_t>(size);
    return DURNSPIRE_DONE;
}
