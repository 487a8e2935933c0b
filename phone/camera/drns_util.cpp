// libdrns_util.so of the virtual phone: shared memory of the camera service.
#include "camera/service_host.h"
#include "core/library_host.h"

namespace {

const phone_camera_service* p_service;

} // namespace

extern "C" {

void phone_library_attach(const phone_library_host* p_host)
{
    p_service = static_cast<const phone_camera_service*>(p_host->offered("camera"));
}

int Drns_Util_AllocSharedMemory(std::uint32_t kind, std::uint32_t size, std::uint32_t count, std::uint32_t,
                                std::uintptr_t* heap)
{
    return p_service->alloc(kind, size, count, heap);
}

int Drns_Util_FreeSharedMemory(std::uintptr_t* heap)
{
    return p_service->free(heap);
}
}
