// The driver's table, start and stop, and the callbacks.
#include "camera_durnspire/camera_durnspire.h"

#include <algorithm>
#include <cstring>

#include "callout/callout.h"
#include "camera_durnspire_inner.h"
#include "plat/plat.h"
#include "screen/screen.h"

durnspire_state durnspire;

namespace {

int durnspire_camera_start(std::uint32_t camera)
{
    const camera_callouts& co = *camera_get_platform_callout();
    {
        const std::lock_guard lock(durnspire.mutex);
        durnspire.camera = camera;
    }
    durnspire.mem_config = camconf_get_mem_config();
    callout(co.open_framebuffer, 0);
    if (durnspire.p_client == nullptr)
        durnspire.p_client = drns_create();
    const drns_client* p = durnspire.p_client;
    if (p != nullptr && p->p_operations != nullptr &&
        p->p_operations->open(p->session, camera, 0, &durnspire_callbacks, 0) >= 0) {
        durnspire.opened = true;
        return DURNSPIRE_DONE;
    }
    callout(co.close_framebuffer, 0);
    return DURNSPIRE_FAILED;
}

// A camera that a failed switch has left closed is stopped all the same.
int durnspire_camera_stop()
{
    const camera_callouts& co = *camera_get_platform_callout();
    if (durnspire.preview_initialized)
        durnspire_stop_viewfinder();
    callout(co.overlay_unset, 0);
    callout(co.close_framebuffer, 0);
    const bool closed = !durnspire.opened || durnspire_call(&drns_operations::close) >= 0;
    if (closed) {
        durnspire.opened = false;
        durnspire_drop_preview();
    }
    return callout(co.close_framebuffer, 0) >= 0 && closed ? DURNSPIRE_DONE : DURNSPIRE_FAILED;
}

void show(const camera_frame& frame, std::int32_t rotation)
{
    const camera_callouts& co = *camera_get_platform_callout();
    if (co.send_yuv_to_screen == nullptr)
        return;
    co.send_yuv_to_screen(0, rotation, &frame);
    const std::unique_lock drawing(screen_drawing, std::try_to_lock);
    if (drawing.owns_lock())
        screen_invalidate();
}

// How the display driver finds a frame that lies in `memory`.
camera_frame describe(const drns_frame& frame, const durnspire_memory& memory, const durnspire_size& size)
{
    const bool by_handle = durnspire.mem_config.memory_mode == 1;
    return {.memory_id = static_cast<std::int32_t>(by_handle ? frame.buffer.handle : memory.heap.memory_id),
            .offset = static_cast<std::uint32_t>(frame.buffer.data - memory.heap.base),
            .format = 2,
            .width = size.width,
            .height = size.height};
}

// Whether the frame lies in one of the buffers of the preview, which goes to the screen. Mutex taken.
bool is_shown(const drns_frame& frame)
{
    if (!durnspire.camera_running || !durnspire.preview_running || !durnspire.preview_heap.held)
        return false;
    for (std::uint32_t i = 0; i < durnspire.preview_count; i++)
        if (durnspire.preview_buffers[i].data == frame.buffer.data)
            return true;
    return false;
}

// Somebody may wait for a frame: the bytes go into his buffer.
void give_to_grabber(const drns_frame& frame)
{
    const std::lock_guard lock(durnspire.mutex);
    if (!durnspire.preview_running || durnspire.grab_to == nullptr)
        return;
    const std::size_t size = std::min(durnspire.grab_size, durnspire.preview_frame_size);
    std::memcpy(durnspire.grab_to, reinterpret_cast<const void*>(frame.buffer.data), size);
    durnspire.grab_to = nullptr;
    plat_cond_wake(durnspire.grabbed);
}

void durnspire_receivePreviewFrame(const drns_frame& frame)
{
    std::unique_lock lock(durnspire.mutex);
    if (!is_shown(frame))
        return;
    const camera_frame shown = describe(frame, durnspire.preview_heap, durnspire.preview_size);
    const std::int32_t rotation = camconf_adjust_rotation(durnspire.camera, durnspire.rotation);
    lock.unlock();
    show(shown, rotation);
    give_to_grabber(frame);
}

// A frame goes back to the client in every case.
void durnspire_PreviewReady(drns_frame frame)
{
    durnspire_receivePreviewFrame(frame);
    durnspire_call(&drns_operations::release_frame, frame);
}

void durnspire_ThumbnailReady(drns_frame frame)
{
    std::unique_lock lock(durnspire.mutex);
    const durnspire_memory& memory = durnspire.thumbnail_heap;
    if (!durnspire.picture_wanted || !memory.held || frame.buffer.data != memory.heap.buffers[0].data)
        return;
    const camera_frame shown = describe(frame, memory, durnspire.thumbnail_size);
    const std::int32_t rotation = camconf_adjust_rotation(durnspire.camera, 0);
    lock.unlock();
    show(shown, rotation);
}

// A picture that comes when nobody waits any more belongs to nobody.
void durnspire_SnapshotReady(drns_frame frame)
{
    const std::lock_guard lock(durnspire.mutex);
    const durnspire_memory& memory = durnspire.picture_heap;
    if (!memory.held || frame.buffer.data != memory.heap.buffers[0].data)
        return;
    durnspire.picture_wanted = false;
    plat_cond_wake(durnspire.picture_taken);
}

void durnspire_AutoLockDone(std::uint32_t error, std::uint32_t locked)
{
    const std::lock_guard lock(durnspire.mutex);
    if (!durnspire.focus_running)
        return;
    durnspire.focus_running = false;
    durnspire.focus_status = error == 0 && locked != 0 ? CAMERA_FOCUS_FOUND : CAMERA_FOCUS_NONE;
    plat_cond_wake(durnspire.focus_done);
}

void durnspire_nothing() {}

void durnspire_VideoReady(drns_frame) {}

} // namespace

const drns_callbacks durnspire_callbacks = {
    .resource_lost = durnspire_nothing,
    .preview_ready = durnspire_PreviewReady,
    .video_ready = durnspire_VideoReady,
    .thumbnail_ready = durnspire_ThumbnailReady,
    .snapshot_ready = durnspire_SnapshotReady,
    .capture_done = durnspire_nothing,
    .auto_lock_done = durnspire_AutoLockDone,
    .continuous_zoom_progress = durnspire_nothing,
    .face_detected = durnspire_nothing,
    .scene_detected = durnspire_nothing,
    .unused_10 = {},
};

bool durnspire_memory::alloc(std::uint32_t kind, std::uint32_t size, std::uint32_t count)
{
    drns_heap fresh = {};
    if (!free() || drns_alloc(kind, size, count, &fresh) < 0)
        return false;
    const std::lock_guard lock(durnspire.mutex);
    heap = fresh;
    held = true;
    return true;
}

bool durnspire_memory::free()
{
    if (held && drns_free(&heap) < 0)
        return false;
    const std::lock_guard lock(durnspire.mutex);
    held = false;
    return true;
}

std::uint8_t* durnspire_memory::first(const camconf_mem_config& config) const
{
    return reinterpret_cast<std::uint8_t*>(config.memory_mode == 1 ? heap.buffers[0].handle : heap.base);
}

bool durnspire_set_size(std::uint32_t id, const durnspire_size& size)
{
    const drns_size_param param = {id, static_cast<std::uint16_t>(size.width),
                                   static_cast<std::uint16_t>(size.height)};
    return durnspire_call(&drns_operations::set_parameter, &param) >= 0;
}

void camera_durnspire_init()
{
    durnspire.focus_status = CAMERA_FOCUS_NONE;
    camera_callouts& co = *camera_get_platform_callout();
    co.start = durnspire_camera_start;
    co.stop = durnspire_camera_stop;
    co.start_viewfinder = durnspire_start_viewfinder;
    co.stop_viewfinder = durnspire_stop_viewfinder;
    co.take_snapshot = durnspire_take_snapshot;
    co.release_snapshot = durnspire_release_snapshot;
    co.start_autofocus = durnspire_start_autofocus;
    co.stop_autofocus = durnspire_stop_autofocus;
    co.get_autofocus_status = durnspire_get_autofocus_status;
    co.test_pattern = durnspire_test_pattern;
    co.grab_viewfinder_frame = durnspire_grab_viewfinder_frame;
    co.read_eeprom = durnspire_read_eeprom;
    co.check_eeprom = durnspire_check_eeprom;
    co.set_ae_wb_window = durnspire_set_ae_wb_window;
    co.read_rgby = durnspire_read_rgby;
    co.set_flash = durnspire_set_flash;
}
