// What isn't the screen: kernel module, service, shared memory; and the table.
#include "camera_durnspire_qualcomm/camera_durnspire_qualcomm.h"

#include <span>
#include <string>

#include "camera/camera.h"
#include "camera_durnspire/drns.h"
#include "camera_durnspire_qualcomm_inner.h"
#include "plat/plat.h"

namespace {

// Modules and a service that are there already stay: what the lines say isn't looked at.
int camera_durnspire_qualcomm_camera_probe(std::uint32_t)
{
    camconf_prd_spec* table;
    std::uint32_t count;
    if (camconf_get_prd_spec(&table, &count) == 0)
        return 0;
    constexpr std::uint32_t WANTED = CAMCONF_MODULE | CAMCONF_PROBE;
    for (camconf_prd_spec& spec : std::span(table, count)) {
        if ((spec.flags & WANTED) != WANTED)
            continue;
        const std::string line = std::string("insmod ") + spec.module_path + spec.module_name + ".ko";
        plat_system(line.c_str());
        spec.flags |= CAMCONF_LOADED;
    }
    plat_system("start qcamerasvr");
    return 1;
}

std::uintptr_t camera_durnspire_qualcomm_mmap(std::uint32_t size, drns_heap* p_heap)
{
    *p_heap = {};
    return drns_alloc(DRNS_GENERAL, size, 1, p_heap) >= 0 ? p_heap->base : 0;
}

int camera_durnspire_qualcomm_munmap(drns_heap* p_heap)
{
    return drns_free(p_heap) >= 0 ? 1 : -1;
}

} // namespace

void camera_durnspire_qualcomm_init()
{
    camera_durnspire_qualcomm_screen_init();
    camera_callouts& co = *camera_get_platform_callout();
    co.camera_probe = camera_durnspire_qualcomm_camera_probe;
    co.open_framebuffer = camera_durnspire_qualcomm_open_framebuffer;
    co.close_framebuffer = camera_durnspire_qualcomm_close_framebuffer;
    co.send_yuv_to_screen = camera_durnspire_qualcomm_send_yuv_to_screen;
    co.overlay_unset = camera_durnspire_qualcomm_overlay_unset;
    co.mmap = camera_durnspire_qualcomm_mmap;
    co.munmap = camera_durnspire_qualcomm_munmap;
}
