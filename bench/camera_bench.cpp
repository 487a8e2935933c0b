// The image tests against passes over memory and against OpenCV, and a frame of the viewfinder from the
// client's callback to its release against a copy of the panel. The camera's client and the display's overlay
// are stood in for here; pictures are turned by the virtual phone's own display.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "bench_panel.h"
#include "camera/camera.h"
#include "camera/camera_tests.h"
#include "camera/canvas.h"
#include "camera_cv.h"
#include "camera_durnspire/camera_durnspire.h"
#include "camera_durnspire/drns.h"
#include "camera_durnspire_qualcomm/camera_durnspire_qualcomm.h"
#include "display/overlay.h"
#include "display/turn.h"
#include "plat/plat.h"
#include "row.h"
#include "screen/screen.h"
#include "screenconf/screenconf.h"

namespace {

constexpr int repetitions = 40;

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::printf("%s\n", what);
    std::exit(1);
}

// The least times of two bodies, which run in turns, in nanoseconds.
struct pair_of_times {
    double first = 1e18, second = 1e18;

    pair_of_times(auto one, auto two)
    {
        for (int i = 0; i < repetitions; i++) {
            first = std::min(first, time_of(one));
            second = std::min(second, time_of(two));
        }
    }
    static double time_of(auto body)
    {
        const auto from = std::chrono::steady_clock::now();
        body();
        return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - from).count();
    }
};

// The camera whose layout the pictures have.
camconf_prd_spec spec[] = {{1, 1, "m", CAMCONF_LOADED, "/", "/dev/v", 2, 0, 2, "/dev/i2c-4", 0x20, "s", 0}};

// An even field with two specks and a shadow away from the edges.
std::vector<std::uint8_t> field(int width, int height)
{
    phone::canvas c(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
    phone::canvas_paint(c, {0, 0, width, height, 118, 121, 133});
    phone::canvas_paint(c, {width / 2 + 1, height / 3, 1, 1, 80, {}, {}});
    phone::canvas_paint(c, {width / 3, height / 2, 2, 2, 70, {}, {}});
    phone::canvas_paint(c, {width / 4, height / 4, 15, 15, 110, {}, {}});
    return c.bytes;
}

int bench_blemish(int width, int height, double cv_limit, bool against_sum)
{
    std::vector<std::uint8_t> bytes = field(width, height);
    const camera_snapshot picture = {0, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height),
                                     bytes.data(), static_cast<std::uint32_t>(bytes.size())};
    camera_blemish_config config;
    camconf_get_camb_config(&config);
    camera_blemish_result ours{};
    cv_blemish_words theirs{};
    const std::string name = "camb " + std::to_string(width) + "x" + std::to_string(height);
    const auto test = [&] { camera_blemish_do_test(&config, &ours, &picture); };
    const pair_of_times cv(test, [&] { theirs = cv_blemish(bytes.data(), width, height); });
    const std::uint32_t words[] = {ours.spots,    ours.specks,    ours.spot_col,
                                   ours.spot_row, ours.speck_col, ours.speck_row};
    require(std::equal(words, words + 6, theirs.words), "the two blemish tests differ");
    int over = bench_row((name + ", against OpenCV").c_str(), cv.first, cv.second, cv_limit);
    if (!against_sum)
        return over;
    volatile std::uint64_t sink = 0;
    const pair_of_times sum(test, [&] {
        std::uint64_t total = 0;
        for (std::size_t i = 0; i < std::size_t{picture.width} * picture.height; i++)
            total += bytes[i];
        sink = total;
    });
    return over + bench_row((name + ", against a sum").c_str(), sum.first, sum.second, 10);
}

int bench_general(const char* what, bool chart)
{
    constexpr std::uint32_t width = 1920, height = 1080;
    constexpr std::size_t size = std::size_t{width} * height;
    phone::canvas c(width, height);
    if (chart)
        phone::chart_draw(c, {});
    const camera_general_request request = {c.bytes.data(), width, height,
                                            static_cast<std::uint32_t>(c.bytes.size())};
    std::vector<std::uint8_t> planes(2 * size), from(2 * size, 7), to(2 * size);
    cam_gen_data data{};
    data.size = {width, height};
    data.planes = {planes.data(), planes.data() + size, planes.data() + size + size / 2};
    int over = 0;
    if (chart) {
        const pair_of_times t([&] { cam_gen_extract_yuv(request, data.planes); },
                              [&] { std::memcpy(to.data(), from.data(), to.size()); });
        over += bench_row("camg 1920x1080, planes against memcpy", t.first, t.second, 1.0);
    }
    cam_gen_extract_yuv(request, data.planes);
    std::uint32_t word = 0;
    cv_corners_found found{};
    const pair_of_times t([&] { word = cam_gen_edge_do_test(data); },
                          [&] { found = cv_corners(c.bytes.data(), width, height); });
    require(chart ? word == 0 && found.count == 4 : word == 0xF10 && found.count == 0,
            "the corners aren't found");
    return over + bench_row(what, t.first, t.second, 0.55);
}

// The client: it keeps the callbacks and one buffer of a frame, and notes when a frame goes back.
constexpr std::uint32_t frame_width = 640, frame_height = 480;
const drns_callbacks* p_callbacks;
phone::overlay_set overlays;
phone::shared_memory_ref last_memory;
plat_callouts co;
int (*panel_ioctl)(int fd, unsigned long request, void* arg);
bool released;
double turning; // nanoseconds within the display's requests

int client_alloc(std::uint32_t, std::uint32_t size, std::uint32_t count, std::uint32_t, drns_heap* p_heap)
{
    last_memory = phone::shared_memory_make(std::size_t{size} * count);
    p_heap->memory_id = static_cast<std::uintptr_t>(last_memory->id);
    p_heap->base = reinterpret_cast<std::uintptr_t>(last_memory->p);
    for (std::uint32_t i = 0; i < count; i++)
        p_heap->buffers[i].data = p_heap->buffers[i].handle = p_heap->base + i * size;
    return 0;
}

drns_client* client_create()
{
    static drns_operations operations{};
    operations.open = [](drns_session, std::uint32_t, std::uint32_t, const drns_callbacks* p, std::uint32_t) {
        p_callbacks = p;
        return 0;
    };
    operations.get_buffer_info = [](drns_session, std::uint32_t, drns_buffer_info* p) {
        p->count = 1;
        p->size = frame_width * frame_height * 3 / 2;
        return 0;
    };
    operations.set_parameter = [](drns_session, const void*) { return 0; };
    operations.start_preview = [](drns_session, std::uint16_t, drns_buffer* const*) { return 0; };
    operations.release_frame = [](drns_session, drns_frame) {
        released = true;
        return 0;
    };
    static drns_client client = {{0, 0}, &operations, 1};
    return &client;
}

int display_ioctl(int fd, unsigned long request, void* arg)
{
    const auto from = std::chrono::steady_clock::now();
    const auto done = phone::overlay_ioctl(overlays, fd, panel_width, panel_height, request, arg);
    turning += std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - from).count();
    return done ? *done : panel_ioctl(fd, request, arg);
}

void* client_symbol(void*, const char* name)
{
    if (std::strcmp(name, "Drns_Client_Create") == 0)
        return reinterpret_cast<void*>(client_create);
    if (std::strcmp(name, "Drns_Util_AllocSharedMemory") == 0)
        return reinterpret_cast<void*>(client_alloc);
    return reinterpret_cast<void*>(+[](drns_heap*) { return 0; });
}

int bench_frame()
{
    bench_panel(2);
    screenconf_get(SCREEN_MAIN)->double_buffer = 1;
    co = bench_panel_table();
    panel_ioctl = co.ioctl;
    co.ioctl = display_ioctl;
    co.dlopen = [](const char*, int) -> void* { return &co; };
    co.dlsym = client_symbol;
    plat_attach(&co);
    require(screen_start(SCREEN_MAIN, 0) == 1, "the panel doesn't start");
    camera_init();
    camconf_set_mem_config({1, 1});
    camera_durnspire_init();
    camera_durnspire_qualcomm_init();
    require(camera_start(1) == 1, "the camera doesn't start");
    const camconf_sizeconfig size = {0, frame_width, frame_height, 0};
    require(camera_start_viewfinder(size, 0) == 1, "the viewfinder doesn't start");
    drns_frame frame{};
    frame.buffer.data = reinterpret_cast<std::uintptr_t>(last_memory->p);
    frame.buffer.handle = static_cast<std::uintptr_t>(last_memory->id);
    std::vector<std::uint8_t> from(frame_bytes, 1), to(frame_bytes);
    double own = 1e18, whole = 1e18, copy = 1e18;
    for (int i = 0; i < repetitions; i++) {
        released = false;
        whole = std::min(whole, pair_of_times::time_of([&] { p_callbacks->preview_ready(frame); }));
        require(released, "the frame doesn't go back");
        screen_stop(SCREEN_MAIN); // now nothing is shown
        turning = 0;
        const double all = pair_of_times::time_of([&] { p_callbacks->preview_ready(frame); });
        own = std::min(own, all - turning);
        screen_set_active(SCREEN_MAIN, 1);
        copy =
            std::min(copy, pair_of_times::time_of([&] { std::memcpy(to.data(), from.data(), frame_bytes); }));
    }
    return bench_row("viewfinder frame 640x480, against a copy of the panel", whole, copy, 1.5) +
           bench_figure("viewfinder frame, our own share", own / 1000, 20, "us");
}

} // namespace

int main()
{
    camconf_init();
    camconf_set_prd_spec(spec, 1);
    camera_init();
    camera_get_platform_callout()->start = [](std::uint32_t) { return 1; };
    camera_get_platform_callout()->stop = [] { return 1; };
    camera_start(1);
    int over = bench_blemish(1944, 1720, 0.25, true) + bench_blemish(640, 480, 0.4, false);
    over += bench_general("camg 1920x1080, corners of the chart, against OpenCV", true);
    over += bench_general("camg 1920x1080, corners of grey, against OpenCV", false);
    over += bench_frame();
    return over > 0 ? 1 : 0;
}
