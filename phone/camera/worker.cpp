// The service's thread: hands over frames, pictures and ends of focus runs when they are due.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <thread>

#include "camera/params.h"
#include "camera/scene.h"
#include "camera/service_inner.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr nanoseconds frame_time = 1'000'000'000 / 30;
constexpr std::uint32_t place_preview = 1, place_thumbnail = 3, place_picture = 4, place_focus = 6;
constexpr std::uint32_t param_thumbnail_size = 5, param_pattern = 40;
constexpr std::uint8_t jpeg[] = {0xFF, 0xD8, 0xFF, 0xD9}; // begin and end of a picture

const char worker_wakes = 0; // what the worker waits for
const char callback_over = 0;
std::thread::id worker_thread;

using frame_fn = void (*)(phone_camera_frame frame);
using focus_fn = void (*)(std::uint32_t error, std::uint32_t locked);

// Whether a callback is lost. A late one has waited before this returns.
bool is_lost(std::uint32_t place)
{
    if (!watch_active())
        return false;
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", place);
    return watch_call("drns_callback", text) == fault::eio;
}

// Runs `call` as a callback, with the mutex free; false when it was lost.
template <typename Call>
bool call_back(std::unique_lock<std::mutex>& lock, std::uint32_t place, Call call)
{
    const phone_camera_callback fn = cameras.callbacks[place];
    cameras.in_callback = true;
    lock.unlock();
    const bool lost = is_lost(place);
    if (!lost && fn != nullptr)
        call(fn);
    lock.lock();
    cameras.in_callback = false;
    clock_cond_wake(&callback_over);
    return !lost;
}

bool hand_over(std::unique_lock<std::mutex>& lock, std::uint32_t place, std::uintptr_t address,
               const shared_memory_ref& memory)
{
    phone_camera_frame frame{};
    frame.word[8 + 1] = address;
    frame.word[8 + 3] = static_cast<std::uintptr_t>(memory->id);
    return call_back(lock, place, [&](phone_camera_callback fn) { reinterpret_cast<frame_fn>(fn)(frame); });
}

preview_buffer* free_buffer()
{
    const auto found = std::find_if(cameras.buffers.begin(), cameras.buffers.end(),
                                    [](const preview_buffer& b) { return !b.held; });
    return found != cameras.buffers.end() ? &*found : nullptr;
}

// Draws what camera and pattern say into a buffer.
void draw(const shared_memory_ref& memory, std::uintptr_t address, std::uint32_t width, std::uint32_t height)
{
    const scene_picture picture =
        scene_draw(cameras.open, width, height, camera_parameter_word(cameras.open, param_pattern) == 1);
    const auto base = reinterpret_cast<std::uintptr_t>(memory->p);
    std::memcpy(memory->p + (address - base), picture->data(),
                std::min(picture->size(), memory->size - (address - base)));
}

void frame(std::unique_lock<std::mutex>& lock)
{
    preview_buffer& buffer = *free_buffer();
    const std::uintptr_t address = buffer.address;
    const shared_memory_ref memory = shared_memory_at(address);
    cameras.frame_due = std::max(cameras.frame_due + frame_time, clock_now(CLOCK_MONOTONIC));
    if (memory == nullptr)
        return; // freed under the preview
    draw(memory, address, cameras.width, cameras.height);
    buffer.held = true;
    const unsigned camera = cameras.open;
    if (hand_over(lock, place_preview, address, memory)) {
        cameras.frames[camera]++;
        return;
    }
    for (preview_buffer& b : cameras.buffers)
        if (b.address == address)
            b.held = false; // of a lost frame
}

void picture(std::unique_lock<std::mutex>& lock)
{
    cameras.picture_due = forever;
    const std::uintptr_t thumbnail_at = cameras.thumbnail, picture_at = cameras.picture;
    const shared_memory_ref thumbnail_memory = shared_memory_at(thumbnail_at);
    const shared_memory_ref picture_memory = shared_memory_at(picture_at);
    if (thumbnail_memory == nullptr || picture_memory == nullptr)
        return; // freed before it came
    const std::uint32_t size = camera_parameter_word(cameras.open, param_thumbnail_size);
    draw(thumbnail_memory, thumbnail_at, size & 0xFFFF, size >> 16);
    std::memcpy(picture_memory->p, jpeg, std::min(sizeof jpeg, picture_memory->size));
    hand_over(lock, place_thumbnail, thumbnail_at, thumbnail_memory);
    if (cameras.open != 0 && cameras.thumbnail != 0)
        hand_over(lock, place_picture, picture_at, picture_memory);
}

void focus(std::unique_lock<std::mutex>& lock)
{
    cameras.focus_due = forever;
    const focus_end end = cameras.focus[cameras.open];
    call_back(lock, place_focus, [end](phone_camera_callback fn) {
        reinterpret_cast<focus_fn>(fn)(end == focus_end::error ? 1 : 0, end == focus_end::good ? 1 : 0);
    });
}

void work()
{
    std::unique_lock lock(cameras.mutex);
    worker_thread = std::this_thread::get_id();
    for (;;) {
        const nanoseconds frame_due =
            cameras.preview && free_buffer() != nullptr ? cameras.frame_due : forever;
        const nanoseconds due = std::min({frame_due, cameras.picture_due, cameras.focus_due});
        if (due > clock_now(CLOCK_MONOTONIC))
            clock_cond_wait(&worker_wakes, lock, due);
        else if (due == cameras.picture_due)
            picture(lock);
        else if (due == cameras.focus_due)
            focus(lock);
        else
            frame(lock);
    }
}

} // namespace

void camera_worker_wake()
{
    clock_cond_wake(&worker_wakes);
}

void camera_wait_for_callbacks(std::unique_lock<std::mutex>& lock)
{
    while (cameras.in_callback && worker_thread != std::this_thread::get_id())
        clock_cond_wait(&callback_over, lock, forever);
}

void camera_worker_start()
{
    if (cameras.worker_runs)
        return;
    cameras.worker_runs = true;
    clock_thread(work);
}

} // namespace phone
