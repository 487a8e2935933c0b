// The cameras of this phone as data: which there are and how each is mounted, the sizes of picture that each
// offers, the focus window, the memory mode, the defaults of the blemish test. The board installs the tables
// at start-up and keeps them; nothing here touches a camera. Sizes are looked up in the table that was
// selected last, and in none before that.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::uint32_t CAMCONF_FORMAT_YUV = 0;
constexpr std::uint32_t CAMCONF_FORMAT_JPEG = 2;
constexpr std::uint32_t CAMCONF_FORMAT_YUV_DIRECT = 5; // taken without the step before a snapshot

constexpr std::uint16_t CAMCONF_SIZE_LAST = 65535; // ends a table of sizes

struct camconf_sizeconfig {
    std::uint16_t id;
    std::uint16_t width;
    std::uint16_t height;
    std::uint32_t format;
};

constexpr std::uint32_t CAMCONF_MODULE = 1; // the camera's driver is a loadable module
constexpr std::uint32_t CAMCONF_PROBE = 2;  // it is to be loaded by the probe
constexpr std::uint32_t CAMCONF_LOADED = 4; // it has been

// A camera as it is built into the phone. The probe sets CAMCONF_LOADED in `flags`.
struct camconf_prd_spec {
    std::uint32_t id;
    std::uint32_t camera;
    const char* module_name; // file name without extension
    std::uint32_t flags;
    const char* module_path; // with a slash at its end
    const char* device;
    std::int32_t rotation; // how it is mounted, 0 to 7: see camconf_adjust_rotation
    std::int32_t snapshot_rotation;
    std::int32_t snapshot_yuv_format;
    const char* i2c_user_interface;
    std::uint8_t i2c_address;
    const char* name;
    std::int32_t device_number;
};

struct camconf_focus_config {
    std::uint32_t width;
    std::uint32_t height;
};

struct camconf_thumbnail_dim {
    std::uint16_t width;
    std::uint16_t height;
};

struct camconf_mem_config {
    std::uint32_t memory_mode;   // 1: a frame's buffer goes by the handle that comes with the frame
    std::uint32_t rotation_mode; // 1: the display overlay turns pictures, else the rotator does
};

// The blemish test's configuration. Thresholds are per mille of relative darkness; distances of the unfocused
// pass and the outer bands are in cells, block and steps in pixels.
struct camera_blemish_config {
    std::uint32_t inner_threshold;
    std::uint32_t focused_threshold; // 0: no focused pass
    std::uint32_t block_size;
    std::uint32_t outer_threshold;
    std::uint32_t edge_threshold;   // 0: neither edges nor corners
    std::uint32_t corner_threshold; // 0: no corners
    std::uint32_t row_step;
    std::uint32_t col_step;
    std::uint32_t kernel_length;
    std::uint32_t kernel_gap;
    std::uint32_t outer_cols;
    std::uint32_t outer_rows;
};

void camconf_init(); // tier entry: no tables

// Installs tables, which the caller keeps. `tab` has a table of sizes for each camera, from camera 1.
void camconf_sizeconfig_set_map_tab(const camconf_sizeconfig* const* tab, std::uint32_t count);
void camconf_set_prd_spec(camconf_prd_spec* table, std::uint32_t count);
void camconf_set_camf_config(const camconf_focus_config& config);
void camconf_set_yuv_thumbnail_dim(const camconf_thumbnail_dim& dim);
void camconf_set_mem_config(const camconf_mem_config& config);

// Selects the table of sizes of camera `n`; one that isn't there leaves the selection as it was.
void camconf_sizeconfig_set_map(std::uint32_t n);

// 1 when the selected table has the size whose id is the low 8 bits of `id`, else 0.
int camconf_sizeconfig_exist(std::uint32_t id);

// 1 with the whole entry in `*p_record`, or 0 with that untouched.
int camconf_sizeconfig_resolve(std::uint32_t id, camconf_sizeconfig* p_record);

// Writes the selected table as text, cut at `size` bytes, NUL included: 1, or 0 with no table.
int camconf_get_sizeconfigs(char* text, std::size_t size);

int camconf_camera_exists(std::uint32_t camera);    // 1 or 0
int camconf_camera_is_module(std::uint32_t camera); // 1 or 0

// The first record of a camera with all bits of `mask` in its flags, or else with those of `mask` without
// CAMCONF_PROBE; null for none.
camconf_prd_spec* camconf_cam_prd_spec_get_first(std::uint32_t camera, std::uint32_t mask);

// The rotation of a picture on the screen: how the camera is mounted and `rotation` together. Codes: 0 none,
// 2 a quarter turn, 4 a half turn, 6 three quarter turns; one more: mirrored as well. Like the next, of a
// camera whose module has been loaded only: -1 without a record or with an impossible one.
int camconf_adjust_rotation(std::uint32_t camera, std::int32_t rotation);
int camconf_get_snapshot_rotation(std::uint32_t camera);
int camconf_get_snapshot_yuv_format(std::uint32_t camera);        // 4 without a record
const char* camconf_get_i2c_user_interface(std::uint32_t camera); // null without a record
std::uint8_t camconf_get_i2c_address(std::uint32_t camera);       // 0 without a record
std::int32_t camconf_get_device_number(std::uint32_t camera);     // 0 without a record

camconf_focus_config camconf_get_camf_config();
camconf_thumbnail_dim camconf_get_yuv_thumbnail_dim();
camconf_mem_config camconf_get_mem_config();
int camconf_get_prd_spec(camconf_prd_spec** p_table, std::uint32_t* p_count); // 1, or 0 before one was set
void camconf_get_camb_config(camera_blemish_config* p_config);
