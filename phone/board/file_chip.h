// For chips whose registers have no published map: all 256 keep what is written, and the few that are known
// have their values.
#pragma once

#include <array>
#include <span>

#include "board/chip.h"

namespace phone {

constexpr std::array<reg_row, 256> whole_file(std::span<const reg_row> known)
{
    std::array<reg_row, 256> rows{};
    for (unsigned i = 0; i < rows.size(); i++)
        rows[i] = {static_cast<std::uint8_t>(i), 0x00, 0xFF};
    for (const reg_row& row : known)
        rows[row.addr] = row;
    return rows;
}

} // namespace phone
