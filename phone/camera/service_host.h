// What the camera service offers to the closed libraries that stand before it, under the name "camera". The
// libraries only hand on. Words are as wide as a pointer; negative results are failures.
#pragma once

#include <cstdint>

extern "C" {

// 18 words; from word 8 on the buffer's record, of which 1 is its address and 3 the memory's id.
struct phone_camera_frame {
    std::uintptr_t word[18];
};

// By place: 1 preview, 3 thumbnail, 4 picture take a frame; 6, the end of a focus run, takes error and
// locked.
typedef void (*phone_camera_callback)();

struct phone_camera_service {
    int (*create)();
    int (*get_status)(std::uintptr_t session, std::uint8_t* record);
    int (*open)(std::uint32_t camera, const phone_camera_callback* table);
    int (*close)(std::uintptr_t session);
    int (*get_buffer_info)(std::uintptr_t session, std::uint32_t kind, std::uint32_t* record);
    int (*start_preview)(std::uintptr_t session, std::uint16_t count, std::uintptr_t* const* list);
    int (*stop_preview)(std::uintptr_t session);
    int (*release_frame)(std::uintptr_t session, const phone_camera_frame* p_frame);
    int (*set_thumbnail_buffers)(std::uintptr_t session, std::uint16_t count, std::uintptr_t* const* list);
    int (*take_picture)(std::uintptr_t session, std::uint16_t count, std::uintptr_t* const* list);
    int (*auto_lock)(std::uintptr_t session);
    int (*cancel_auto_lock)(std::uintptr_t session);
    int (*set_parameter)(std::uintptr_t session, const std::uint8_t* record);
    int (*get_parameter)(std::uintptr_t session, std::uint8_t* record);
    int (*alloc)(std::uint32_t kind, std::uint32_t size, std::uint32_t count, std::uintptr_t* heap);
    int (*free)(std::uintptr_t* heap);
};
}
