#include "stream_tests.h"

#include <cstring>

#include "demux.h"
#include "isdb_ej113/isdb_packet.h"
#include "reg.h"
#include "tuner/tuner.h"

namespace {

constexpr unsigned NORMAL_PACKETS = 128;
constexpr unsigned PATTERN_PACKETS = 10;
constexpr int OVERFLOW_TRIES = 11;
constexpr int FILLER_TRIES = 20;
constexpr int NORMAL_WAIT_MS = 10000;
constexpr int PATTERN_WAIT_MS = 2000;

constexpr std::size_t PAYLOAD = 4; // where it begins
constexpr int PATTERN_RUNNING_BIT = 0;

// The expected byte of each pattern; pattern 0 runs.
constexpr std::uint8_t pattern_bytes[4] = {0, 0xAA, 0xFF, 0x00};

bool next_packet(const demux_guard& demux, std::uint8_t* p_packet)
{
    for (int turn = 0; turn < OVERFLOW_TRIES; turn++) {
        if (!demux.wait_for_data(NORMAL_WAIT_MS))
            return false;
        const auto got = demux.read_packet(p_packet);
        if (got != demux_guard::got::overflow)
            return got == demux_guard::got::packet;
    }
    return false;
}

// True when all packets came.
bool run_normal(isdb_check_state& state)
{
    const demux_guard demux;
    if (!demux.ready())
        return false;
    while (state.counts.packets < NORMAL_PACKETS) {
        std::uint8_t packet[ISDB_PACKET_WITH_STATUS];
        if (!next_packet(demux, packet))
            return false;
        std::memcpy(packet + ISDB_PACKET, &ISDB_STATUS_WHOLE, sizeof ISDB_STATUS_WHOLE);
        if (!isdb_tsif_data_check(state, packet))
            state.counts.bad++;
        state.counts.packets++;
    }
    return true;
}

// What isn't data for a moment is read again; a packet that came, or the failure.
bool read_through(const demux_guard& demux, std::uint8_t* p_packet)
{
    for (int turn = 0; turn < OVERFLOW_TRIES; turn++) {
        const auto got = demux.read_packet(p_packet);
        if (got != demux_guard::got::overflow)
            return got == demux_guard::got::packet;
    }
    return false;
}

// The running pattern begins with packets that are filled up only.
bool read_pattern_packet(const demux_guard& demux, int pattern, std::uint8_t* p_packet)
{
    int fillers = 0;
    do {
        if (!read_through(demux, p_packet))
            return false;
    } while (pattern == PATTERN_RUNNING_BIT && p_packet[PAYLOAD] == 0xFF && fillers++ < FILLER_TRIES);
    return true;
}

std::uint8_t expected_byte(int pattern, std::size_t i)
{
    if (pattern != PATTERN_RUNNING_BIT)
        return pattern_bytes[pattern];
    const unsigned bit = 1u << (i & 7);
    return static_cast<std::uint8_t>((i & 8) != 0 ? ~bit : bit);
}

bool carries_pattern(int pattern, const std::uint8_t* p_packet)
{
    if (pattern == PATTERN_RUNNING_BIT && p_packet[0] != 0x47)
        return false;
    for (std::size_t i = PAYLOAD; i < ISDB_PACKET; i++)
        if (p_packet[i] != expected_byte(pattern, i - PAYLOAD))
            return false;
    return true;
}

bool run_pattern(int pattern, isdb_stream_result& counts)
{
    const demux_guard demux;
    if (!demux.ready() || !demux.wait_for_data(PATTERN_WAIT_MS))
        return false;
    while (counts.packets < PATTERN_PACKETS) {
        std::uint8_t packet[ISDB_PACKET];
        if (!read_pattern_packet(demux, pattern, packet)) {
            counts.lost = PATTERN_PACKETS - counts.packets;
            return false;
        }
        counts.packets++;
        counts.bad += carries_pattern(pattern, packet) ? 0 : 1;
    }
    return counts.bad == 0;
}

} // namespace

int isdb_ej113_normOP(isdb_stream_result* p_result)
{
    isdb_check_state state;
    const bool whole = run_normal(state);
    *p_result = state.counts;
    return whole && state.counts.bad < NORMAL_PACKETS ? 1 : 0;
}

int isdb_ej113_tptnOP(int rate, int pattern, isdb_stream_result* p_result)
{
    *p_result = {};
    isdb_reg_bits(ISDB_NARROW, 232, 0x0F, 0);
    isdb_reg_bits(ISDB_NARROW, 248, 0x03, 0);
    isdb_reg_wr(ISDB_WIDE, 214, 0x80);
    isdb_reg_bits(ISDB_WIDE, 55, 0x0E, 0);
    pattern = pattern >= 0 && pattern <= 3 ? pattern : PATTERN_RUNNING_BIT;
    rate = rate >= 0 && rate <= 3 ? rate : 1;
    tunerx_chkpin(3, static_cast<std::uint32_t>(pattern << 4 | rate << 2 | 1));
    const bool passed = run_pattern(pattern, *p_result);
    isdb_reg_bits(ISDB_WIDE, 231, 0x80, 0);
    return passed ? 1 : 0;
}
