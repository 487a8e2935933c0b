#include "camera/camera_general.h"

#include <algorithm>

#include "camera_general_inner.h"
#include "camera_inner.h"
#include "check/check.h"

namespace {

constexpr std::uint32_t IDS_OF_A_TEST = 16;
constexpr int TESTS = 5;

cam_gen_param* find(std::uint32_t id)
{
    using params_fn = std::span<cam_gen_param> (*)();
    constexpr params_fn by_type[TESTS] = {
        cam_gen_edge_params,         cam_gen_color_params,      cam_gen_flare_params,
        cam_gen_solarization_params, cam_gen_resolution_params,
    };
    const int type = cam_gen_get_itemtype(id);
    if (type < 1 || type > TESTS)
        return nullptr;
    const std::span<cam_gen_param> params = by_type[type - 1]();
    const std::uint32_t offset = id % IDS_OF_A_TEST;
    return offset < params.size() ? &params[offset] : nullptr;
}

// A plane of chroma as the picture has it.
struct chroma {
    std::uint32_t step, offset, rows;
};

// One row of both planes: every second sample of the picture's row.
void copy_chroma(const std::uint8_t* u_src, const std::uint8_t* v_src, std::uint32_t step, std::uint8_t* u,
                 std::uint8_t* v, std::uint32_t count)
{
    if (step == 1)
        for (std::uint32_t i = 0; i < count; i++) {
            u[i] = u_src[2 * i];
            v[i] = v_src[2 * i];
        }
    else
        for (std::uint32_t i = 0; i < count; i++) {
            u[i] = u_src[2 * i * step];
            v[i] = v_src[2 * i * step];
        }
}

void extract_chroma(const camera_general_request& request, const chroma& from_u, const chroma& from_v,
                    const cam_gen_planes& planes)
{
    const std::size_t count = request.width / 2;
    for (std::uint32_t r = 0; r < request.height; r++) {
        std::uint8_t *const u = planes.u + r * count, *const v = planes.v + r * count;
        if (r % from_u.rows != 0) {
            std::memcpy(u, u - count, count);
            std::memcpy(v, v - count, count);
            continue;
        }
        const std::size_t row = std::size_t{request.width} * (r / from_u.rows) * from_u.step;
        copy_chroma(request.buffer + from_u.offset + row, request.buffer + from_v.offset + row, from_u.step,
                    u, v, request.width / 2);
    }
}

// The last sample of a plane that is read.
std::uint64_t last_of(const camera_general_request& request, const chroma& from)
{
    return from.offset +
           (std::uint64_t{request.width} * ((request.height - 1) / from.rows) + request.width - 2) *
               from.step;
}

} // namespace

void camera_general_init()
{
    cam_gen_edge_init();
    cam_gen_color_init();
    cam_gen_flare_init();
    cam_gen_solarization_init();
    cam_gen_resolution_init();
}

int cam_gen_get_itemtype(std::uint32_t id)
{
    return static_cast<int>(std::min<std::uint32_t>(id / IDS_OF_A_TEST, TESTS + 1));
}

int camera_general_get_param(std::uint32_t id, std::uint32_t* p_value)
{
    const cam_gen_param* p = find(id);
    if (p == nullptr)
        return 0;
    *p_value = p->value;
    return 1;
}

int camera_general_set_param(std::uint32_t id, std::uint32_t value)
{
    cam_gen_param* p = find(id);
    if (p == nullptr)
        return 0;
    p->value = value & p->mask;
    return 1;
}

int cam_gen_extract_yuv(const camera_general_request& request, const cam_gen_planes& planes)
{
    const std::uint32_t size = request.width * request.height;
    chroma y = {0, 0, 1}, u{}, v{};
    if (request.width == 0 || request.height == 0 || ((request.width | request.height) & 1) != 0 ||
        camera_get_yuv_yinfo(&y.step, &y.offset) != 1 ||
        camera_get_yuv_uinfo(size, &u.step, &u.offset, &u.rows) != 1 ||
        camera_get_yuv_vinfo(size, &v.step, &v.offset, &v.rows) != 1)
        return 0;
    const std::uint64_t last_y = y.offset + (std::uint64_t{size} - 1) * y.step;
    if (std::max({last_y, last_of(request, u), last_of(request, v)}) >= request.nbr_of_bytes)
        return 0;
    if (y.step == 1)
        std::memcpy(planes.y, request.buffer + y.offset, size);
    else
        for (std::uint32_t i = 0; i < size; i++)
            planes.y[i] = request.buffer[y.offset + std::size_t{i} * y.step];
    extract_chroma(request, u, v, planes);
    return 1;
}

int camera_general_do_test(const camera_general_request* p_req, camera_general_result* p_res)
{
    HVT_CHECK(p_req);
    HVT_CHECK(p_res);
    const std::uint64_t size = std::uint64_t{p_req->width} * p_req->height;
    if (p_req->buffer == nullptr || size > p_req->nbr_of_bytes)
        return 0;
    const camera_bytes block = camera_alloc(2 * size);
    if (block == nullptr)
        return 0;
    cam_gen_data data = {};
    data.size = {static_cast<std::int32_t>(p_req->width), static_cast<std::int32_t>(p_req->height)};
    data.planes = {block.get(), block.get() + size, block.get() + size + size / 2};
    if (cam_gen_extract_yuv(*p_req, data.planes) == 0)
        return 0;
    p_res->edge = cam_gen_edge_do_test(data);
    p_res->color = cam_gen_color_do_test(data);
    p_res->flare = cam_gen_flare_do_test(data);
    p_res->solarization = cam_gen_solarization_do_test(data);
    p_res->resolution = cam_gen_resolution_do_test(data);
    return 1;
}
