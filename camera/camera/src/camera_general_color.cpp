// The colour test: a white, a red, a green and a blue patch at fixed places of the frame.
#include "camera/camera_general.h"

#include <algorithm>
#include <array>

#include "camera_general_inner.h"

namespace {

enum { WHITE_SATURATION, WHITE_VALUE, FIRST_HUED, OF_A_HUED = 4, COLOR_PARAMS = FIRST_HUED + 3 * OF_A_HUED };
enum { HUE_CORRECTION, HUE_TOLERANCE, LEAST_SATURATION, LEAST_VALUE };

// clang-format off
constexpr std::uint8_t color_defaults[COLOR_PARAMS] = {
    // saturation at most, value at least
    25, 50,
    // hue correction, tolerance, saturation at least, value at least
    0, 20, 40, 50,   // red
    0, 20, 30, 30,   // green
    0, 20, 30, 20,   // blue
};
// clang-format on

// Places in per mille of the frame.
constexpr std::int64_t PATCH_X = 720;
constexpr std::int64_t PATCH_WIDTH = 100;
constexpr std::int64_t PATCH_HEIGHT = 125;
constexpr std::int64_t patch_y[] = {190, 360, 530, 700};
constexpr std::int32_t target_hue[] = {0, 120, 240};

constexpr std::uint32_t BAD_HUE = 0x10;
constexpr std::uint32_t BAD_SATURATION = 0x20;
constexpr std::uint32_t BAD_VALUE = 0x40;

std::array<cam_gen_param, COLOR_PARAMS> c_prm;

// The mean colour of a patch, edges included; black for one that leaves the picture or has no pixel.
cam_gen_rgb cam_gen_get_avgrgb(const cam_gen_data& data, std::int64_t x0, std::int64_t y0, std::int64_t x1,
                               std::int64_t y1)
{
    if (!cam_gen_is_inside(data, x0, y0) || !cam_gen_is_inside(data, x1, y1) || x1 < x0 || y1 < y0)
        return {0, 0, 0};
    std::uint64_t r = 0, g = 0, b = 0;
    for (std::int64_t y = y0; y <= y1; y++)
        for (std::int64_t x = x0; x <= x1; x++) {
            const cam_gen_rgb rgb = camera_general_get_rgb(
                data.planes, data.size, {static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)});
            r += rgb.r;
            g += rgb.g;
            b += rgb.b;
        }
    const auto pixels = static_cast<std::uint64_t>((x1 - x0 + 1) * (y1 - y0 + 1));
    const auto mean = [&](std::uint64_t sum) { return static_cast<std::uint8_t>(sum / pixels); };
    return {mean(r), mean(g), mean(b)};
}

std::uint32_t judge_white(const cam_gen_hsv& hsv)
{
    std::uint32_t bits = 0;
    if (hsv.saturation > c_prm[WHITE_SATURATION].value)
        bits |= cam_gen_part(BAD_SATURATION, 0);
    if (hsv.value < c_prm[WHITE_VALUE].value)
        bits |= cam_gen_part(BAD_VALUE, 0);
    return bits;
}

// Patch `i`, 1 red, 2 green, 3 blue.
std::uint32_t judge_hued(const cam_gen_hsv& hsv, std::uint32_t i)
{
    const cam_gen_param* p = &c_prm[FIRST_HUED + (i - 1) * OF_A_HUED];
    const auto hue = static_cast<std::int32_t>(hsv.hue + p[HUE_CORRECTION].value);
    const auto tolerance = static_cast<std::int32_t>(p[HUE_TOLERANCE].value);
    const std::int32_t lo = target_hue[i - 1] - tolerance, hi = target_hue[i - 1] + tolerance;
    std::uint32_t bits = 0;
    if (!(hue >= lo && hue <= hi) && !(hue >= lo + 360 && hue <= hi + 360))
        bits |= cam_gen_part(BAD_HUE, i);
    if (hsv.saturation < p[LEAST_SATURATION].value)
        bits |= cam_gen_part(BAD_SATURATION, i);
    if (hsv.value < p[LEAST_VALUE].value)
        bits |= cam_gen_part(BAD_VALUE, i);
    return bits;
}

std::uint8_t to_byte(std::int32_t value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

} // namespace

std::span<cam_gen_param> cam_gen_color_params()
{
    return c_prm;
}

void cam_gen_color_init()
{
    for (std::size_t i = 0; i < c_prm.size(); i++)
        c_prm[i] = {color_defaults[i], 0xFF};
}

cam_gen_rgb camera_general_get_rgb(const cam_gen_planes& planes, const cam_gen_size& size,
                                   const cam_gen_point& at)
{
    const std::ptrdiff_t i = std::ptrdiff_t{at.y} * size.width + at.x;
    const std::int32_t t = (planes.y[i] - 16) * 1192;
    const std::int32_t u = planes.u[i / 2] - 128, v = planes.v[i / 2] - 128;
    return {to_byte((t + 1634 * v) >> 10), to_byte((t - 833 * v - 400 * u) >> 10),
            to_byte((t + 2066 * u) >> 10)};
}

cam_gen_hsv camera_general_get_hsv(const cam_gen_rgb& rgb)
{
    const std::int32_t r = rgb.r, g = rgb.g, b = rgb.b;
    const std::int32_t mx = std::max({r, g, b}), d = mx - std::min({r, g, b});
    const auto part = [d](std::int32_t difference) {
        return static_cast<float>(difference) / static_cast<float>(d) * 60.0f;
    };
    float hue = 0;
    if (d == 0)
        hue = 0;
    else if (mx == r)
        hue = part(g - b) + (g < b ? 360.0f : 0.0f);
    else if (mx == g)
        hue = part(b - r) + 120.0f;
    else
        hue = part(r - g) + 240.0f;
    const auto percent = [](std::int32_t of, std::int32_t whole) {
        return static_cast<std::uint8_t>(
            whole == 0 ? 0.0f : static_cast<float>(of) / static_cast<float>(whole) * 100.0f);
    };
    return {static_cast<std::uint16_t>(hue), percent(d, mx), percent(mx, 255)};
}

std::uint32_t cam_gen_color_do_test(const cam_gen_data& data)
{
    if (data.frame_found == 0)
        return CAM_GEN_NO_FRAME;
    const cam_gen_size frame = cam_gen_frame(data);
    std::uint32_t bits = 0;
    for (std::uint32_t i = 0; i < std::size(patch_y); i++) {
        const std::int64_t x0 = data.corners[0].x + PATCH_X * frame.width / 1000;
        const std::int64_t y0 = data.corners[0].y + patch_y[i] * frame.height / 1000;
        const cam_gen_hsv hsv = camera_general_get_hsv(cam_gen_get_avgrgb(
            data, x0, y0, x0 + PATCH_WIDTH * frame.width / 1000, y0 + PATCH_HEIGHT * frame.height / 1000));
        bits |= i == 0 ? judge_white(hsv) : judge_hued(hsv, i);
    }
    return bits;
}
