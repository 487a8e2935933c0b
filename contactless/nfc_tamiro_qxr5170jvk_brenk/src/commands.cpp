#include "commands.h"

#include <algorithm>

namespace qxr5170jvk {

namespace {

constexpr std::size_t PAIRS = 14;
constexpr std::size_t STATUS_AT = 2;
constexpr std::size_t DATA_AT = 3;
constexpr std::size_t CARD_ID_AT = 1;

// clang-format off
constexpr std::uint8_t set_parameter_req_packet[]      = { 0xF8, 0x01 };       // and the 30 bytes
constexpr std::uint8_t get_parameter_req_packet[]      = { 0xF8, 0x02 };
constexpr std::uint8_t set_register_req_packet[]       = { 0xF8, 0x03, 0, 0 }; // register, value
constexpr std::uint8_t get_register_req_packet[]       = { 0xF8, 0x04, 0 };    // register
constexpr std::uint8_t challenge_baud_rate_req_packet[] = { 0xF8, 0x05, 0 };   // code
constexpr std::uint8_t get_baud_rate_req_packet[]      = { 0xF8, 0x06 };
constexpr std::uint8_t commit_baud_rate_req_packet[]   = { 0xF8, 0x07 };
constexpr std::uint8_t polling_req_packet[]            = { 0x00, 0xFF, 0xFF, 0x01, 0x00 };
constexpr std::uint8_t comm_thru_polling_req_packet[]  = { 0xCC, 0x11, 0x64, 0x00, 0x06,
                                                           0x00, 0xFF, 0xFF, 0x00, 0x00 };
constexpr std::uint8_t variant_req_packet[]            = { 0x02, 0, 0, 0, 0, 0, 0, 0, 0, // identifier
                                                           0x01, 0xFF, 0xFF };
// clang-format on

// A command of group F8: its status is 0 and at least `data` bytes follow it.
bool command(std::span<const std::uint8_t> bytes, std::size_t data, reply& r)
{
    return qxr5170jvk_tamiro_send(bytes, r) && r.length >= DATA_AT + data && r.at(STATUS_AT) == 0;
}

} // namespace

bool read_block(param_block& block)
{
    reply r;
    if (!command(get_parameter_req_packet, BLOCK_SIZE, r))
        return false;
    std::copy_n(r.bytes.begin() + DATA_AT, BLOCK_SIZE, block.begin());
    return true;
}

bool write_block(const param_block& block)
{
    std::array<std::uint8_t, sizeof set_parameter_req_packet + BLOCK_SIZE> bytes;
    const auto end = std::ranges::copy(set_parameter_req_packet, bytes.begin()).out;
    std::ranges::copy(block, end);
    reply r;
    return command(bytes, 0, r);
}

void block_set(param_block& block, std::uint32_t id, std::uint32_t value)
{
    for (std::size_t i = 0; i < PAIRS; i++) {
        if (block[2 * i] != id && block[2 * i] != 0)
            continue;
        block[2 * i] = static_cast<std::uint8_t>(id);
        block[2 * i + 1] = static_cast<std::uint8_t>(value);
        return;
    }
}

bool block_get(const param_block& block, std::uint32_t id, std::uint8_t* p_value)
{
    bool found = false;
    for (std::size_t i = 0; i < PAIRS; i++) {
        if (block[2 * i] != id)
            continue;
        *p_value = block[2 * i + 1];
        found = true;
    }
    return found;
}

bool get_parameter(std::uint32_t id, std::uint8_t* p_value)
{
    param_block block;
    if (!read_block(block))
        return false;
    if (!block_get(block, id, p_value) && id == PARAM_VARIANT)
        *p_value = 0;
    return true;
}

bool set_parameter(std::uint32_t id, std::uint32_t value)
{
    param_block block;
    if (!read_block(block))
        return false;
    block_set(block, id, value);
    return write_block(block);
}

bool read_register(std::uint32_t reg, std::uint8_t* p_value)
{
    auto bytes = std::to_array(get_register_req_packet);
    bytes[2] = static_cast<std::uint8_t>(reg);
    reply r;
    if (!command(bytes, 1, r))
        return false;
    *p_value = r.at(DATA_AT);
    return true;
}

bool write_register(std::uint32_t reg, std::uint32_t value)
{
    auto bytes = std::to_array(set_register_req_packet);
    bytes[2] = static_cast<std::uint8_t>(reg);
    bytes[3] = static_cast<std::uint8_t>(value);
    reply r;
    return command(bytes, 0, r);
}

bool challenge_baud_rate(std::uint8_t code)
{
    constexpr std::uint8_t REFUSED = 1;
    auto bytes = std::to_array(challenge_baud_rate_req_packet);
    bytes[2] = code;
    reply r;
    return qxr5170jvk_tamiro_send(bytes, r) && r.length > STATUS_AT && r.at(STATUS_AT) != REFUSED;
}

bool read_baud_rate()
{
    reply r;
    return command(get_baud_rate_req_packet, 1, r);
}

bool commit_baud_rate()
{
    reply r;
    return command(commit_baud_rate_req_packet, 0, r);
}

bool poll_own_card(card_id& id)
{
    reply r;
    if (!qxr5170jvk_tamiro_send(polling_req_packet, r) || r.length < CARD_ID_AT + CARD_ID_SIZE)
        return false;
    std::copy_n(r.bytes.begin() + CARD_ID_AT, CARD_ID_SIZE, id.begin());
    return true;
}

std::uint8_t ask_variant(const card_id& id)
{
    constexpr std::size_t VARIANT_AT = 10, MARK_AT = 11;
    constexpr std::uint8_t MARK = 20;
    auto bytes = std::to_array(variant_req_packet);
    std::ranges::copy(id, bytes.begin() + 1);
    reply r;
    if (!qxr5170jvk_tamiro_send(bytes, r) || r.length <= MARK_AT || r.at(MARK_AT) != MARK)
        return 0;
    const std::uint8_t variant = r.at(VARIANT_AT);
    return variant == 1 || variant == 2 ? variant : 0;
}

bool poll_through()
{
    constexpr std::size_t FOUND_AT = 3; // 0 for a card
    reply r;
    return qxr5170jvk_tamiro_send(comm_thru_polling_req_packet, r) && r.length > FOUND_AT &&
           r.at(FOUND_AT) == 0;
}

} // namespace qxr5170jvk
