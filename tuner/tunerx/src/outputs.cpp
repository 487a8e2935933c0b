// Outputs and events.
#include <array>
#include <iterator>

#include "tunerx/tunerx.h"
#include "tunerx/tunerx_cfg.h"
#include "unit.h"

namespace {

constexpr std::uint8_t A = TUNER_A;
constexpr std::uint8_t B = TUNER_B;
constexpr std::uint8_t C = TUNER_C;

// Bits of a record's word and where they stand in a register.
struct pctl_row {
    std::uint8_t word;
    std::uint8_t first; // lowest bit in the word
    std::uint8_t width;
    std::uint8_t unit;
    std::uint8_t reg;
    std::uint8_t bit; // lowest bit in the register
};

// clang-format off
constexpr pctl_row pctl_rows[] = {
    // word first width  unit  reg  bit
    { 0,     0,   4,     C,    232,  0 },
    { 0,     4,   2,     C,    248,  2 },
    { 0,     6,   2,     C,    248,  0 },
    { 0,     8,   1,     C,    197,  6 },
    { 0,     9,   1,     C,    197,  5 },
    { 0,    10,   1,     C,    197,  4 },
    { 0,    11,   1,     C,    197,  3 },
    { 0,    12,   1,     C,    197,  2 },
    { 0,    13,   1,     C,    197,  1 },
    { 0,    14,   1,     C,    197,  0 },
    { 0,    15,   1,     A,    172,  1 },
    { 0,    16,   1,     A,    172,  0 },
    { 0,    17,   1,     A,    172,  2 },
    { 0,    18,   2,     C,      8,  6 },
    { 0,    20,   1,     C,      8,  1 },
    { 0,    21,   2,     C,      8,  4 },
    { 0,    23,   2,     A,    180,  4 },
    { 0,    25,   1,     C,      8,  0 },
    { 0,    26,   1,     A,    180,  0 },
    { 1,     0,   8,     C,      5,  0 },
    { 1,     8,   8,     A,    182,  0 },
    { 1,    16,   8,     C,      6,  0 },
};

struct unit_reg {
    std::uint8_t unit;
    std::uint8_t reg;
};

constexpr unit_reg pctl_regs[] = {
    { C, 232 }, { C, 248 }, { C, 197 }, { A, 172 }, { C, 8 }, { A, 180 }, { C, 5 }, { A, 182 }, { C, 6 },
};

constexpr unit_reg tsout_1[] = {
    { B, 214 }, { B, 215 }, { B, 216 }, { B, 217 }, { B, 218 }, { B, 219 }, { B,  55 },
};
constexpr unit_reg tsout_2[] = {
    { C,   0 }, { C,   1 }, { C,   2 }, { C,   3 }, { C, 198 }, { C, 167 }, { C, 168 },
};
constexpr unit_reg tsout_3[] = {
    { C, 240 }, { C, 241 }, { C, 242 }, { C, 243 }, { C, 244 }, { C, 245 }, { C, 246 }, { C, 247 },
};

// Where a group of events has its parameter: bits of the parameter (or, behind it, the option) by register.
struct event_row {
    std::uint8_t group;
    std::uint8_t path;  // 0 wide, 1 narrow
    std::uint8_t first; // lowest bit of the parameter; OPTION for the option
    std::uint8_t width;
    std::uint8_t reg;   // of B for path 0, of C for path 1
    std::uint8_t bit;
};

constexpr std::uint8_t OPTION = 5; // bit 25 follows the parameter's five bits

constexpr event_row event_rows[] = {
    // group path  first width   reg  bit
    {   1,   0,    0,      3,    218,  3 },
    {   2,   0,    0,      3,    225,  0 },
    {   2,   1,    0,      3,    204,  0 },
    {   4,   0,    0,      3,    224,  0 },
    {   4,   0,    OPTION, 1,    224,  3 },
    {   4,   1,    0,      3,    203,  0 },
    {   4,   1,    OPTION, 1,    203,  3 },
    {   8,   0,    0,      5,    223,  0 },
    {   8,   0,    OPTION, 1,    223,  5 },
    {   8,   1,    0,      5,    202,  0 },
    {   8,   1,    OPTION, 1,    202,  5 },
    {  16,   0,    0,      4,    226,  0 },
    {  16,   1,    0,      4,    205,  0 },
    {  32,   0,    0,      3,    224,  4 },
    {  32,   1,    0,      2,    202,  6 },
    {  32,   1,    2,      3,    203,  4 },
    {  64,   0,    0,      3,    225,  3 },
    {  64,   1,    0,      3,    204,  3 },
    { 128,   0,    0,      4,    226,  4 },
    { 128,   1,    0,      4,    205,  4 },
};
// clang-format on

constexpr std::uint32_t ones(unsigned width)
{
    return (1u << width) - 1;
}

using pctl_values = std::array<std::uint8_t, std::size(pctl_regs)>;

std::uint8_t& value_of(pctl_values& values, const pctl_row& row)
{
    std::size_t i = 0;
    while (pctl_regs[i].unit != row.unit || pctl_regs[i].reg != row.reg)
        i++;
    return values[i];
}

std::span<const unit_reg> tsout_regs(int kind)
{
    switch (kind) {
    case 1:
        return tsout_1;
    case 2:
        return tsout_2;
    case 3:
        return tsout_3;
    default:
        return {};
    }
}

std::uint8_t byte_at(const std::uint32_t (&words)[2], std::size_t i)
{
    return static_cast<std::uint8_t>(words[i / 4] >> (i % 4 * 8));
}

int tsout_read(tunerx_tsout& record, std::span<const unit_reg> regs)
{
    record.value[0] = record.value[1] = 0;
    for (std::size_t i = 0; i < regs.size(); i++) {
        std::uint8_t value;
        if (unit_get(regs[i].unit, regs[i].reg, value) != 0)
            return -1;
        record.value[i / 4] |= static_cast<std::uint32_t>(value) << (i % 4 * 8);
    }
    return TUNERX_OK;
}

int define_event(std::uint32_t word, unsigned group, unsigned path)
{
    const unsigned unit = path == 0 ? B : C;
    const std::uint32_t parameter = word >> 20 & 0x3F; // with the option on top
    if (unit_put(unit, path == 0 ? 222 : 201, 0x01, 0x01) != 0)
        return -1;
    for (const event_row& row : event_rows) {
        if (row.group != group || row.path != path)
            continue;
        const std::uint32_t bits = parameter >> row.first & ones(row.width);
        if (unit_put(unit, row.reg, ones(row.width) << row.bit, bits << row.bit) != 0)
            return -1;
    }
    return TUNERX_OK;
}

bool is_group(unsigned group)
{
    return group != 0 && (group & (group - 1)) == 0;
}

} // namespace

int tunerx_cfg_pctl(tunerx_pctl& record)
{
    pctl_values values;
    for (std::size_t i = 0; i < values.size(); i++)
        if (unit_get(pctl_regs[i].unit, pctl_regs[i].reg, values[i]) != 0)
            return -1;
    const bool reads = record.mask[0] == 0 && record.mask[1] == 0;
    if (reads)
        record.value[0] = record.value[1] = 0;
    for (const pctl_row& row : pctl_rows) {
        const std::uint32_t bits = ones(row.width);
        std::uint8_t& value = value_of(values, row);
        if (reads)
            record.value[row.word] |= (value >> row.bit & bits) << row.first;
        else if ((record.mask[row.word] >> row.first & bits) != 0)
            value = static_cast<std::uint8_t>((value & ~(bits << row.bit)) |
                                              (record.value[row.word] >> row.first & bits) << row.bit);
    }
    for (std::size_t i = 0; !reads && i < values.size(); i++)
        if (unit_put(pctl_regs[i].unit, pctl_regs[i].reg, 0xFF, values[i]) != 0)
            return -1;
    return TUNERX_OK;
}

int tunerx_cfg_tsout(tunerx_tsout& record)
{
    const std::span<const unit_reg> regs = tsout_regs(record.kind);
    if (regs.empty())
        return TUNERX_BAD_ARGUMENT;
    if (record.mask[0] == 0 && record.mask[1] == 0)
        return tsout_read(record, regs);
    for (std::size_t i = 0; i < regs.size(); i++) {
        const std::uint8_t mask = byte_at(record.mask, i);
        if (mask != 0 && unit_put(regs[i].unit, regs[i].reg, mask, byte_at(record.value, i)) != 0)
            return -1;
    }
    return TUNERX_OK;
}

int tunerx_set_event(std::uint32_t word, int action)
{
    if (!tunerx_is_initialised())
        return TUNERX_WRONG_STATE;
    const unsigned group = word & 0xFF;
    const unsigned path = word >> 26 & 1;
    if (action == TUNERX_EVENT_DEFINE)
        return is_group(group) ? define_event(word, group, path) : TUNERX_BAD_ARGUMENT;
    if (action != TUNERX_EVENT_REMOVE || group == 0)
        return TUNERX_BAD_ARGUMENT;
    return unit_put(path == 0 ? B : C, path == 0 ? 222 : 201, group, 0);
}
