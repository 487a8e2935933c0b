// The image tests on pictures of any size, content and parameters. The first bytes choose the test, the
// layout, the sizes that the picture is said to have and the parameters; the rest are the picture's bytes, in
// a block of exactly their size.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "camera/camera.h"
#include "camera/camera_tests.h"

namespace {

struct input {
    const std::uint8_t* p;
    std::size_t left;

    std::uint32_t take(std::size_t bytes)
    {
        std::uint32_t value = 0;
        const std::size_t n = std::min(bytes, left);
        std::memcpy(&value, p, n);
        p += n;
        left -= n;
        return value;
    }
};

camconf_prd_spec spec[] = {{1, 1, "m", CAMCONF_LOADED, "/", "/dev/v", 2, 0, 2, "/dev/i2c-4", 0x20, "s", 0}};

// The camera whose layout the pictures have.
void start_once()
{
    static bool started;
    if (started)
        return;
    started = true;
    camconf_init();
    camconf_set_prd_spec(spec, 1);
    camconf_set_camf_config({64, 24});
    camera_init();
    camera_get_platform_callout()->start = [](std::uint32_t) { return 1; };
    camera_get_platform_callout()->stop = [] { return 1; };
    camera_start(1);
}

void blemish(input& in, const camera_snapshot& picture)
{
    std::uint32_t words[12];
    for (std::uint32_t& word : words)
        word = in.take(2) << (in.take(1) % 20);
    camera_blemish_config config;
    static_assert(sizeof config == sizeof words);
    std::memcpy(&config, words, sizeof config);
    camera_blemish_result result;
    camera_blemish_do_test(&config, &result, &picture);
}

void general(input& in, const camera_snapshot& picture)
{
    camera_general_init();
    for (int i = 0; i < 6; i++) {
        const std::uint32_t id = in.take(1);
        camera_general_set_param(id, in.take(4));
    }
    const camera_general_request request = {picture.buffer, picture.width, picture.height,
                                            picture.nbr_of_bytes};
    camera_general_result result;
    camera_general_do_test(&request, &result);
}

void small(input& in, const camera_snapshot& picture)
{
    const std::uint32_t a = in.take(2), b = in.take(2), c = in.take(2), d = in.take(2), kind = in.take(1);
    camera_focus_result focus;
    camera_focus_do_test(kind % 2 + 5, &focus, &picture, a, b, c, d);
    camera_alignment_result alignment;
    camera_alignment_test({a, b, static_cast<std::uint8_t>(c)}, &alignment, &picture);
    std::uint32_t average, count;
    camera_intensity_get_average_intensity(c, kind % 5, &picture, &average, &count);
    camera_connection_walk({picture.buffer, picture.nbr_of_bytes}, a, kind % 3 + 1, d);
    std::int32_t errors;
    pn9_checkTestPattern(picture, d, &errors);
}

// The parts behind the edge test, on a frame that lies anywhere.
void framed(input& in, const camera_snapshot& picture)
{
    const std::size_t size = std::size_t{picture.width} * picture.height;
    if (size == 0 || size > 1u << 20 || ((picture.width | picture.height) & 1) != 0)
        return;
    std::vector<std::uint8_t> planes(2 * size);
    for (std::size_t i = 0; i < planes.size() && picture.nbr_of_bytes != 0; i++)
        planes[i] = picture.buffer[i % picture.nbr_of_bytes];
    cam_gen_data data{};
    data.size = {static_cast<std::int32_t>(picture.width), static_cast<std::int32_t>(picture.height)};
    data.planes = {planes.data(), planes.data() + size, planes.data() + size + size / 2};
    data.frame_found = 1;
    for (cam_gen_point& corner : data.corners)
        corner = {static_cast<std::int16_t>(in.take(2)) % 4096, static_cast<std::int16_t>(in.take(2)) % 4096};
    cam_gen_color_do_test(data);
    cam_gen_flare_do_test(data);
    cam_gen_solarization_do_test(data);
    cam_gen_resolution_do_test(data);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* p, std::size_t size)
{
    start_once();
    input in = {p, size};
    const std::uint32_t test = in.take(1);
    spec[0].snapshot_yuv_format = static_cast<std::int32_t>(in.take(1) % 4);
    const std::uint32_t width = in.take(2), height = in.take(2), format = in.take(1) % 4 == 0 ? 5 : 0;
    input parameters = in;
    for (std::size_t i = 0; i < 40; i++)
        in.take(1);
    // A few bytes make a large picture: the fuzzer's are repeated.
    std::vector<std::uint8_t> bytes(
        std::min<std::size_t>(std::size_t{width} * height * (test % 7 + 1) / 4, 1u << 20));
    for (std::size_t i = 0; i < bytes.size(); i++)
        bytes[i] = in.left != 0 ? in.p[i % in.left] : static_cast<std::uint8_t>(i * test);
    const camera_snapshot picture = {format, width, height, bytes.data(),
                                     static_cast<std::uint32_t>(bytes.size())};
    constexpr void (*tests[])(input & in, const camera_snapshot& picture) = {blemish, general, small, framed};
    tests[test / 8 % 4](parameters, picture);
    return 0;
}
