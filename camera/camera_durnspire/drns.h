// The closed camera client as its libraries offer it: the client object with its table of operations, the
// records that go through it, and the shared memory of frames. In the client object and in heap, buffer and
// frame records a word is as wide as a pointer. Loading it is all that is done here; what the client is for,
// its drivers know.
#pragma once

#include <cstddef>
#include <cstdint>

using drns_session = std::uintptr_t;

struct drns_buffer {
    std::uintptr_t unused_0;
    std::uintptr_t data; // address in this process
    std::uintptr_t unused_2;
    std::uintptr_t handle;
    std::uintptr_t unused_4[2];
};

// A frame that a callback hands over. Its buffer's handle is the memory id, as the display driver takes it.
struct drns_frame {
    std::uintptr_t unused_0[8];
    drns_buffer buffer;
    std::uintptr_t unused_14[4];
};
static_assert(sizeof(drns_frame) == 18 * sizeof(std::uintptr_t));

constexpr std::size_t DRNS_MOST_BUFFERS = 37; // that the record has room for

// Shared memory. The handle of its first buffer is an address in this process, whatever its name says.
struct drns_heap {
    std::uintptr_t unused_0[3];
    drns_buffer buffers[DRNS_MOST_BUFFERS];
    std::uintptr_t unused_225[3];
    std::uintptr_t memory_id;
    std::uintptr_t base;
    std::uintptr_t unused_230[26];
};
static_assert(offsetof(drns_heap, memory_id) == 228 * sizeof(std::uintptr_t));
static_assert(offsetof(drns_heap, base) == 229 * sizeof(std::uintptr_t));

// Kinds of buffers.
constexpr std::uint32_t DRNS_PREVIEW = 0;
constexpr std::uint32_t DRNS_THUMBNAIL = 2;
constexpr std::uint32_t DRNS_PICTURE = 3;
constexpr std::uint32_t DRNS_GENERAL = 9;

struct drns_buffer_info {
    std::uint32_t unused_0[2];
    std::uint32_t count;
    std::uint32_t size; // bytes
    std::uint32_t unused_4[12];
};

struct drns_status {
    std::uint8_t unused_0[12];
    std::uint8_t eeprom_good; // 1
    std::uint8_t unused_13[243];
};

// Parameters: an id, then the value.
constexpr std::uint32_t DRNS_PREVIEW_SIZE = 1;
constexpr std::uint32_t DRNS_PREVIEW_FORMAT = 2;
constexpr std::uint32_t DRNS_THUMBNAIL_SIZE = 5;
constexpr std::uint32_t DRNS_THUMBNAIL_FORMAT = 6;
constexpr std::uint32_t DRNS_PICTURE_SIZE = 8;
constexpr std::uint32_t DRNS_PICTURE_FORMAT = 9;
constexpr std::uint32_t DRNS_FLASH = 13;
constexpr std::uint32_t DRNS_FLASH_2 = 14;
constexpr std::uint32_t DRNS_FOCUS_MODE = 16;
constexpr std::uint32_t DRNS_METERING = 28;
constexpr std::uint32_t DRNS_METERING_WINDOW = 29;
constexpr std::uint32_t DRNS_TEST_PATTERN = 40;
constexpr std::uint32_t DRNS_RGBY = 41;
constexpr std::uint32_t DRNS_EEPROM = 42;

struct drns_word_param {
    std::uint32_t id;
    std::uint32_t value;
};

struct drns_size_param {
    std::uint32_t id;
    std::uint16_t width;
    std::uint16_t height;
};
static_assert(sizeof(drns_size_param) == 8);

constexpr std::uint32_t DRNS_GRID = 16; // rows and columns of the metering window

struct drns_window_param {
    std::uint32_t id;
    std::uint8_t flags[DRNS_GRID * DRNS_GRID];
};
static_assert(sizeof(drns_window_param) == 260);

struct drns_rgby_param {
    std::uint32_t id;
    std::uint32_t words[4];
};

struct drns_eeprom_param {
    std::uint32_t id;
    std::uint8_t bytes[2048];
};
static_assert(sizeof(drns_eeprom_param) == 2052);

// What the client calls, on threads of its own.
struct drns_callbacks {
    void (*resource_lost)();
    void (*preview_ready)(drns_frame frame);
    void (*video_ready)(drns_frame frame);
    void (*thumbnail_ready)(drns_frame frame);
    void (*snapshot_ready)(drns_frame frame);
    void (*capture_done)();
    void (*auto_lock_done)(std::uint32_t error, std::uint32_t locked);
    void (*continuous_zoom_progress)();
    void (*face_detected)();
    void (*scene_detected)();
    void (*unused_10[2])();
};

// The operations; negative is a failure.
struct drns_operations {
    int (*get_status)(drns_session session, drns_status* p_status);
    void (*unused_1[5])();
    int (*open)(drns_session session, std::uint32_t camera, std::uint32_t zero, const drns_callbacks* p_table,
                std::uint32_t zero_too);
    int (*close)(drns_session session);
    int (*get_buffer_info)(drns_session session, std::uint32_t kind, drns_buffer_info* p_info);
    int (*start_preview)(drns_session session, std::uint16_t count, drns_buffer* const* list);
    int (*stop_preview)(drns_session session);
    int (*release_frame)(drns_session session, drns_frame frame);
    void (*unused_12[3])();
    int (*set_thumbnail_buffers)(drns_session session, std::uint16_t count, drns_buffer* const* list);
    void (*unused_16)();
    int (*take_picture)(drns_session session, std::uint16_t count, drns_buffer* const* list);
    void (*unused_18)();
    int (*auto_lock)(drns_session session, std::uint8_t flag0, std::uint8_t flag1, std::uint8_t flag2);
    int (*cancel_auto_lock)(drns_session session);
    void (*unused_21[13])();
    int (*set_parameter)(drns_session session, const void* p_param);
    int (*get_parameter)(drns_session session, void* p_param);
};
static_assert(offsetof(drns_operations, open) == 6 * sizeof(void*));
static_assert(offsetof(drns_operations, release_frame) == 11 * sizeof(void*));
static_assert(offsetof(drns_operations, set_thumbnail_buffers) == 15 * sizeof(void*));
static_assert(offsetof(drns_operations, take_picture) == 17 * sizeof(void*));
static_assert(offsetof(drns_operations, auto_lock) == 19 * sizeof(void*));
static_assert(offsetof(drns_operations, set_parameter) == 34 * sizeof(void*));

struct drns_client {
    std::uintptr_t unused_0[2];
    const drns_operations* p_operations;
    drns_session session;
};

// Loads the libraries, once, and gives a new client; null when one is lacking or makes none.
drns_client* drns_create();

// Shared memory of `count` buffers of `size` bytes; negative on failure, also while the libraries aren't
// loaded.
int drns_alloc(std::uint32_t kind, std::uint32_t size, std::uint32_t count, drns_heap* p_heap);
int drns_free(drns_heap* p_heap);
