// The calibration items of the board "brenk": which persistent unit holds which.
#pragma once

#include <cstdint>

#include "trim/trim.h"

// The selector for trim_map_set. All revisions have one map.
const trim_map_co* trim_brenk_co_get(std::uint8_t rev);
