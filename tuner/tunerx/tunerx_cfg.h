// Configuration of the chip's outputs and events: records of values and masks that stand for bits of many
// registers. It says which bits are where, not what they mean. Needs a chip with supply; events need it
// initialised.
#pragma once

#include <cstdint>

// Outputs. With both masks 0 the values are read; else each field with a bit in its mask is written whole and
// all registers are written back. 0 or -1.
struct tunerx_pctl {
    std::uint32_t value[2];
    std::uint32_t mask[2];
};
int tunerx_cfg_pctl(tunerx_pctl& record);

// Stream outputs, `kind` 1 to 3: eight registers, lowest byte first (seven for kinds 1 and 2). With both
// masks 0 they are read; else the bits of the masks are written. 0, 258 for another kind, -1.
struct tunerx_tsout {
    int kind;
    std::uint32_t value[2];
    std::uint32_t mask[2];
};
int tunerx_cfg_tsout(tunerx_tsout& record);

constexpr int TUNERX_EVENT_DEFINE = 0;
constexpr int TUNERX_EVENT_REMOVE = 1;

// Events of a path. `word`: bits 7 to 0 the group, 11 to 8 a second group, 24 to 20 the parameter, 25 an
// option, 26 the path (0 wide, 1 narrow). 0; 258 for a group that has no place or another action; 259; -1.
int tunerx_set_event(std::uint32_t word, int action);
