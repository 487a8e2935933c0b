#include "radio/hci_controller.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>

#include "core/watch.h"

namespace phone {

namespace {

enum : std::uint8_t { status_ok = 0x00, unknown_command = 0x01, invalid_parameters = 0x12 };

constexpr std::uint8_t event_command_complete = 0x0E;
constexpr std::uint8_t event_vendor = 0xFF;
constexpr std::size_t command_head = 4; // type, opcode, length

using parameters = std::span<const std::uint8_t>;

constexpr std::uint8_t address[] = {0x5C, 0x8E, 0x2D, 0x90, 0x76, 0x00};
constexpr std::uint8_t version[] = {0x06, 0x17, 0x2B, 0x06, 0x1D, 0x00, 0x41, 0x3C};
constexpr std::uint8_t configuration[] = {0x00, 0x11, 0x22, 0x33, 0x44};
constexpr std::uint8_t pins[] = {0x0B, 0x03, 0x02, 0x1A, 0x00, 0x03, 0x2B, 0x00, 0x04, 0x3C, 0x00};
constexpr std::string_view revision("BTFM 4.1.7 KORVAT", 18); // with its NUL

constexpr std::uint16_t le_packets = 0x05CF;

// What the receiver counts: five blocks of eight words.
constexpr std::size_t blocks = 5;
constexpr std::size_t words = 8;
// clang-format off
constexpr std::uint32_t statistics[blocks][words] = {
    { 410, 1101, 1102, 400, 11, 1105, 1106, 1107 },
    { 310, 1201, 1202, 300,  7, 1205, 1206, 1207 },
    { 210, 1301, 1302, 200,  5, 1305, 1306, 1307 },
    { 110, 1401, 1402, 100,  3, 1405, 1406, 1407 },
    {  10, 1501, 1502,   9,  1, 1505, 1506, 1507 },
};
// clang-format on

bool le_receives;
bool receives;
hci_packet to_follow; // an event of its own behind the Command Complete

// What a Command Complete gives: its status and what is behind that.
struct answer {
    std::uint8_t status;
    hci_packet values;
};

template <typename Bytes>
answer values_of(const Bytes& bytes)
{
    return {status_ok, {bytes.begin(), bytes.end()}};
}

answer done(parameters)
{
    return {status_ok, {}};
}

answer reset(parameters)
{
    hci_controller_reset();
    return {status_ok, {}};
}

// Scans: none, inquiry, page, both.
answer write_scan_enable(parameters p)
{
    return {p[0] <= 3 ? status_ok : invalid_parameters, {}};
}

// Channel, length of the payload, its pattern.
answer le_transmit(parameters p)
{
    return {p[0] <= 0x27 && p[1] <= 0x25 && p[2] <= 0x07 ? status_ok : invalid_parameters, {}};
}

answer le_receive(parameters p)
{
    le_receives = p[0] <= 0x27;
    return {le_receives ? status_ok : invalid_parameters, {}};
}

answer le_end(parameters)
{
    const std::uint16_t packets = le_receives ? le_packets : 0;
    le_receives = false;
    return {status_ok, {static_cast<std::uint8_t>(packets), static_cast<std::uint8_t>(packets >> 8)}};
}

hci_packet statistics_event()
{
    hci_packet event = {hci_type_event, event_vendor, 0, 0x04, 0x02, 0x05};
    for (const auto& block : statistics)
        for (const std::uint32_t word : block)
            for (int shift = 0; shift < 32; shift += 8)
                event.push_back(receives ? static_cast<std::uint8_t>(word >> shift) : 0);
    event[2] = static_cast<std::uint8_t>(event.size() - 3);
    return event;
}

// The radio test: its first byte says which, and that how long it is.
answer radio_test(parameters p)
{
    enum : std::uint8_t { read_statistics = 2, transmit_packets = 4, transmit_carrier = 5, receive = 6 };
    const std::size_t wanted = p.empty()                                     ? 0
                               : p[0] == read_statistics                     ? 1
                               : p[0] == transmit_carrier                    ? 9
                               : p[0] == transmit_packets || p[0] == receive ? 21
                                                                             : 0;
    if (wanted == 0 || p.size() != wanted)
        return {invalid_parameters, {}};
    if (p[0] == receive)
        receives = true;
    if (p[0] == read_statistics)
        to_follow = statistics_event();
    return {status_ok, {}};
}

answer test_pins(parameters p)
{
    return p[0] == pins[0] ? values_of(std::span(pins)) : answer{invalid_parameters, {}};
}

struct command_row {
    std::uint16_t opcode;
    int size; // of the parameters; -1: the command itself looks
    answer (*answer_to)(parameters p);
};

// clang-format off
constexpr command_row commands[] = {
    { 0x0C03,  0, reset                                                },
    { 0x0C05,  3, done                                                 },   // set event filter
    { 0x0C1A,  1, write_scan_enable                                    },
    { 0x1001,  0, [](parameters) { return values_of(std::span(version)); }       },
    { 0x1009,  0, [](parameters) { return values_of(std::span(address)); }       },
    { 0x1803,  0, done                                                 },   // enable device under test mode
    { 0x201D,  1, le_receive                                           },
    { 0x201E,  3, le_transmit                                          },
    { 0x201F,  0, le_end                                               },
    { 0xFC04, -1, radio_test                                           },
    { 0xFC0C,  1, test_pins                                            },
    { 0xFC0F,  0, [](parameters) { return values_of(revision); }       },
    { 0xFCF6,  0, [](parameters) { return values_of(std::span(configuration)); } },
};
// clang-format on

answer carry_out(std::uint16_t opcode, parameters p)
{
    const auto row = std::find_if(std::begin(commands), std::end(commands),
                                  [opcode](const command_row& r) { return r.opcode == opcode; });
    if (row == std::end(commands)) {
        char name[32];
        std::snprintf(name, sizeof name, "hci command %04X", opcode);
        strange(name);
        return {unknown_command, {}};
    }
    if (row->size >= 0 && p.size() != static_cast<std::size_t>(row->size))
        return {invalid_parameters, {}};
    return row->answer_to(p);
}

} // namespace

std::vector<hci_packet> hci_controller_answer(std::span<const std::uint8_t> command)
{
    if (command.size() < command_head || command[0] != hci_type_command ||
        command.size() != command_head + command[3])
        return {};
    to_follow.clear();
    const auto opcode = static_cast<std::uint16_t>(command[1] | command[2] << 8);
    const answer a = carry_out(opcode, command.subspan(command_head));
    // One more command may come; then which one this answers.
    hci_packet complete = {hci_type_event, event_command_complete, 0, 1, command[1], command[2], a.status};
    complete.insert(complete.end(), a.values.begin(), a.values.end());
    complete[2] = static_cast<std::uint8_t>(complete.size() - 3);
    std::vector<hci_packet> events = {std::move(complete)};
    if (!to_follow.empty())
        events.push_back(to_follow);
    return events;
}

void hci_controller_reset()
{
    le_receives = false;
    receives = false;
}

} // namespace phone
