// The chip's native commands, and the 30 bytes of parameters that it keeps: 14 pairs of an id and a value, an
// id of 0 for a free one, then two single bytes. False for a failed exchange or a status that isn't good.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "exchange.h"

namespace qxr5170jvk {

constexpr std::size_t BLOCK_SIZE = 30;
constexpr std::size_t CARD_ID_SIZE = 8;

using param_block = std::array<std::uint8_t, BLOCK_SIZE>;
using card_id = std::array<std::uint8_t, CARD_ID_SIZE>;

constexpr std::size_t BLOCK_SINGLE_BYTES = 28; // where they begin
constexpr std::uint32_t PARAM_VARIANT = 14;    // top two bits: the chip's variant

bool read_block(param_block& block);
bool write_block(const param_block& block);

// Gives the first pair that has the id, or is free, the id and the value; with all others taken nothing
// changes.
void block_set(param_block& block, std::uint32_t id, std::uint32_t value);

// The value of the last pair with the id; false when none has it.
bool block_get(const param_block& block, std::uint32_t id, std::uint8_t* p_value);

// One parameter of the block. One that the block lacks stays as it was; the variant's is 0 then.
bool get_parameter(std::uint32_t id, std::uint8_t* p_value);
bool set_parameter(std::uint32_t id, std::uint32_t value);

bool read_register(std::uint32_t reg, std::uint8_t* p_value);
bool write_register(std::uint32_t reg, std::uint32_t value);

bool challenge_baud_rate(std::uint8_t code);
bool read_baud_rate();
bool commit_baud_rate();

// The card side of the chip itself: its identifier, and the variant that it tells (0 when it tells none).
bool poll_own_card(card_id& id);
std::uint8_t ask_variant(const card_id& id);

// Whether a card answers through the antenna.
bool poll_through();

} // namespace qxr5170jvk
