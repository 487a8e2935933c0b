// Packets of the transport stream that this phone receives: a programme map with sound and picture, and the
// packets of both by turns; or those of a test pattern. Each kind of packet keeps its own counter.
#pragma once

#include <array>
#include <cstdint>

namespace phone {

using ts_packet = std::array<std::uint8_t, 188>;

class packet_source {
public:
    // The next packet of the broadcast.
    ts_packet next_of_broadcast();

    // The next packet of a pattern: 0 a bit that runs, and the same inverted; 1 to 3: AA, FF, 00.
    ts_packet next_of_pattern(int code);

    // The counter of the packet that was given last is one too far, and goes on from there.
    void leave_gap(ts_packet& packet);

private:
    ts_packet begin(unsigned pid, unsigned& counter, bool starts_unit);

    unsigned given = 0;
    unsigned counters[4] = {}; // map, sound, picture, pattern
    unsigned* p_last = nullptr;
};

} // namespace phone
