#include "tuner/packets.h"

#include <algorithm>
#include <iterator>

namespace phone {

namespace {

// clang-format off
constexpr unsigned pid_map     = 0x1FC8; // of the narrow service
constexpr unsigned pid_sound   = 0x0141;
constexpr unsigned pid_picture = 0x0142;
constexpr unsigned pid_pattern = 0x0123;

// Pointer and section of the programme map, without its check value.
constexpr std::uint8_t map_section[] = {
    0x00,                                // pointer: the section begins at once
    0x02, 0xB0, 0x1A,                    // programme map, 26 bytes follow
    0x04, 0xD1, 0xC1, 0x00, 0x00,        // programme, version, the only section
    0xE1, 0x42,                          // clock: with the picture
    0xF0, 0x03, 0xC1, 0x01, 0x84,        // programme information: one descriptor
    0x0F, 0xE1, 0x41, 0xF0, 0x00,        // sound
    0x1B, 0xE1, 0x42, 0xF0, 0x00,        // picture
};
// clang-format on
constexpr unsigned map_period = 16;

// CRC-32 of the tables: polynomial 04C11DB7, highest bit first, no final inversion.
std::uint32_t table_crc(const std::uint8_t* p, std::size_t n)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (std::size_t i = 0; i < n; i++) {
        crc ^= static_cast<std::uint32_t>(p[i]) << 24;
        for (int bit = 0; bit < 8; bit++)
            crc = (crc & 0x80000000) != 0 ? crc << 1 ^ 0x04C11DB7 : crc << 1;
    }
    return crc;
}

void fill_map(ts_packet& packet)
{
    std::fill(packet.begin() + 4, packet.end(), std::uint8_t{0xFF});
    const auto end = std::ranges::copy(map_section, packet.begin() + 4).out;
    const std::uint32_t crc = table_crc(map_section + 1, std::size(map_section) - 1);
    for (int i = 0; i < 4; i++)
        end[i] = static_cast<std::uint8_t>(crc >> (24 - 8 * i));
}

std::uint8_t pattern_byte(int code, std::size_t i)
{
    constexpr std::uint8_t steady[4] = {0x00, 0xAA, 0xFF, 0x00};
    if (code != 0)
        return steady[code];
    const auto running = static_cast<std::uint8_t>(1u << i % 8);
    return i / 8 % 2 == 0 ? running : static_cast<std::uint8_t>(~running);
}

} // namespace

ts_packet packet_source::begin(unsigned pid, unsigned& counter, bool starts_unit)
{
    ts_packet packet;
    packet[0] = 0x47;
    packet[1] = static_cast<std::uint8_t>((starts_unit ? 0x40 : 0x00) | pid >> 8);
    packet[2] = static_cast<std::uint8_t>(pid);
    packet[3] = static_cast<std::uint8_t>(0x10 | counter % 16);
    counter++;
    p_last = &counter;
    return packet;
}

ts_packet packet_source::next_of_broadcast()
{
    const unsigned turn = given++;
    if (turn % map_period == 0) {
        ts_packet packet = begin(pid_map, counters[0], true);
        fill_map(packet);
        return packet;
    }
    const bool sound = turn % 2 == 1;
    ts_packet packet = begin(sound ? pid_sound : pid_picture, counters[sound ? 1 : 2], false);
    for (std::size_t i = 4; i < packet.size(); i++)
        packet[i] = static_cast<std::uint8_t>(turn + i * 7);
    return packet;
}

ts_packet packet_source::next_of_pattern(int code)
{
    ts_packet packet = begin(pid_pattern, counters[3], false);
    for (std::size_t i = 4; i < packet.size(); i++)
        packet[i] = pattern_byte(code, i - 4);
    return packet;
}

void packet_source::leave_gap(ts_packet& packet)
{
    packet[3] = static_cast<std::uint8_t>((packet[3] & 0xF0) | *p_last % 16);
    ++*p_last;
}

} // namespace phone
