// The pictures of the HDMI output at 1920 by 1080, with the end of the picture before and the setting of the
// video mode, against memset of the frame.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench_panel.h"
#include "hdmi/hdmi.h"
#include "hdmi_msm/hdmi_msm.h"
#include "row.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"

namespace {

constexpr int repetitions = 300;
constexpr std::uint32_t mode_1080 = 2;

struct picture {
    const char* name;
    std::uint32_t pattern;
};

constexpr picture pictures[] = {
    {"colour ramps", 1}, {"a grey ramp", HDMI_PATTERN_GREY}, {"white", HDMI_PATTERN_WHITE}};

void show(std::uint32_t pattern)
{
    if (hdmi_set_output_video(pattern, mode_1080) != 0) {
        std::fprintf(stderr, "no picture %u\n", pattern);
        std::exit(1);
    }
}

template <class Fn>
double time_ns(Fn fn)
{
    const auto from = std::chrono::steady_clock::now();
    fn();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - from).count();
}

// In turns, so that a busy machine slows both.
int compare(const picture& p, std::uint8_t* frame)
{
    static volatile int value = 0x5A;
    double measured = 1e18, wanted = 1e18;
    for (int i = 0; i < repetitions; i++) {
        wanted = std::min(wanted, time_ns([&] { std::memset(frame, value, frame_bytes); }));
        measured = std::min(measured, time_ns([&] { show(p.pattern); }));
    }
    return bench_row(p.name, measured, wanted, 1.3);
}

} // namespace

int main()
{
    static_assert(frame_bytes == 1920 * 1080 * 4);
    bench_panel(1);
    hdmi_init();
    hdmi_msm_init();
    if (hdmi_start() != 0)
        return 1;
    show(HDMI_PATTERN_WHITE);
    int over = 0;
    for (const picture& p : pictures)
        over += compare(p, screen_linux_get_screen_info(SCREEN_HDMI)->map_base);
    return over != 0;
}
