#include "camera/camera.h"

#include "camera/camera_tests.h"
#include "camera_inner.h"

camera_state camera_me;

namespace {

constexpr std::uint32_t CAMERAS = 2;

bool is_probed[CAMERAS + 1];
bool first_time_start = true;

// A camera whose driver isn't a loadable module has nothing to be probed.
void note_what_needs_no_probe()
{
    for (std::uint32_t n = 1; n <= CAMERAS; n++)
        is_probed[n] = camconf_camera_is_module(n) == 0;
    first_time_start = false;
}

bool probe(std::uint32_t camera)
{
    if (is_probed[camera])
        return true;
    if (camera_me.co.camera_probe == nullptr || camera_me.co.camera_probe(camera) < 0)
        return false;
    is_probed[camera] = true;
    return true;
}

} // namespace

void camera_init()
{
    camera_me = {};
    camera_blemish_init();
    camera_general_init();
    camera_connection_init();
    camera_pn9_init();
}

camera_callouts* camera_get_platform_callout()
{
    return &camera_me.co;
}

int camera_start(std::uint32_t camera)
{
    if (first_time_start)
        note_what_needs_no_probe();
    if (camera_me.co.start == nullptr || camera_me.co.stop == nullptr || camera > CAMERAS ||
        camconf_camera_exists(camera) == 0)
        return 0;
    if (!probe(camera))
        return 0;
    if (camera_me.current == camera)
        return 1;
    if (camera_me.current != 0 && camera_me.co.stop() < 1)
        return 0;
    if (camera_me.co.start(camera) < 1)
        return 0;
    camera_me.current = camera;
    return 1;
}

int camera_stop()
{
    if (camera_me.co.stop == nullptr || camera_me.co.stop() < 1)
        return 0;
    camera_me.current = 0;
    return 1;
}

std::uint32_t camera_get_current_camera()
{
    return camera_me.current;
}

int camera_start_viewfinder(const camconf_sizeconfig& size, std::int32_t rotation)
{
    if (camera_me.co.start_viewfinder == nullptr || camera_me.co.stop_viewfinder == nullptr ||
        camera_me.current == 0)
        return 0;
    if (camera_me.co.start_viewfinder(&size, rotation) < 1)
        return 0;
    camera_me.viewfinder_started = true;
    return 1;
}

int camera_stop_viewfinder()
{
    if (!camera_me.viewfinder_started || camera_me.co.stop_viewfinder == nullptr ||
        camera_me.co.stop_viewfinder() < 1)
        return 0;
    camera_me.viewfinder_started = false;
    return 1;
}
