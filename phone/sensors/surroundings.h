// What is true around the phone, in physical units: how it lies and turns, the magnetic field through it, the
// light on its panel, what is near it; and what is wrong with its motion chips. The bench sets it by words of
// the control port; the chips derive their registers from it. Axes are x to the right, y up the panel, z out
// of it. Any thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "core/clock.h"

namespace phone {

using axes = std::array<double, 3>;

enum class motion_chip { accel, gyro, compass };
enum class chip_health { good, stuck, silent };

axes surroundings_pose();                  // milli-g, as an accelerometer lying still would read
axes surroundings_turn();                  // degrees a second
axes surroundings_magnet();                // microtesla
double surroundings_light();               // lux
std::optional<double> surroundings_near(); // mm to a grey card; nothing when there is none
chip_health surroundings_health(motion_chip which);

// The steps by which a reading differs from the truth at a time: two at most, none when the phone doesn't
// tremble. The same for the same time, chip and axis.
double surroundings_noise(motion_chip which, std::size_t axis, nanoseconds time);

// Has `fn` called, with nothing locked, before anything of this changes: who works out later what happened
// until now does it then. Only while devices attach.
void surroundings_before_change(void (*fn)());

// For the devices that change what the chips feel.
void surroundings_changes();

void surroundings_attach();
void surroundings_start();

} // namespace phone
