#include "camera/service.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "camera/params.h"
#include "camera/scene.h"
#include "camera/service_inner.h"
#include "core/home.h"
#include "core/libraries.h"
#include "core/toolbox.h"
#include "core/watch.h"
#include "runtime/insmod.h"

namespace phone {

camera_service cameras;

namespace {

constexpr char module_file[] = "zuna_camera_v4l2.ko";

constexpr std::uint32_t kind_preview = 0, kind_thumbnail = 2, kind_picture = 3, kind_general = 9;
constexpr std::uint32_t param_preview_size = 1, param_thumbnail_size = 5, param_picture_size = 8;
constexpr std::uint32_t param_pattern = 40, last_pattern = 2;

constexpr std::uint32_t preview_buffers[] = {0, 5, 4}; // by camera
constexpr nanoseconds frame_time = 1'000'000'000 / 30;
constexpr nanoseconds picture_time = 120 * ms;
constexpr nanoseconds focus_time = 600 * ms;

// Words of the records.
constexpr std::size_t heap_buffers_at = 3, words_of_buffer = 6, most_buffers = 37, heap_id_at = 228,
                      heap_base_at = 229;
constexpr std::size_t buffer_data_at = 1, buffer_handle_at = 3;
constexpr std::size_t status_eeprom_at = 12;

int refuse(const std::string& what)
{
    strange("camera service: " + what);
    return -1;
}

// A call that is watched, under the client's name for it: true when it has to fail.
bool fails(const char* operation, std::uint32_t number = 0)
{
    if (!watch_active())
        return false;
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", number);
    return watch_call(operation, text) == fault::eio;
}

bool is_open(const char* operation)
{
    if (cameras.open == 0)
        refuse(std::string(operation) + " without a session");
    return cameras.open != 0;
}

std::uint32_t bytes_of(std::uint32_t size_word)
{
    return (size_word & 0xFFFF) * (size_word >> 16) * 3 / 2;
}

int op_create()
{
    return fails("drns_create") ? -1 : 0;
}

int op_get_status(std::uintptr_t, std::uint8_t* record)
{
    if (fails("drns_get_status"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_get_status"))
        return -1;
    record[status_eeprom_at] = cameras.eeprom_bad[cameras.open] ? 0 : 1;
    return 0;
}

int op_open(std::uint32_t camera, const phone_camera_callback* table)
{
    if (fails("drns_open", camera))
        return -1;
    const bool loaded = module_loaded(module_file);
    const std::lock_guard lock(cameras.mutex);
    if (!loaded || !cameras.started)
        return -1; // nobody is there to answer
    if (camera < 1 || camera > 2 || table == nullptr)
        return refuse("drns_open of camera " + std::to_string(camera));
    if (cameras.open != 0)
        return refuse("drns_open beside an open camera");
    cameras.open = camera;
    cameras.callbacks = table;
    return 0;
}

int op_close(std::uintptr_t)
{
    if (fails("drns_close"))
        return -1;
    std::unique_lock lock(cameras.mutex);
    if (!is_open("drns_close"))
        return -1;
    cameras.preview = false;
    cameras.picture_due = cameras.focus_due = forever;
    camera_wait_for_callbacks(lock);
    cameras.buffers.clear();
    cameras.thumbnail = cameras.picture = 0;
    cameras.open = 0;
    return 0;
}

int op_get_buffer_info(std::uintptr_t, std::uint32_t kind, std::uint32_t* record)
{
    if (fails("drns_get_buffer_info", kind))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_get_buffer_info"))
        return -1;
    const bool preview = kind == kind_preview;
    if (!preview && kind != kind_thumbnail && kind != kind_picture)
        return refuse("drns_get_buffer_info of kind " + std::to_string(kind));
    const std::uint32_t size =
        camera_parameter_word(cameras.open, preview                  ? param_preview_size
                                            : kind == kind_thumbnail ? param_thumbnail_size
                                                                     : param_picture_size);
    if (size == 0)
        return refuse("drns_get_buffer_info before a size is set");
    record[2] = preview ? preview_buffers[cameras.open] : 1;
    record[3] = bytes_of(size);
    return 0;
}

// Whether an address has shared memory of `size` bytes behind it.
bool holds(std::uintptr_t address, std::size_t size)
{
    const shared_memory_ref memory = shared_memory_at(address);
    return memory != nullptr && address - reinterpret_cast<std::uintptr_t>(memory->p) + size <= memory->size;
}

// A picture is drawn before its time begins, so that a slow host doesn't make it late.
void draw_ahead(std::uint32_t size)
{
    scene_draw(cameras.open, size & 0xFFFF, size >> 16,
               camera_parameter_word(cameras.open, param_pattern) == 1);
}

int op_start_preview(std::uintptr_t, std::uint16_t count, std::uintptr_t* const* list)
{
    if (fails("drns_start_preview"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_start_preview"))
        return -1;
    if (cameras.preview)
        return 0;
    const std::uint32_t size = camera_parameter_word(cameras.open, param_preview_size);
    if (size == 0 || count == 0 || count != preview_buffers[cameras.open])
        return refuse("drns_start_preview with " + std::to_string(count) + " buffers");
    cameras.buffers.clear();
    for (std::size_t i = 0; i < count; i++) {
        if (!holds(list[i][buffer_data_at], bytes_of(size)))
            return refuse("drns_start_preview with a buffer that is no shared memory or too small");
        cameras.buffers.push_back({list[i][buffer_data_at], false});
    }
    cameras.width = size & 0xFFFF;
    cameras.height = size >> 16;
    draw_ahead(size);
    cameras.preview = true;
    cameras.frames[cameras.open] = 0;
    cameras.frame_due = clock_now(CLOCK_MONOTONIC) + frame_time;
    camera_worker_start();
    camera_worker_wake();
    return 0;
}

int op_stop_preview(std::uintptr_t)
{
    if (fails("drns_stop_preview"))
        return -1;
    std::unique_lock lock(cameras.mutex);
    if (!is_open("drns_stop_preview"))
        return -1;
    if (!cameras.preview)
        return refuse("drns_stop_preview without a preview");
    cameras.preview = false;
    camera_wait_for_callbacks(lock);
    cameras.buffers.clear();
    return 0;
}

int op_release_frame(std::uintptr_t, const phone_camera_frame* p_frame)
{
    if (fails("drns_release_frame"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_release_frame"))
        return -1;
    for (preview_buffer& buffer : cameras.buffers)
        if (buffer.address == p_frame->word[8 + buffer_data_at] && buffer.held) {
            buffer.held = false;
            camera_worker_wake();
            return 0;
        }
    return refuse("drns_release_frame of a frame that isn't out");
}

int op_set_thumbnail_buffers(std::uintptr_t, std::uint16_t count, std::uintptr_t* const* list)
{
    if (fails("drns_set_thumbnail_buffers"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_set_thumbnail_buffers"))
        return -1;
    const std::uint32_t size = bytes_of(camera_parameter_word(cameras.open, param_thumbnail_size));
    if (count != 1 || !holds(list[0][buffer_data_at], size))
        return refuse("drns_set_thumbnail_buffers with other than one large enough buffer");
    cameras.thumbnail = list[0][buffer_data_at];
    return 0;
}

int op_take_picture(std::uintptr_t, std::uint16_t count, std::uintptr_t* const* list)
{
    if (fails("drns_take_picture"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_take_picture"))
        return -1;
    if (count != 1 || cameras.thumbnail == 0)
        return refuse("drns_take_picture without its buffers");
    cameras.picture = list[0][buffer_data_at];
    draw_ahead(camera_parameter_word(cameras.open, param_thumbnail_size));
    cameras.picture_due = clock_now(CLOCK_MONOTONIC) + picture_time;
    camera_worker_start();
    camera_worker_wake();
    return 0;
}

int op_auto_lock(std::uintptr_t)
{
    if (fails("drns_auto_lock"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_auto_lock"))
        return -1;
    cameras.focus_due = clock_now(CLOCK_MONOTONIC) + focus_time;
    camera_worker_start();
    camera_worker_wake();
    return 0;
}

int op_cancel_auto_lock(std::uintptr_t)
{
    if (fails("drns_cancel_auto_lock"))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_cancel_auto_lock"))
        return -1;
    cameras.focus_due = forever;
    return 0;
}

int op_set_parameter(std::uintptr_t, const std::uint8_t* record)
{
    std::uint32_t id, word;
    std::memcpy(&id, record, sizeof id);
    std::memcpy(&word, record + sizeof id, sizeof word);
    if (fails("drns_set_parameter", id))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_set_parameter"))
        return -1;
    const camera_parameter* p = camera_parameter_of(id);
    if (p == nullptr || !p->settable)
        return refuse("drns_set_parameter " + std::to_string(id));
    if ((p->is_size && !camera_has_size(word & 0xFFFF, word >> 16)) ||
        (id == param_pattern && word > last_pattern))
        return refuse("drns_set_parameter " + std::to_string(id) + " with " + std::to_string(word));
    camera_parameter_set(cameras.open, id, record + sizeof id, p->length);
    return 0;
}

int op_get_parameter(std::uintptr_t, std::uint8_t* record)
{
    std::uint32_t id;
    std::memcpy(&id, record, sizeof id);
    if (fails("drns_get_parameter", id))
        return -1;
    const std::lock_guard lock(cameras.mutex);
    if (!is_open("drns_get_parameter"))
        return -1;
    const camera_parameter* p = camera_parameter_of(id);
    if (p == nullptr || !p->readable)
        return refuse("drns_get_parameter " + std::to_string(id));
    const std::vector<std::uint8_t> value = camera_parameter_get(cameras.open, id);
    std::copy(value.begin(), value.end(), record + sizeof id);
    return 0;
}

int op_alloc(std::uint32_t kind, std::uint32_t size, std::uint32_t count, std::uintptr_t* heap)
{
    if (fails("drns_alloc", kind))
        return -1;
    const bool known =
        kind == kind_preview || kind == kind_thumbnail || kind == kind_picture || kind == kind_general;
    if (!known || size == 0 || count == 0 || count > most_buffers)
        return refuse("drns_alloc of kind " + std::to_string(kind) + ", " + std::to_string(count) +
                      " times " + std::to_string(size));
    const shared_memory_ref memory = shared_memory_make(std::size_t{size} * count);
    if (memory == nullptr)
        return -1;
    const auto base = reinterpret_cast<std::uintptr_t>(memory->p);
    for (std::size_t i = 0; i < count; i++) {
        std::uintptr_t* buffer = heap + heap_buffers_at + i * words_of_buffer;
        buffer[buffer_data_at] = buffer[buffer_handle_at] = base + i * size;
    }
    heap[heap_id_at] = static_cast<std::uintptr_t>(memory->id);
    heap[heap_base_at] = base;
    const std::lock_guard lock(cameras.mutex);
    cameras.heaps++;
    return 0;
}

int op_free(std::uintptr_t* heap)
{
    const int id = static_cast<int>(heap[heap_id_at]);
    if (fails("drns_free"))
        return -1;
    if (shared_memory_of(id) == nullptr)
        return refuse("drns_free of what is no shared memory");
    shared_memory_drop(id);
    const std::lock_guard lock(cameras.mutex);
    cameras.heaps--;
    return 0;
}

int tool_start(tool_call& call)
{
    if (call.args.size() != 2 || call.args[1] != "qcamerasvr") {
        call.err = "start: no such service\n";
        return 1;
    }
    const std::lock_guard lock(cameras.mutex);
    cameras.started = true;
    return 0;
}

} // namespace

const phone_camera_service camera_operations = {
    .create = op_create,
    .get_status = op_get_status,
    .open = op_open,
    .close = op_close,
    .get_buffer_info = op_get_buffer_info,
    .start_preview = op_start_preview,
    .stop_preview = op_stop_preview,
    .release_frame = op_release_frame,
    .set_thumbnail_buffers = op_set_thumbnail_buffers,
    .take_picture = op_take_picture,
    .auto_lock = op_auto_lock,
    .cancel_auto_lock = op_cancel_auto_lock,
    .set_parameter = op_set_parameter,
    .get_parameter = op_get_parameter,
    .alloc = op_alloc,
    .free = op_free,
};

void camera_attach()
{
    libraries_offer("camera", &camera_operations);
    module_add(module_file, nullptr);
    tool_add("start", tool_start);
    camera_words_attach();
    scene_attach();
}

void camera_seed()
{
    home_seed("/system/modules/zuna_camera_v4l2.ko", "zuna_camera_v4l2 kernel module\n");
}

void camera_start()
{
    camera_parameters_start();
}

} // namespace phone
