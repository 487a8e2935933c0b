// The vibration motor behind its attribute, /sys/hvt/hvt-vib/vib: a voltage in millivolts turns it, and it
// shakes the phone. It is worked out for the moment that is asked for; nothing ticks.
#pragma once

#include "sensors/surroundings.h"

namespace phone {

// What the motor adds to an acceleration, in milli-g, at a time not before the last change of its voltage, as
// a sensor of a bandwidth shows it.
axes motor_shake(nanoseconds time, double bandwidth_hz);

void motor_attach();
void motor_seed();
void motor_start();

} // namespace phone
