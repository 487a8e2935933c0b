#include "unit/camera/camera_desk.h"

std::vector<std::string> camera_desk::asked;
int camera_desk::result;

namespace {

int note(const char* what)
{
    camera_desk::asked.push_back(what);
    return camera_desk::result;
}

camconf_prd_spec spec[2];
constexpr camconf_sizeconfig sizes[] = {{0, 64, 48, 0}, {5, 64, 48, 5}, {CAMCONF_SIZE_LAST, 0, 0, 0}};
constexpr const camconf_sizeconfig* size_tab[] = {sizes, sizes};

} // namespace

camera_desk::camera_desk(int layout)
{
    asked.clear();
    result = 1;
    spec[0] = {1, 1, "m", CAMCONF_LOADED, "/", "/dev/v", 2, 7, layout, "/dev/i2c-4", 0x20, "s", 11};
    spec[1] = {2,    2,   "m", CAMCONF_MODULE | CAMCONF_PROBE, "/", "/dev/v", 3, 6, layout, "/dev/i2c-5",
               0x6C, "t", 12};
    camconf_init();
    camconf_set_prd_spec(spec, 2);
    camconf_sizeconfig_set_map_tab(size_tab, 2);
    camconf_set_camf_config({64, 24});
    camera_init();
    camera_callouts& co = *camera_get_platform_callout();
    co.start = [](std::uint32_t) { return note("start"); };
    co.stop = [] { return note("stop"); };
    camera_start(1);
    asked.clear();
    co.start_viewfinder = [](const camconf_sizeconfig*, std::int32_t) { return note("start_viewfinder"); };
    co.stop_viewfinder = [] { return note("stop_viewfinder"); };
    co.take_snapshot = [](std::uint32_t, camera_snapshot*) { return note("take_snapshot"); };
    co.release_snapshot = [](camera_snapshot* p) {
        p->buffer = nullptr;
        return note("release_snapshot");
    };
    co.grab_viewfinder_frame = [](camera_snapshot*) { return note("grab_viewfinder_frame"); };
    co.set_flash = [](int on) { note(on != 0 ? "flash on" : "flash off"); };
}

camera_desk::~camera_desk()
{
    camera_set_flash(0);
    camera_init();
    camconf_init();
}
