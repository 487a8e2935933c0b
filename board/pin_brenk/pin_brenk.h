// The signals of the board "brenk": which line carries which, and with what polarity.
#pragma once

#include <cstdint>

#include "pin/pin.h"

// The selector for pin_map_set. All revisions have one map.
const pin_map_co* pin_brenk_co_get(std::uint8_t rev);
