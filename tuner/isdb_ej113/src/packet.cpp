#include "isdb_ej113/isdb_packet.h"

#include <cstring>

namespace {

constexpr std::uint16_t PID_PMT = 0x1FC8; // of the narrow service
constexpr std::size_t PMT_START = 13;     // the PCR PID
constexpr std::size_t ENTRY = 5;
constexpr int MOST_ENTRIES = 32;
constexpr std::uint8_t TYPE_AUDIO = 15;
constexpr std::uint8_t TYPE_VIDEO = 27;

std::uint16_t pid_at(const std::uint8_t* p)
{
    return static_cast<std::uint16_t>((p[0] & 0x1F) << 8 | p[1]);
}

std::size_t length_at(const std::uint8_t* p)
{
    return static_cast<std::size_t>((p[0] & 0x0F) << 8 | p[1]);
}

bool is_known_type(std::uint8_t type)
{
    return type == 1 || type == 2 || type == 6 || type == 13 || type == TYPE_AUDIO || type == TYPE_VIDEO;
}

bool came_whole(const std::uint8_t* p_packet)
{
    std::uint32_t status;
    std::memcpy(&status, p_packet + ISDB_PACKET, sizeof status);
    return (status & ISDB_STATUS_WHOLE) != 0;
}

std::uint32_t lost_before(isdb_continuity& stream, const std::uint8_t* p_packet)
{
    if (pid_at(p_packet + 1) != stream.pid)
        return 0;
    const std::uint8_t counter = p_packet[3] & 0x0F;
    const std::uint32_t lost =
        stream.seen ? static_cast<std::uint32_t>(counter - stream.counter - 1) & 0x0F : 0;
    stream.seen = true;
    stream.counter = counter;
    return lost;
}

} // namespace

void isdb_get_elementary_pid(const std::uint8_t* p_packet, std::uint16_t& audio, std::uint16_t& video)
{
    std::size_t at = PMT_START + 4 + length_at(p_packet + PMT_START + 2);
    for (int i = 0; i < MOST_ENTRIES && at + ENTRY <= ISDB_PACKET && is_known_type(p_packet[at]); i++) {
        const std::uint8_t* const p_entry = p_packet + at;
        if (p_entry[0] == TYPE_AUDIO)
            audio = pid_at(p_entry + 1);
        if (p_entry[0] == TYPE_VIDEO)
            video = pid_at(p_entry + 1);
        at += ENTRY + length_at(p_entry + 3);
    }
}

void isdb_lost_packet_count(isdb_check_state& state, const std::uint8_t* p_packet)
{
    state.counts.lost += lost_before(state.audio, p_packet);
    state.counts.lost += lost_before(state.video, p_packet);
}

bool isdb_tsif_data_check(isdb_check_state& state, const std::uint8_t* p_packet)
{
    if ((p_packet[1] & 0x80) != 0) {
        state.counts.transport_errors++;
        return false;
    }
    if (p_packet[0] != 0x47 || !came_whole(p_packet))
        return false;
    if (pid_at(p_packet + 1) == PID_PMT)
        isdb_get_elementary_pid(p_packet, state.audio.pid, state.video.pid);
    isdb_lost_packet_count(state, p_packet);
    return true;
}
