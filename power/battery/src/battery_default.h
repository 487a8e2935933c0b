// What `battery` has by itself: settings, and a reading for each slot that no driver fills. Inside of the
// module.
#pragma once

#include "battery/battery.h"

extern const battery_cfg battery_default_cfg;
extern const battery_co battery_default_co;

// The settings in force. From any thread.
battery_cfg battery_cfg_now();
