#include "contactless/pn65_hci.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "contactless/cards.h"
#include "contactless/frame_rules.h"
#include "core/text.h"

namespace phone {

namespace {

constexpr nanoseconds ns_per_ms = 1'000'000;
constexpr nanoseconds self_test_time = 20 * ns_per_ms;
constexpr nanoseconds single_wire_time = 30 * ns_per_ms;

using bytes_of = std::vector<std::uint8_t>;
using request_bytes = std::span<const std::uint8_t>;

// Responses, as ETSI TS 102 622 numbers them, with the bits of a response.
enum : std::uint8_t {
    any_ok = 0x80,
    any_not_connected = 0x81,
    any_par_unknown = 0x82,
    adm_no_pipes = 0x84,
    any_reg_par_unknown = 0x85,
    any_pipe_not_opened = 0x86,
    any_not_supported = 0x87,
    any_reg_access_denied = 0x8A,
};

constexpr std::uint8_t pipe_link = 0;
constexpr std::uint8_t pipe_admin = 1;
constexpr std::uint8_t first_dynamic = 2;
constexpr std::uint8_t last_dynamic = 0x6F;
constexpr std::uint8_t gate_admin = 0x00;
constexpr std::uint8_t gate_identity = 0x05;
constexpr std::uint8_t gate_link = 0x06;
constexpr std::uint8_t gate_test = 0x90;

constexpr std::uint8_t type_bits = 0xC0;
constexpr std::uint8_t type_event = 0x40;
constexpr std::uint8_t event_poll = 0x50;
constexpr std::uint8_t several_cards = 0x03;

struct pipe_state {
    std::uint8_t gate;
    bool open;
};

struct kind_row {
    char kind;
    std::uint8_t gate;
};

// clang-format off
constexpr kind_row kinds[] = {
    { 'a', 0x13 },
    { 'b', 0x11 },
    { 'f', 0x14 },
    { 'v', 0x12 },
};
// clang-format on

// The identity gate's parameters, from 1.
const bytes_of identity[] = {
    {0x0A, 0x1C, 0x33},       // version of the software
    {0x02},                   // version of the standard
    {0x5E, 0x06, 0x81},       // version of the hardware
    {0x48, 0x56, 0x54},       // vendor
    {0x65},                   // model
    {0x03, 0x04, 0x11, 0x90}, // gates
};

std::map<std::uint8_t, pipe_state> pipes;
std::map<std::pair<std::uint8_t, std::uint8_t>, bytes_of> registry; // by gate and number
std::map<std::uint16_t, std::uint8_t> registers;                    // those that were written

bool gate_has_pipe(std::uint8_t gate)
{
    return std::ranges::any_of(pipes, [gate](const auto& p) { return p.second.gate == gate; });
}

std::uint8_t register_value(std::uint16_t reg)
{
    const auto found = registers.find(reg);
    return found != registers.end() ? found->second : static_cast<std::uint8_t>((reg >> 8) + reg);
}

// Source gate, host and gate of the other side.
bytes_of create_pipe(request_bytes values)
{
    if (values.size() != 3)
        return {any_par_unknown};
    std::uint8_t number = first_dynamic;
    while (number <= last_dynamic && pipes.contains(number))
        number++;
    if (number > last_dynamic)
        return {adm_no_pipes};
    pipes[number] = {values[2], false};
    return {any_ok, 0x00, values[0], 0x00, values[2], number};
}

bytes_of delete_pipe(request_bytes values)
{
    const bool there = values.size() == 1 && values[0] >= first_dynamic && pipes.erase(values[0]) > 0;
    return {there ? any_ok : any_par_unknown};
}

bytes_of set_parameter(std::uint8_t gate, request_bytes values)
{
    if (values.empty())
        return {any_par_unknown};
    if (gate == gate_identity)
        return {any_reg_access_denied};
    registry[{gate, values[0]}].assign(values.begin() + 1, values.end());
    return {any_ok};
}

bytes_of with_ok(const bytes_of& values)
{
    bytes_of answer = {any_ok};
    answer.insert(answer.end(), values.begin(), values.end());
    return answer;
}

bytes_of get_parameter(std::uint8_t gate, request_bytes values)
{
    if (values.size() != 1)
        return {any_par_unknown};
    const std::size_t number = values[0];
    if (gate == gate_identity && number >= 1 && number <= std::size(identity))
        return with_ok(identity[number - 1]);
    const auto found = registry.find({gate, values[0]});
    return found != registry.end() ? with_ok(found->second) : bytes_of{any_reg_par_unknown};
}

// Three bytes of address, the first of them 0.
std::optional<std::uint16_t> address(request_bytes values, std::size_t size)
{
    if (values.size() != size || values[0] != 0)
        return {};
    return static_cast<std::uint16_t>(values[1] << 8 | values[2]);
}

bytes_of read_register(request_bytes values)
{
    const auto reg = address(values, 3);
    return reg ? bytes_of{any_ok, register_value(*reg)} : bytes_of{any_par_unknown};
}

bytes_of write_register(request_bytes values)
{
    const auto reg = address(values, 4);
    if (!reg)
        return {any_par_unknown};
    registers[*reg] = values[3];
    return {any_ok};
}

// A command on the test gate; those that take their time are acknowledged first.
bytes_of test_command(std::uint8_t instruction, request_bytes values, nanoseconds& after)
{
    switch (instruction) {
    case 0x20:
        after = self_test_time;
        return {any_ok, 0x2E, 0x51, 0x74, 0x97};
    case 0x21:
        after = single_wire_time;
        return {any_ok, static_cast<std::uint8_t>(secure_element_there() ? 0x00 : 0x03)};
    case 0x3E:
        return read_register(values);
    case 0x3F:
        return write_register(values);
    default:
        return {any_not_supported};
    }
}

bytes_of admin_command(std::uint8_t instruction, request_bytes values)
{
    switch (instruction) {
    case 0x10:
        return create_pipe(values);
    case 0x11:
        return delete_pipe(values);
    case 0x14:
        pn65_hci_reset();
        return {any_ok};
    default:
        return {any_not_supported};
    }
}

bytes_of command(std::uint8_t pipe, std::uint8_t instruction, request_bytes values, nanoseconds& after)
{
    const auto found = pipes.find(pipe);
    if (found == pipes.end())
        return {any_not_connected};
    pipe_state& p = found->second;
    if (instruction == 0x03) {
        p.open = true;
        return {any_ok};
    }
    if (!p.open)
        return {any_pipe_not_opened};
    switch (instruction) {
    case 0x01:
        return set_parameter(p.gate, values);
    case 0x02:
        return get_parameter(p.gate, values);
    case 0x04:
        p.open = false;
        return {any_ok};
    default:
        if (p.gate == gate_test)
            return test_command(instruction, values, after);
        return pipe == pipe_admin ? admin_command(instruction, values) : bytes_of{any_not_supported};
    }
}

} // namespace

void pn65_hci_reset()
{
    pipes.clear();
    pipes[pipe_link] = {gate_link, false};
    pipes[pipe_admin] = {gate_admin, false};
}

hci_answer pn65_hci_request(request_bytes bytes)
{
    hci_answer answer;
    if (bytes.size() < 2)
        return answer;
    answer.pipe = bytes[0] & 0x7F;
    const std::uint8_t instruction = bytes[1];
    if ((instruction & type_bits) == 0) {
        answer.bytes = command(answer.pipe, instruction, bytes.subspan(2), answer.after);
        answer.bytes.insert(answer.bytes.begin(), static_cast<std::uint8_t>(0x80 | answer.pipe));
    } else if ((instruction & type_bits) == type_event) {
        answer.polls = instruction == event_poll && pipes.contains(answer.pipe);
    }
    return answer;
}

std::vector<std::uint8_t> pn65_hci_card_event(std::uint8_t pipe)
{
    int found = 0;
    for (const kind_row& row : kinds)
        if (gate_has_pipe(row.gate))
            found += cards_there(row.kind);
    if (found == 0)
        return {};
    const std::uint8_t count = found > 1 ? several_cards : 0x00;
    return {static_cast<std::uint8_t>(0x80 | pipe), event_poll, count};
}

std::string pn65_hci_word_reg(request& rq)
{
    const auto reg = rq.args.size() > 1 ? hex_number(rq.args[1]) : std::nullopt;
    if (rq.args.size() > 3 || !reg || *reg > 0xFFFF)
        return "reg, a register of at most four hexadecimal digits and perhaps a value are wanted";
    if (rq.args.size() == 2) {
        rq.answer = hex_digits(register_value(static_cast<std::uint16_t>(*reg)), 2);
        return {};
    }
    const auto value = hex_number(rq.args[2]);
    if (!value || *value > 0xFF)
        return "a hexadecimal value of one byte is wanted, not \"" + rq.args[2] + "\"";
    registers[static_cast<std::uint16_t>(*reg)] = static_cast<std::uint8_t>(*value);
    return {};
}

} // namespace phone
