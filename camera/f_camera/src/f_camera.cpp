#include "f_camera/f_camera.h"

#include "f_camera_inner.h"

namespace {

// clang-format off
constexpr dcp_cmd f_camera_cmd_tab[] = {
    { "camv", "(0-1)[,(0)]", "%v,%v,%v", "start/stop, sizeconfig", do_camv, DCP_GRP_PRODUCTION },
    { "caml", "(0-2)", "%v", "load/unload", do_caml, DCP_GRP_PRODUCTION },
    { "cams", "(0,1,2,4)[,(0x0-0x63)][,a...z]", "%v,%t", "action, sizeconfig, filename", do_cams, DCP_GRP_PRODUCTION },
    { "caaf", "(0-1)", "%v", "auto focus operation", do_caaf, DCP_GRP_PRODUCTION },
    { "camf", "(5-6)[(0-65535),(0-65535),(0-65535),(0-65535)]", "%v,%v,%v,%v,%v", "auto focus test", do_camf, DCP_GRP_PRODUCTION },
    { "camb", "8[,...]", "%v,%v,%v,%v,%v,%v,%v,%v,%v,%v,%v,%v,%v", "blemish test, parameters...", do_camb, DCP_GRP_PRODUCTION },
    { "camc", "(0-2)[,(0x1-0xFFFFFFFF)]", "%v,%v", "connection test", do_camc, DCP_GRP_PRODUCTION },
    { "caii", "", "%v,%v", "", do_caii, DCP_GRP_PRODUCTION },
    { "ispd", "", "%v,%t", "Load ISP Firmware", do_ispd, DCP_GRP_PRODUCTION },
    { "cwbc", "(1-4,7-8)", "%v,%v,%v,%v,%v", "White balance calibration", do_cwbc, DCP_GRP_PRODUCTION },
    { "crom", "(0-1)", "%v", "dump and check eeprom", do_crom, DCP_GRP_PRODUCTION },
    { "camg", "[(0-255)[,(0-65535)]]", "%v,%v", "test/set param/get param", do_camg, DCP_GRP_PRODUCTION },
    { "cama", "(0-65535),(0-65535)", "%v,%v", "camera alignment test", do_cama, DCP_GRP_PRODUCTION },
    { "caid", "(0-1),[(0-1)]", "%v,%v", "read data ID info from camera module", do_caid, DCP_GRP_PRODUCTION },
    {},
};
// clang-format on

dcp_cmd_link f_camera_link;

} // namespace

void f_camera_init()
{
    dcp_cmd_add(f_camera_cmd_tab, &f_camera_link);
}
