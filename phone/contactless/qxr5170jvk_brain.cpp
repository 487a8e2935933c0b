#include "contactless/qxr5170jvk_brain.h"

#include <algorithm>
#include <array>
#include <map>

#include "contactless/cards.h"
#include "contactless/frame_rules.h"
#include "core/text.h"

namespace phone {

namespace {

using bytes_of = std::vector<std::uint8_t>;
using command_bytes = std::span<const std::uint8_t>;

constexpr std::size_t block_size = 30;

// Status bytes of group F8.
constexpr std::uint8_t good = 0;
constexpr std::uint8_t refused = 1;
constexpr std::uint8_t unknown = 2;

constexpr std::array<std::uint8_t, 8> own_id = {0x01, 0x2E, 0x4C, 0x5A, 0x68, 0x76, 0x84, 0x92};
constexpr std::array<std::uint8_t, 8> own_system = {0x10, 0x21, 0x32, 0x43, 0x54, 0x65, 0x76, 0x87};
constexpr std::uint8_t own_variant = 1;

struct speed_row {
    std::uint8_t code;
    int speed;
};

// clang-format off
constexpr speed_row speeds[] = {
    { 20, 115200 },
    { 21, 230400 },
    { 22, 460800 },
};

// Pairs of an id and a value, free ones of 0, and two bytes of their own.
std::array<std::uint8_t, block_size> block = {
    0x01, 0x11, 0x02, 0x22, 0x05, 0x35, 0x06, 0x46, 0x0E, 0x15,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    0xC3, 0x3C,
};
// clang-format on

std::map<std::uint8_t, std::uint8_t> registers; // those that were written

std::uint8_t register_value(std::uint8_t reg)
{
    const auto found = registers.find(reg);
    return found != registers.end() ? found->second : reg ^ 0x5A;
}

bytes_of f9(std::uint8_t operation, std::uint8_t status, command_bytes data = {})
{
    bytes_of bytes = {0xF9, operation, status};
    bytes.insert(bytes.end(), data.begin(), data.end());
    return bytes;
}

native_answer challenge(command_bytes values)
{
    const auto row = std::ranges::find(speeds, values[0], &speed_row::code);
    if (row == std::end(speeds))
        return {f9(0x05, refused)};
    return {f9(0x05, good), row->speed};
}

// Group F8: the operation's code and as many bytes as it wants.
native_answer group_f8(std::uint8_t operation, command_bytes values, int speed)
{
    constexpr std::size_t wanted[] = {0, block_size, 0, 2, 1, 1, 0, 0};
    if (operation == 0 || operation >= std::size(wanted) || values.size() != wanted[operation])
        return {f9(operation, unknown)};
    switch (operation) {
    case 0x01:
        std::ranges::copy(values, block.begin());
        return {f9(operation, good)};
    case 0x02:
        return {f9(operation, good, block)};
    case 0x03:
        registers[values[0]] = values[1];
        return {f9(operation, good)};
    case 0x04: {
        const std::uint8_t value[] = {register_value(values[0])};
        return {f9(operation, good, value)};
    }
    case 0x05:
        return challenge(values);
    case 0x06: {
        const std::uint8_t code[] = {std::ranges::find(speeds, speed, &speed_row::speed)->code};
        return {f9(operation, good, code)};
    }
    default:
        return {f9(operation, good)};
    }
}

bytes_of own_card_answer()
{
    bytes_of bytes = {0x01};
    bytes.insert(bytes.end(), own_id.begin(), own_id.end());
    bytes.insert(bytes.end(), own_system.begin(), own_system.end());
    return bytes;
}

bytes_of variant_answer()
{
    bytes_of bytes = {0x03};
    bytes.insert(bytes.end(), own_id.begin(), own_id.end());
    bytes.insert(bytes.end(), {0x01, own_variant, 0x14});
    return bytes;
}

bool begins(command_bytes bytes, std::initializer_list<std::uint8_t> with)
{
    return bytes.size() >= with.size() && std::equal(with.begin(), with.end(), bytes.begin());
}

// Pipes. Responses are those of ETSI TS 102 622.
constexpr std::uint8_t any_ok = 0x80;
constexpr std::uint8_t any_not_connected = 0x81;
constexpr std::uint8_t any_par_unknown = 0x82;
constexpr std::uint8_t adm_no_pipes = 0x84;
constexpr std::uint8_t any_reg_par_unknown = 0x85;
constexpr std::uint8_t any_pipe_not_opened = 0x86;
constexpr std::uint8_t any_not_supported = 0x87;

constexpr std::uint8_t pipe_admin = 1;
constexpr std::uint8_t pipe_test = 2;
constexpr std::uint8_t first_created = 9;
constexpr std::uint8_t last_created = 0x6F;
constexpr std::uint8_t gate_identity = 0x05;
constexpr std::uint8_t gate_polling = 0x15;

struct created_pipe {
    std::uint8_t gate;
    bool open;
};

std::map<std::uint8_t, created_pipe> pipes;

bytes_of create_pipe(command_bytes values)
{
    if (values.size() != 3)
        return {any_par_unknown};
    std::uint8_t number = first_created;
    while (number <= last_created && pipes.contains(number))
        number++;
    if (number > last_created)
        return {adm_no_pipes};
    pipes[number] = {values[2], false};
    return {any_ok, 0x00, values[0], 0x00, values[2], number};
}

bytes_of admin_command(std::uint8_t instruction, command_bytes values)
{
    switch (instruction) {
    case 0x03:
    case 0x04:
        return {any_ok};
    case 0x10:
        return create_pipe(values);
    case 0x11:
        return {values.size() == 1 && pipes.erase(values[0]) > 0 ? any_ok : any_par_unknown};
    case 0x14:
        pipes.clear();
        return {any_ok};
    default:
        return {any_not_supported};
    }
}

bytes_of test_command(std::uint8_t instruction, command_bytes values)
{
    switch (instruction) {
    case 0x01:
        return {any_ok, 0x4A, 0x4B};
    case 0x09:
        if (values.size() != 1 || values[0] != 3)
            return {any_par_unknown};
        return secure_element_there() ? bytes_of{0x09, 0x00, 0x01, 0x10, 0x00, 0x03}
                                      : bytes_of{0x09, 0x00, 0x01, 0x01, 0x00};
    case 0x03:
    case 0x04:
    case 0x4B: // a setting of the radio
        return {any_ok};
    default:
        return {any_not_supported};
    }
}

bytes_of identity(command_bytes values)
{
    if (values.size() != 1 || values[0] < 1 || values[0] > 6)
        return {any_reg_par_unknown};
    const auto first = static_cast<std::uint8_t>(0x30 + values[0]);
    return {any_ok, first, static_cast<std::uint8_t>(first + 1), static_cast<std::uint8_t>(first + 2)};
}

bytes_of created_command(created_pipe& pipe, std::uint8_t instruction, command_bytes values)
{
    if (instruction == 0x03 || instruction == 0x04) {
        pipe.open = instruction == 0x03;
        return {any_ok};
    }
    if (!pipe.open)
        return {any_pipe_not_opened};
    if (pipe.gate == gate_identity && instruction == 0x02)
        return identity(values);
    if (pipe.gate == gate_polling && instruction == 0x61)
        return {any_ok, 0x81, 0x01, static_cast<std::uint8_t>(cards_there(0) > 0 ? 0x00 : 0xFF)};
    if (pipe.gate == gate_polling && instruction == 0x62)
        return {any_ok};
    return {any_not_supported};
}

bytes_of pipe_command(std::uint8_t pipe, std::uint8_t instruction, command_bytes values)
{
    if (pipe < pipe_test)
        return admin_command(pipe == pipe_admin || instruction == 0x03 ? instruction : 0xFF, values);
    if (pipe == pipe_test)
        return test_command(instruction, values);
    const auto found = pipes.find(pipe);
    return found != pipes.end() ? created_command(found->second, instruction, values)
                                : bytes_of{any_not_connected};
}

} // namespace

native_answer qxr5170jvk_native(command_bytes command, int speed)
{
    if (command.size() >= 2 && command[0] == 0xF8)
        return group_f8(command[1], command.subspan(2), speed);
    if (begins(command, {0x00, 0xFF, 0xFF, 0x01, 0x00}))
        return {own_card_answer()};
    if (command.size() == 12 && command[0] == 0x02 && std::ranges::equal(command.subspan(1, 8), own_id))
        return {variant_answer()};
    if (begins(command, {0xCC, 0x11}))
        return {bytes_of{0xCD, 0x11, 0x00, static_cast<std::uint8_t>(cards_there('f') > 0 ? 0 : 1)}};
    return {};
}

std::optional<bytes_of> qxr5170jvk_hci(command_bytes bytes)
{
    if (bytes.size() < 2)
        return {};
    bytes_of answer = pipe_command(bytes[0] & 0x7F, bytes[1], bytes.subspan(2));
    answer.insert(answer.begin(), static_cast<std::uint8_t>(0x80 | bytes[0]));
    return answer;
}

void qxr5170jvk_forget_pipes()
{
    pipes.clear();
}

std::string qxr5170jvk_word_reg(request& rq)
{
    const auto reg = rq.args.size() > 1 ? hex_number(rq.args[1]) : std::nullopt;
    if (rq.args.size() > 3 || !reg || *reg > 0xFF)
        return "reg, a register of one byte in hexadecimal and perhaps a value are wanted";
    if (rq.args.size() == 2) {
        rq.answer = hex_digits(register_value(static_cast<std::uint8_t>(*reg)), 2);
        return {};
    }
    const auto value = hex_number(rq.args[2]);
    if (!value || *value > 0xFF)
        return "a hexadecimal value of one byte is wanted, not \"" + rq.args[2] + "\"";
    registers[static_cast<std::uint8_t>(*reg)] = static_cast<std::uint8_t>(*value);
    return {};
}

std::string qxr5170jvk_word_block(request& rq)
{
    if (rq.args.size() == 1) {
        rq.answer = to_hex(block.data(), block.size());
        return {};
    }
    const auto bytes = hex_bytes(rq.args[1]);
    if (rq.args.size() > 2 || !bytes || bytes->size() != block_size)
        return "30 bytes in hexadecimal are wanted";
    std::ranges::copy(*bytes, block.begin());
    return {};
}

} // namespace phone
