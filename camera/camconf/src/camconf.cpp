#include "camconf/camconf.h"

#include <cstdio>
#include <span>

namespace {

constexpr std::int32_t ROTATIONS = 8;
constexpr int YUV_FORMAT_NONE = 4;

constexpr camera_blemish_config blemish_defaults = {
    .inner_threshold = 30,
    .focused_threshold = 100,
    .block_size = 5,
    .outer_threshold = 30,
    .edge_threshold = 30,
    .corner_threshold = 170,
    .row_step = 2,
    .col_step = 2,
    .kernel_length = 4,
    .kernel_gap = 4,
    .outer_cols = 0,
    .outer_rows = 0,
};

std::span<const camconf_sizeconfig* const> sizeconfig_maps;
const camconf_sizeconfig* sizeconfig_map;
std::span<camconf_prd_spec> prd_specs;
camconf_focus_config focus_config;
camconf_thumbnail_dim thumbnail_dim;
camconf_mem_config mem_config;

const camconf_sizeconfig* find_size(std::uint32_t id)
{
    if (sizeconfig_map == nullptr)
        return nullptr;
    for (const camconf_sizeconfig* p = sizeconfig_map; p->id != CAMCONF_SIZE_LAST; p++)
        if (p->id == id)
            return p;
    return nullptr;
}

camconf_prd_spec* find_spec(std::uint32_t camera, std::uint32_t mask)
{
    for (camconf_prd_spec& spec : prd_specs)
        if (spec.camera == camera && (spec.flags & mask) == mask)
            return &spec;
    return nullptr;
}

const camconf_prd_spec* loaded_spec(std::uint32_t camera)
{
    return camconf_cam_prd_spec_get_first(camera, CAMCONF_LOADED);
}

} // namespace

void camconf_init()
{
    sizeconfig_maps = {};
    sizeconfig_map = nullptr;
    prd_specs = {};
    focus_config = {};
    thumbnail_dim = {};
    mem_config = {};
}

void camconf_sizeconfig_set_map_tab(const camconf_sizeconfig* const* tab, std::uint32_t count)
{
    sizeconfig_maps = {tab, count};
}

void camconf_set_prd_spec(camconf_prd_spec* table, std::uint32_t count)
{
    prd_specs = {table, count};
}

void camconf_set_camf_config(const camconf_focus_config& config)
{
    focus_config = config;
}

void camconf_set_yuv_thumbnail_dim(const camconf_thumbnail_dim& dim)
{
    thumbnail_dim = dim;
}

void camconf_set_mem_config(const camconf_mem_config& config)
{
    mem_config = config;
}

void camconf_sizeconfig_set_map(std::uint32_t n)
{
    if ((n == 1 || n == 2) && n <= sizeconfig_maps.size())
        sizeconfig_map = sizeconfig_maps[n - 1];
}

int camconf_sizeconfig_exist(std::uint32_t id)
{
    return find_size(id & 0xFF) != nullptr ? 1 : 0;
}

int camconf_sizeconfig_resolve(std::uint32_t id, camconf_sizeconfig* p_record)
{
    const camconf_sizeconfig* p = find_size(id);
    if (p == nullptr)
        return 0;
    *p_record = *p;
    return 1;
}

int camconf_get_sizeconfigs(char* text, std::size_t size)
{
    if (sizeconfig_map == nullptr || size == 0)
        return 0;
    std::size_t used = 0;
    const auto count = [&](int n) {
        used += n > 0 ? static_cast<std::size_t>(n) : 0;
        return used < size;
    };
    bool room = count(std::snprintf(text, size, "\n\rConfig\tWidth\tHeight\tFormat\n\r"));
    for (const camconf_sizeconfig* p = sizeconfig_map; room && p->id != CAMCONF_SIZE_LAST; p++)
        room = count(std::snprintf(text + used, size - used, "%d,\t%d,\t%d\t%s\n\r", p->id, p->width,
                                   p->height, p->format == CAMCONF_FORMAT_JPEG ? "JPEG" : "YUV"));
    return 1;
}

int camconf_camera_exists(std::uint32_t camera)
{
    return find_spec(camera, 0) != nullptr ? 1 : 0;
}

int camconf_camera_is_module(std::uint32_t camera)
{
    return find_spec(camera, CAMCONF_MODULE) != nullptr ? 1 : 0;
}

camconf_prd_spec* camconf_cam_prd_spec_get_first(std::uint32_t camera, std::uint32_t mask)
{
    camconf_prd_spec* p = find_spec(camera, mask);
    return p != nullptr ? p : find_spec(camera, mask & ~CAMCONF_PROBE);
}

int camconf_adjust_rotation(std::uint32_t camera, std::int32_t rotation)
{
    const camconf_prd_spec* p = loaded_spec(camera);
    if (p == nullptr || p->rotation < 0 || p->rotation >= ROTATIONS)
        return -1;
    const bool both_mirror = p->rotation % 2 == 1 && rotation % 2 == 1;
    return (p->rotation + rotation - (both_mirror ? 2 : 0)) % ROTATIONS;
}

int camconf_get_snapshot_rotation(std::uint32_t camera)
{
    const camconf_prd_spec* p = loaded_spec(camera);
    return p != nullptr ? p->snapshot_rotation : -1;
}

int camconf_get_snapshot_yuv_format(std::uint32_t camera)
{
    const camconf_prd_spec* p = loaded_spec(camera);
    return p != nullptr ? p->snapshot_yuv_format : YUV_FORMAT_NONE;
}

const char* camconf_get_i2c_user_interface(std::uint32_t camera)
{
    const camconf_prd_spec* p = loaded_spec(camera);
    return p != nullptr ? p->i2c_user_interface : nullptr;
}

std::uint8_t camconf_get_i2c_address(std::uint32_t camera)
{
    const camconf_prd_spec* p = loaded_spec(camera);
    return p != nullptr ? p->i2c_address : 0;
}

std::int32_t camconf_get_device_number(std::uint32_t camera)
{
    const camconf_prd_spec* p = loaded_spec(camera);
    return p != nullptr ? p->device_number : 0;
}

camconf_focus_config camconf_get_camf_config()
{
    return focus_config;
}

camconf_thumbnail_dim camconf_get_yuv_thumbnail_dim()
{
    return thumbnail_dim;
}

camconf_mem_config camconf_get_mem_config()
{
    return mem_config;
}

int camconf_get_prd_spec(camconf_prd_spec** p_table, std::uint32_t* p_count)
{
    if (prd_specs.data() == nullptr)
        return 0;
    *p_table = prd_specs.data();
    *p_count = static_cast<std::uint32_t>(prd_specs.size());
    return 1;
}

void camconf_get_camb_config(camera_blemish_config* p_config)
{
    *p_config = blemish_defaults;
}
