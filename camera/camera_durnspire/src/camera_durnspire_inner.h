// What the files of the driver share. The client's threads run the callbacks beside the caller's thread: what
// both touch is guarded by the one mutex, which is never held across a call of the client, the screen or the
// platform.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "camera/camera.h"
#include "camera_durnspire/drns.h"

constexpr int DURNSPIRE_DONE = 1;
constexpr int DURNSPIRE_FAILED = -1;

// Shared memory that the driver may hold. Memory that can't be freed stays held, for the next attempt.
struct durnspire_memory {
    drns_heap heap;
    bool held = false;

    bool alloc(std::uint32_t kind, std::uint32_t size, std::uint32_t count);
    bool free();
    // Its first buffer, as the product's memory mode has it.
    std::uint8_t* first(const camconf_mem_config& config) const;
};

struct durnspire_size {
    std::uint32_t width, height;
};

struct durnspire_state {
    // of the caller's thread
    drns_client* p_client;
    bool opened;
    bool preview_initialized;
    std::uint32_t preview_count;
    drns_buffer preview_buffers[10];
    std::uint32_t photometry;
    camconf_mem_config mem_config;
    camera_snapshot* p_taken; // the picture whose bytes are the thumbnail's

    // guarded by `mutex`
    std::mutex mutex;
    std::uint32_t camera;
    std::int32_t rotation;
    bool camera_running;
    bool preview_running;
    std::uint32_t preview_frame_size;
    durnspire_size preview_size, thumbnail_size;
    durnspire_memory preview_heap, thumbnail_heap, picture_heap, grab_heap;
    std::uint8_t* grab_to; // null: no frame is wanted
    std::uint32_t grab_size;
    bool picture_wanted; // a picture is on its way
    bool focus_running;
    int focus_status;
    std::condition_variable grabbed, picture_taken, focus_done;
};

extern durnspire_state durnspire;

// Calls an operation of the client; DURNSPIRE_FAILED without an open camera.
template <typename... Args, typename... Values>
int durnspire_call(int (*drns_operations::*slot)(drns_session, Args...), Values... values)
{
    if (!durnspire.opened)
        return DURNSPIRE_FAILED;
    return (durnspire.p_client->p_operations->*slot)(durnspire.p_client->session, values...);
}

inline bool durnspire_set(std::uint32_t id, std::uint32_t value)
{
    const drns_word_param param = {id, value};
    return durnspire_call(&drns_operations::set_parameter, &param) >= 0;
}

bool durnspire_set_size(std::uint32_t id, const durnspire_size& size);

// The table that the client calls back.
extern const drns_callbacks durnspire_callbacks;

// camera_durnspire_preview.cpp
int durnspire_start_viewfinder(const camconf_sizeconfig* p_size, std::int32_t rotation);
int durnspire_stop_viewfinder();
void durnspire_drop_preview(); // behind the client's close: nothing runs any more
int durnspire_grab_viewfinder_frame(camera_snapshot* p_snapshot);

// camera_durnspire_picture.cpp
int durnspire_take_snapshot(std::uint32_t camera, camera_snapshot* p_snapshot);
int durnspire_release_snapshot(camera_snapshot* p_snapshot);
bool durnspire_deinit_picture(); // false while a heap couldn't be freed

// camera_durnspire_module.cpp
int durnspire_start_autofocus();
int durnspire_stop_autofocus();
int durnspire_get_autofocus_status();
int durnspire_test_pattern(std::int32_t pattern);
int durnspire_read_eeprom(std::uint32_t* p_length, std::uint8_t* buf);
int durnspire_check_eeprom();
void durnspire_set_ae_wb_window(std::uint16_t x, std::uint16_t y, std::uint16_t width, std::uint16_t height);
int durnspire_read_rgby(std::uint32_t* p_four);
void durnspire_set_flash(int on);
