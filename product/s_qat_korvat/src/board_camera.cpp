// The cameras of this phone.
#include "board_maps.h"

#include <iterator>

#include "camconf/camconf.h"

namespace {

constexpr std::uint32_t PROBED = CAMCONF_MODULE | CAMCONF_PROBE;

// clang-format off
camconf_prd_spec camera_specification[] = {
    // id camera  module               flags   path                device         rotation (snapshot), layout   bus, address         sensor           number
    {  1, 1,      "zuna_camera_v4l2",  PROBED, "/system/modules/", "/dev/video0", 2, 0, 2,                      "/dev/i2c-4", 0x20,  "zuna_camera_0", 0 },
    {  2, 2,      "zuna_camera_v4l2",  PROBED, "/system/modules/", "/dev/video2", 3, 0, 2,                      "/dev/i2c-4", 0x6C,  "zuna_camera_1", 0 },
};

// Both cameras offer the same.
constexpr camconf_sizeconfig sizeconfig_map[] = {
    //  id  width  height  format
    {    0,   640,    480, CAMCONF_FORMAT_YUV  },
    {    1,  1920,   1080, CAMCONF_FORMAT_YUV  },
    {    2,  1280,    720, CAMCONF_FORMAT_YUV  },
    {    4,  1600,   1200, CAMCONF_FORMAT_YUV  },
    {   99,   800,    480, CAMCONF_FORMAT_YUV  },
    {  105,  1944,   1720, CAMCONF_FORMAT_JPEG },
    {  199,  1944,   1720, CAMCONF_FORMAT_JPEG },
    { CAMCONF_SIZE_LAST, 0, 0, 0 },
};
// clang-format on

// By camera number, from 1.
constexpr const camconf_sizeconfig* sizeconfig_map_tab[] = {sizeconfig_map, sizeconfig_map};

constexpr camconf_focus_config camera_focus_config = {.width = 64, .height = 24};
constexpr camconf_thumbnail_dim yuv_thumbnail_dimension = {.width = 320, .height = 240};
constexpr camconf_mem_config camera_mem_config = {.memory_mode = 1, .rotation_mode = 1};

} // namespace

void s_cfg_camera()
{
    camconf_sizeconfig_set_map_tab(sizeconfig_map_tab, std::size(sizeconfig_map_tab));
    camconf_set_prd_spec(camera_specification, std::size(camera_specification));
    camconf_set_camf_config(camera_focus_config);
    camconf_set_yuv_thumbnail_dim(yuv_thumbnail_dimension);
    camconf_set_mem_config(camera_mem_config);
}
