// Single registers of the receiver's chip.
#pragma once

#include <cstdint>

// The chip's addresses.
constexpr unsigned ISDB_CONTROL = 104;
constexpr unsigned ISDB_WIDE = 105;
constexpr unsigned ISDB_NARROW = 106;

// 1, or 0 when the chip doesn't answer; a byte that can't be read stays as it was.
int isdb_reg_rd(unsigned slave, unsigned reg, std::uint8_t* p_byte);
int isdb_reg_wr(unsigned slave, unsigned reg, std::uint8_t byte);

// A register, 0 when it can't be read.
std::uint8_t isdb_reg(unsigned slave, unsigned reg);

// Gives the bits `mask` those of `value`. A register that can't be read isn't written either.
void isdb_reg_bits(unsigned slave, unsigned reg, unsigned mask, unsigned value);
