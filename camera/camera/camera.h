// The one active camera and the one picture in memory: start and stop, viewfinder, snapshots, focus and what
// else a camera module does, and the image tests, which all judge the picture in memory. Drivers fill the
// table of callouts; without a driver an operation does nothing and gives what its comment says. Holds no
// image logic of its own but the layout of a picture. From the main loop only.
//
// Results are 1 for success and 0 for failure unless told otherwise.
#pragma once

#include <cstdint>

#include "camconf/camconf.h"

// The picture in memory; `buffer` is null when there is none. The driver owns the bytes of one that was
// taken, the camera module those of one that was loaded.
struct camera_snapshot {
    std::uint32_t format;
    std::uint32_t width;
    std::uint32_t height;
    std::uint8_t* buffer;
    std::uint32_t nbr_of_bytes;
};

// A picture on its way to the screen, in memory that the display driver knows.
struct camera_frame {
    std::int32_t memory_id;
    std::uint32_t offset;
    std::uint32_t format; // 2: luminance, then rows of V and U by turns for two rows each
    std::uint32_t width;
    std::uint32_t height;
};

struct drns_heap; // shared memory of the camera client (camera_durnspire/drns.h)

constexpr int CAMERA_FOCUS_RUNNING = 3;
constexpr int CAMERA_FOCUS_FOUND = 4;
constexpr int CAMERA_FOCUS_NONE = 5; // failed, stopped or not supported

// What drivers offer, in a fixed order. Success is 1 or more, failure 0 or less.
struct camera_callouts {
    int (*start)(std::uint32_t camera);
    int (*stop)();
    int (*start_viewfinder)(const camconf_sizeconfig* p_size, std::int32_t rotation);
    int (*restart_viewfinder)(const camconf_sizeconfig* p_size, std::int32_t rotation);
    int (*stop_viewfinder)();
    int (*prepare_snapshot)(const camconf_sizeconfig* p_size);
    int (*take_snapshot)(std::uint32_t camera, camera_snapshot* p_snapshot);
    int (*take_raw_snapshot)(std::uint32_t camera, camera_snapshot* p_snapshot);
    int (*release_snapshot)(camera_snapshot* p_snapshot);
    int (*start_autofocus)();
    int (*stop_autofocus)();
    int (*get_autofocus_status)();
    int (*test_pattern)(std::int32_t pattern);
    int (*grab_viewfinder_frame)(camera_snapshot* p_snapshot);
    void (*unused_14)();
    int (*open_framebuffer)();
    int (*close_framebuffer)();
    void (*unused_17)();
    int (*load_firmware)(const char* path);
    std::uint32_t (*get_firmware_version)();
    std::uint32_t (*get_isp_version)();
    int (*send_yuv_to_screen)(std::uint32_t screen, std::int32_t rotation, const camera_frame* p_frame);
    int (*get_calibration_settings)(void* p_settings);
    int (*set_calibration_settings)(const void* p_settings);
    int (*get_current_shutter_speed)();
    int (*read_luminance)(std::uint8_t channel, std::uint32_t* p_value);
    int (*read_rgby)(std::uint32_t* p_four);
    int (*camera_probe)(std::uint32_t camera);
    std::uint32_t (*get_eeprom_size)();
    int (*read_eeprom)(std::uint32_t* p_length, std::uint8_t* buf);
    int (*check_eeprom)();
    void (*set_ae_wb_window)(std::uint16_t x, std::uint16_t y, std::uint16_t width, std::uint16_t height);
    int (*overlay_unset)();
    std::uintptr_t (*mmap)(std::uint32_t size, drns_heap* p_heap);
    int (*munmap)(drns_heap* p_heap);
    void (*set_flash)(int on);
};

void camera_init(); // tier entry: no driver, no camera, no picture

// The table, for drivers to fill.
camera_callouts* camera_get_platform_callout();

// Makes `camera` the active one; the first start of each camera probes it. One that is active already is left
// alone, another is stopped before.
int camera_start(std::uint32_t camera);
int camera_stop();
std::uint32_t camera_get_current_camera(); // 0 for none

int camera_start_viewfinder(const camconf_sizeconfig& size, std::int32_t rotation);
int camera_stop_viewfinder();

// Takes a picture in place of the one in memory.
int camera_take_snapshot(const camconf_sizeconfig& size);
int camera_take_raw_snapshot(const camconf_sizeconfig& size);
int camera_grab_viewfinder_frame(const camconf_sizeconfig& size); // the driver's own result, or 0
int camera_release_snapshot(const camconf_sizeconfig& size, std::int32_t rotation);

// Writes the picture's bytes to a file; one of that name is removed first, picture or not.
int camera_save_snapshot(const char* path);

// Reads a file of at most CAMERA_LARGEST_FILE bytes as the picture, whose size stays as it is told. Not on
// top of a picture in memory.
constexpr std::uint32_t CAMERA_LARGEST_FILE = 64u << 20;
int camera_load_snapshot(const char* path);

// The size and format that the picture in memory is said to have; its bytes aren't touched.
int camera_set_sizeconf(const camconf_sizeconfig& size);
int camera_get_sizeconf(camconf_sizeconfig* p_size);

int camera_start_autofocus(); // returns when the run has ended
int camera_stop_autofocus();
int camera_get_autofocus_status();             // CAMERA_FOCUS_...
int camera_test_pattern(std::int32_t pattern); // -1 without a driver
int camera_load_firmware(const char* path);
std::uint32_t camera_get_firmware_version(); // 0: not known
std::uint32_t camera_get_isp_version();      // 0: not known
int camera_get_calibration_settings(void* p_settings);
int camera_set_calibration_settings(const void* p_settings); // these four: -1 without a driver
int camera_get_current_shutter_speed();
int camera_read_luminance(std::uint8_t channel, std::uint32_t* p_value); // 0 with no active camera
int camera_read_rgby(std::uint32_t* p_four); // red, green, blue, luminance; 0 with no active camera
std::uint32_t camera_get_eeprom_size();

// The memory of the camera module, at most CAMERA_EEPROM_SIZE bytes.
constexpr std::uint32_t CAMERA_EEPROM_SIZE = 2048;
int camera_read_eeprom(std::uint32_t* p_length, std::uint8_t* buf);
int camera_check_eeprom(); // 0 good, 1 bad, -1 without a driver

// Each value counts in its low 16 bits.
void camera_set_ae_wb_window(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height);
void camera_set_flash(int on); // the driver hears of a change only

// Where the samples of a YUV picture lie, by the layout of the active camera: the first and the step, and how
// many rows share a row of chroma. 1, or -1 for a layout that has no such samples or isn't known.
int camera_get_yuv_yinfo(std::uint32_t* p_step, std::uint32_t* p_offset);
int camera_get_yuv_uinfo(std::uint32_t plane_size, std::uint32_t* p_step, std::uint32_t* p_offset,
                         std::uint32_t* p_rows);
int camera_get_yuv_vinfo(std::uint32_t plane_size, std::uint32_t* p_step, std::uint32_t* p_offset,
                         std::uint32_t* p_rows);

// The luminance of a picture, packed, into `dst` of height x width bytes. 1, or -1 when an argument is null,
// the layout isn't known, or a size has bit value 2. `src` must hold the whole picture.
int camera_extract_y_image(const std::uint8_t* src, std::uint8_t* dst, std::uint32_t height,
                           std::uint32_t width);

// Whether the bytes of a picture reach to the last luminance sample of its size; false without a layout.
bool camera_holds_luminance(const camera_snapshot& picture);
