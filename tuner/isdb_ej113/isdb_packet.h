// Packets of a transport stream, as the normal stream test judges them: the check of one packet, the walk
// through the narrow service's programme map, and the count of lost packets. Nothing but bytes come in, and
// any bytes may.
#pragma once

#include <cstddef>
#include <cstdint>

#include "isdb/isdb.h"

constexpr std::size_t ISDB_PACKET = 188;
constexpr std::size_t ISDB_PACKET_WITH_STATUS = ISDB_PACKET + 4;
constexpr std::uint32_t ISDB_STATUS_WHOLE = 1u << 24; // in the word behind the packet

constexpr std::uint16_t ISDB_NO_PID = 65535;

// The continuity of one elementary stream.
struct isdb_continuity {
    std::uint16_t pid = ISDB_NO_PID;
    bool seen = false;
    std::uint8_t counter = 0;
};

struct isdb_check_state {
    isdb_continuity audio;
    isdb_continuity video;
    isdb_stream_result counts = {};
};

// Judges a packet with its status word behind it; true for a good one. Counts transport errors and lost
// packets.
bool isdb_tsif_data_check(isdb_check_state& state, const std::uint8_t* p_packet);

// The PIDs of sound and picture from a programme map; one that it doesn't have stays as it was. An entry that
// leads out of the packet ends the walk.
void isdb_get_elementary_pid(const std::uint8_t* p_packet, std::uint16_t& audio, std::uint16_t& video);

void isdb_lost_packet_count(isdb_check_state& state, const std::uint8_t* p_packet);
