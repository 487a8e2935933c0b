// Transmission control data and the sync word: bits of a row of registers gathered into words.
#include <span>

#include "fields.h"
#include "moni_state.h"
#include "tunerx/tunerx.h"
#include "tunerx/tunerx_moni.h"
#include "unit.h"

namespace {

// Bits of the register E0, E1, ... and where they go.
struct gather_row {
    std::uint8_t word;
    std::uint8_t first; // lowest bit in the word
    std::uint8_t width;
    std::uint8_t e;   // which register
    std::uint8_t bit; // lowest bit in it
};

// clang-format off
constexpr gather_row tmcc_rows[] = {
    // word first width  E  bit
    { 0,     0,   2,     0, 5 },   // system identifier
    { 0,     2,   4,     0, 1 },   // switching countdown
    { 0,     6,   1,     0, 0 },   // emergency flag
    { 0,     7,   1,     1, 6 },   // partial reception flag
    { 0,     8,   3,     1, 3 },   // layer A modulation
    { 0,    11,   3,     3, 3 },   // layer B modulation
    { 0,    14,   3,     5, 3 },   // layer C modulation
    { 0,    17,   3,     1, 0 },   // layer A code rate
    { 0,    20,   3,     3, 0 },   // layer B code rate
    { 0,    23,   3,     5, 0 },   // layer C code rate
    { 1,     0,   3,     2, 4 },   // layer A interleave length
    { 1,     3,   3,     4, 4 },   // layer B interleave length
    { 1,     6,   3,     6, 4 },   // layer C interleave length
    { 1,     9,   4,     2, 0 },   // layer A segment count
    { 1,    13,   4,     4, 0 },   // layer B segment count
    { 1,    17,   4,     6, 0 },   // layer C segment count
    { 1,    21,   3,     7, 0 },   // transmission extra bits; 0 when narrow
};
constexpr std::uint32_t TMCC_NARROW = 1u << 24; // in word 1

constexpr gather_row sync_wide_rows[] = {
    // word first width  E  bit
    { 0,     0,   2,     0, 2 },
    { 0,     2,   2,     0, 0 },
    { 0,     4,   2,     0, 4 },
    { 0,     6,   1,     1, 7 },
    { 0,     7,   1,     1, 6 },
    { 0,     8,   1,     1, 5 },
    { 0,     9,   1,     1, 4 },
    { 0,    10,   4,     1, 0 },
    { 0,    14,   1,     2, 2 },
    { 0,    15,   1,     2, 1 },
    { 0,    16,   1,     2, 0 },
    { 0,    17,   1,     3, 7 },
    { 0,    18,   1,     3, 6 },
    { 0,    19,   1,     3, 5 },
    { 0,    20,   1,     3, 4 },
    { 0,    21,   1,     3, 3 },
    { 0,    22,   1,     3, 2 },
    { 0,    23,   1,     3, 1 },
    { 0,    24,   1,     3, 0 },
    { 0,    25,   1,     2, 7 },
};

// Bits 0 and 1 are a number, which counts from 1 here: the row gives 0 or 1, SYNC_NARROW_BASE the rest.
constexpr gather_row sync_narrow_rows[] = {
    { 0,     0,   1,     0, 2 },
    { 0,     2,   2,     0, 0 },
    { 0,     6,   1,     1, 7 },
    { 0,     7,   1,     1, 6 },
    { 0,     8,   1,     1, 5 },
    { 0,     9,   1,     1, 4 },
    { 0,    10,   3,     1, 0 },
    { 0,    19,   1,     3, 0 },
    { 0,    20,   1,     3, 4 },
    { 0,    21,   1,     3, 7 },
    { 0,    23,   1,     3, 1 },
    { 0,    26,   1,     0, 5 },
    { 0,    27,   1,     1, 3 },
    { 0,    28,   1,     2, 7 },
};
constexpr std::uint32_t SYNC_NARROW_BASE = 1;
constexpr std::uint32_t SYNC_NARROW      = 1u << 29;
// clang-format on

void gather(std::span<const gather_row> rows, std::span<const std::uint8_t> e, std::uint32_t* p_words)
{
    for (const gather_row& row : rows)
        p_words[row.word] |= (e[row.e] >> row.bit & field_ones(row.width)) << row.first;
}

int read_row(unsigned unit, unsigned reg, std::span<std::uint8_t> e)
{
    for (std::uint8_t& value : e)
        if (unit_get(unit, reg++, value) != 0)
            return -1;
    return 0;
}

} // namespace

int tunerx_get_tmcc(std::uint32_t (&words)[2])
{
    const bool narrow = moni_is_narrow();
    if (!narrow && !moni_is_wide())
        return TUNERX_WRONG_STATE;
    std::uint8_t e[8] = {};
    if (narrow && unit_put(TUNER_C, 186, 0x80, 0x80) != 0)
        return -1;
    if (narrow ? read_row(TUNER_C, 139, std::span(e).first(7)) != 0 : read_row(TUNER_B, 160, e) != 0)
        return -1;
    words[0] = 0;
    words[1] = narrow ? TMCC_NARROW : 0;
    gather(tmcc_rows, e, words);
    return TUNERX_OK;
}

int tunerx_get_sync(std::uint32_t& word)
{
    if (!moni_is_tuned())
        return TUNERX_WRONG_STATE;
    const bool narrow = moni_is_narrow();
    std::uint8_t e[4];
    if (read_row(narrow ? TUNER_C : TUNER_B, narrow ? 134 : 148, e) != 0)
        return -1;
    word = 0;
    gather(narrow ? std::span<const gather_row>(sync_narrow_rows) : sync_wide_rows, e, &word);
    if (narrow)
        word = (word + SYNC_NARROW_BASE) | SYNC_NARROW;
    return TUNERX_OK;
}
