// libdrns_client.so of the virtual phone: the client object and its table of operations, each handed on to
// the camera service.
#include <cstddef>

#include "camera/service_host.h"
#include "core/library_host.h"

namespace {

using session = std::uintptr_t;
using list = std::uintptr_t* const*;

const phone_camera_service* p_service;

constexpr session the_session = 0x5E55;

int get_status(session s, std::uint8_t* record)
{
    return p_service->get_status(s, record);
}

int open(session, std::uint32_t camera, std::uint32_t, const phone_camera_callback* table, std::uint32_t)
{
    return p_service->open(camera, table);
}

int release_frame(session s, phone_camera_frame frame)
{
    return p_service->release_frame(s, &frame);
}

int auto_lock(session s, std::uint8_t, std::uint8_t, std::uint8_t)
{
    return p_service->auto_lock(s);
}

int close(session s)
{
    return p_service->close(s);
}
int get_buffer_info(session s, std::uint32_t kind, std::uint32_t* p)
{
    return p_service->get_buffer_info(s, kind, p);
}
int start_preview(session s, std::uint16_t count, list l)
{
    return p_service->start_preview(s, count, l);
}
int stop_preview(session s)
{
    return p_service->stop_preview(s);
}
int set_thumbnail_buffers(session s, std::uint16_t n, list l)
{
    return p_service->set_thumbnail_buffers(s, n, l);
}
int take_picture(session s, std::uint16_t count, list l)
{
    return p_service->take_picture(s, count, l);
}
int cancel_auto_lock(session s)
{
    return p_service->cancel_auto_lock(s);
}
int set_parameter(session s, const std::uint8_t* record)
{
    return p_service->set_parameter(s, record);
}
int get_parameter(session s, std::uint8_t* record)
{
    return p_service->get_parameter(s, record);
}

using operation = void (*)();

template <typename Fn>
operation as_operation(Fn fn)
{
    return reinterpret_cast<operation>(fn);
}

constexpr std::size_t operations_count = 36;
operation operations[operations_count];

struct client {
    std::uintptr_t first, second;
    const operation* table;
    session handle;
};

client the_client;

// By position; the others aren't there.
void fill_operations()
{
    operations[0] = as_operation(get_status);
    operations[6] = as_operation(open);
    operations[7] = as_operation(close);
    operations[8] = as_operation(get_buffer_info);
    operations[9] = as_operation(start_preview);
    operations[10] = as_operation(stop_preview);
    operations[11] = as_operation(release_frame);
    operations[15] = as_operation(set_thumbnail_buffers);
    operations[17] = as_operation(take_picture);
    operations[19] = as_operation(auto_lock);
    operations[20] = as_operation(cancel_auto_lock);
    operations[34] = as_operation(set_parameter);
    operations[35] = as_operation(get_parameter);
}

} // namespace

extern "C" {

void phone_library_attach(const phone_library_host* p_host)
{
    p_service = static_cast<const phone_camera_service*>(p_host->offered("camera"));
}

void* Drns_Client_Create()
{
    if (p_service->create() < 0)
        return nullptr;
    fill_operations();
    the_client = {0, 0, operations, the_session};
    return &the_client;
}
}
