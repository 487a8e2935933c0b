// Which half of the chip the monitors read.
#pragma once

#include "tunerx/tunerx.h"

inline bool moni_is_narrow()
{
    return tunXParams.state == TUNER_NARROW;
}

inline bool moni_is_wide()
{
    return tunXParams.state == TUNER_WIDE || tunXParams.state == TUNER_WIDE_THIRD;
}

// Initialised, and tuned to one of them.
inline bool moni_is_tuned()
{
    return tunerx_is_initialised() && (tunXParams.state & 0x30) != 0;
}
