// Registers by the chip's units (TUNER_A to TUNER_C) instead of addresses, for tables and steps; and the one
// way of waiting for the chip.
#pragma once

#include <cstdint>
#include <span>

// Bits `mask` of a register get those of `value`, which stand at their places.
struct unit_bits {
    std::uint8_t unit;
    std::uint8_t reg;
    std::uint8_t mask;
    std::uint8_t value;
};

// The entries of one group, in their order; the first that fails ends it. 0 or -1.
int unit_write(std::span<const unit_bits> group);
int unit_put(unsigned unit, unsigned reg, unsigned mask, unsigned value);

// A register. 0, or -1 and `value` as it was.
int unit_get(unsigned unit, unsigned reg, std::uint8_t& value);

// `bytes` registers from `reg` on, highest byte first, as one number. 0 or -1.
int unit_get_number(unsigned unit, unsigned reg, unsigned bytes, std::uint32_t& value);

constexpr int UNIT_TIME_OVER = 1;
constexpr unsigned UNIT_PAUSE_MS = 10; // of a poll that has no period of its own

// Reads a register until all bits of `wanted` are set or `limit_ms` are over, with `period_ms` between while
// the block's wait flag is on. 0; UNIT_TIME_OVER; -1. `value` is the last reading.
int unit_poll(unsigned unit, unsigned reg, unsigned wanted, unsigned period_ms, unsigned limit_ms,
              std::uint8_t& value);

// Whether a poll that began at `start_ms` goes on; sleeps its period if so.
bool unit_poll_goes_on(std::uint64_t start_ms, unsigned period_ms, unsigned limit_ms);
