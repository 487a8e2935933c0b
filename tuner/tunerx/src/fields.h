// Value and mask records against registers: a table row a field.
#pragma once

#include <cstdint>
#include <span>

#include "tunerx/tunerx_moni.h"

struct field_row {
    std::uint8_t first; // lowest bit in the record
    std::uint8_t width;
    std::uint8_t unit;
    std::uint8_t reg;
    std::uint8_t bit; // lowest bit in the register
    bool read_only = false;
};

// Reads or writes the record as tunerx_field_record says. 0 or -1.
int fields_access(std::span<const field_row> rows, tunerx_field_record& record);

constexpr std::uint32_t field_ones(unsigned width)
{
    return (1u << width) - 1;
}
