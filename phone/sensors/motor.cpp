#include "sensors/motor.h"

#include <cmath>
#include <mutex>
#include <numbers>
#include <string>

#include "core/files.h"
#include "core/home.h"
#include "core/text.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr const char* vib_path = "/sys/hvt/hvt-vib/vib";
constexpr double hz_per_mv = 7.0 / 120;
constexpr double time_constant_s = 0.040;
constexpr double rated_hz = 175; // at 3000 mV
constexpr axes rated_mg = {900, 620, 140};

// Since the last change of the voltage.
struct run {
    nanoseconds since = 0;
    double turned = 0; // radians, until then
    double from_hz = 0;
    double to_hz = 0;
};

struct rotor {
    double hz;
    double turned;
};

std::mutex motor_mutex; // guards `last`
run last;

rotor at(const run& r, nanoseconds time)
{
    const double t = static_cast<double>(time - r.since) * 1e-9;
    const double left = std::exp(-t / time_constant_s);
    const double difference = r.from_hz - r.to_hz;
    const double turns = r.to_hz * t + difference * time_constant_s * (1 - left);
    return {r.to_hz + difference * left, r.turned + 2 * std::numbers::pi * turns};
}

void set_voltage(double mv)
{
    surroundings_changes();
    const nanoseconds time = clock_now(CLOCK_MONOTONIC);
    const std::lock_guard lock(motor_mutex);
    const rotor r = at(last, time);
    last = {time, std::fmod(r.turned, 2 * std::numbers::pi), r.hz, mv * hz_per_mv};
}

void take_text(std::string_view text)
{
    if (const auto mv = number(trimmed(text)))
        set_voltage(static_cast<double>(*mv));
    else
        strange(std::string("write ") + vib_path + " \"" + escaped(text) + "\"");
}

void after_write(std::string_view, std::string_view text)
{
    take_text(text);
}

constexpr attribute vib_attribute = {.after_write = after_write};

} // namespace

axes motor_shake(nanoseconds time, double bandwidth_hz)
{
    rotor r;
    {
        const std::lock_guard lock(motor_mutex);
        r = at(last, time);
    }
    const double speed = r.hz / rated_hz;
    const double filter = 1 + (r.hz / bandwidth_hz) * (r.hz / bandwidth_hz);
    const double share = speed * speed / filter;
    const double in_phase = share * std::sin(r.turned);
    const double behind = share * std::sin(r.turned - std::numbers::pi / 2);
    return {rated_mg[0] * in_phase, rated_mg[1] * behind, rated_mg[2] * in_phase};
}

void motor_attach()
{
    attribute_add(vib_path, &vib_attribute);
}

void motor_seed()
{
    home_seed(vib_path, "0\n");
    home_seed("/system/hvtdebug/", "");
}

void motor_start()
{
    std::string text;
    if (file_read(vib_path, text))
        take_text(text);
}

} // namespace phone
