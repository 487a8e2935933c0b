// The solarization test: a grey ramp down the frame has to stay near a smooth curve. Where the sensor's curve
// turns back, bright places come out dark.
#include "camera/camera_general.h"

#include <array>
#include <cmath>

#include "camera_general_inner.h"
#include "camera_inner.h"

namespace {

constexpr std::uint32_t ABOVE = 15;
constexpr std::uint32_t BELOW = 20;

// Places as parts of the frame.
constexpr float LINE_AT = 0.28f;
constexpr float LINE_START = 0.25f;
constexpr float LINE_END = 0.75f;

constexpr std::uint32_t TOO_HIGH = 2;
constexpr std::uint32_t TOO_SHORT = 3;
constexpr std::uint32_t NO_MEMORY = 4;
constexpr std::uint32_t LEAVES_CURVE = 5;

constexpr double HALF_TURN = 3.14159;
constexpr double WHOLE_TURN = 6.28318;

std::array<cam_gen_param, 2> s_prm;

cam_gen_point between(const cam_gen_point& a, const cam_gen_point& b, float t)
{
    const auto part = [t](std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(static_cast<float>(from) * (1.0f - t) + static_cast<float>(to) * t);
    };
    return {part(a.x, b.x), part(a.y, b.y)};
}

// The ramp's samples from start to end, each the mean of five rows; `d` + 1 of them.
void read_ramp(const cam_gen_data& data, const cam_gen_point& start, const cam_gen_point& end,
               std::uint8_t* ramp)
{
    const std::int32_t d = end.y - start.y;
    for (std::int32_t i = 0; i <= d; i++) {
        const std::int64_t x = start.x + std::int64_t{end.x - start.x} * i / d;
        std::uint32_t sum = 0;
        for (std::int64_t y = start.y + i - 2; y <= start.y + i + 2; y++)
            sum += cam_gen_y_at(data, x, y);
        ramp[i] = static_cast<std::uint8_t>(sum / 5);
    }
}

// The curve that the ramp is held against: a line, bowed by a half and by a whole sine.
struct curve {
    std::int32_t start, rise, d;
    double bow, swing;

    double operator()(std::int32_t i) const
    {
        return std::sin(i * WHOLE_TURN / d) * swing + std::sin(i * HALF_TURN / d) * bow;
    }
    std::int32_t line(std::int32_t i) const { return rise * i / d + start; }
};

curve fit(const std::uint8_t* ramp, const std::uint8_t* smooth, std::int32_t d)
{
    const std::int32_t s0 = ramp[0], rise = ramp[d] - ramp[0];
    // A ramp of fewer than five samples has no quarter points of its own.
    const auto at = [&](std::int32_t i) -> std::int32_t { return smooth[i > 0 ? i - 1 : 0]; };
    const std::int32_t bow = at(d / 2) - (s0 + rise / 2);
    const std::int32_t first = at(d / 4) - (s0 + rise / 4);
    const std::int32_t third = (s0 + 3 * rise / 4) - at(3 * d / 4);
    return {s0, rise, d, static_cast<double>(bow), (first + third) / 2.0};
}

bool stays_near(const std::uint8_t* ramp, const curve& c)
{
    for (std::int32_t i = 0; i <= c.d; i++) {
        const double off = c(i);
        const auto upper = static_cast<std::int32_t>(c.line(i) + static_cast<double>(s_prm[0].value) + off);
        const auto lower = static_cast<std::int32_t>(c.line(i) - static_cast<double>(s_prm[1].value) + off);
        if (ramp[i] > upper || ramp[i] < lower)
            return false;
    }
    return true;
}

} // namespace

std::span<cam_gen_param> cam_gen_solarization_params()
{
    return s_prm;
}

void cam_gen_solarization_init()
{
    s_prm = {{{ABOVE, 0xFF}, {BELOW, 0xFF}}};
}

std::uint32_t cam_gen_solarization_do_test(const cam_gen_data& data)
{
    if (data.frame_found == 0)
        return CAM_GEN_NO_FRAME;
    const cam_gen_point* c = data.corners;
    const cam_gen_point top = between(c[0], c[1], LINE_AT), bottom = between(c[2], c[3], LINE_AT);
    const cam_gen_point start = between(top, bottom, LINE_START), end = between(top, bottom, LINE_END);
    if (2 * start.y < 6)
        return TOO_HIGH;
    const std::int32_t d = end.y - start.y;
    if (d + 1 < 3)
        return TOO_SHORT;
    const camera_bytes ramp = camera_alloc(static_cast<std::size_t>(d) + 1);
    const camera_bytes smooth = camera_alloc(static_cast<std::size_t>(d) - 1);
    if (ramp == nullptr || smooth == nullptr)
        return NO_MEMORY;
    read_ramp(data, start, end, ramp.get());
    for (std::int32_t i = 0; i <= d - 2; i++)
        smooth.get()[i] =
            static_cast<std::uint8_t>((ramp.get()[i] + ramp.get()[i + 1] + ramp.get()[i + 2]) / 3);
    return stays_near(ramp.get(), fit(ramp.get(), smooth.get(), d)) ? 0 : LEAVES_CURVE;
}
