// Packets of a transport stream, whatever they hold: each of the input's packets is judged, in a block of
// exactly its size with its status word.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "isdb_ej113/isdb_packet.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    isdb_check_state state;
    std::uint32_t packets = 0;
    for (std::size_t at = 0; at < size; at += ISDB_PACKET_WITH_STATUS, packets++) {
        const auto packet = std::make_unique<std::uint8_t[]>(ISDB_PACKET_WITH_STATUS);
        std::memcpy(packet.get(), data + at, std::min(size - at, ISDB_PACKET_WITH_STATUS));
        isdb_tsif_data_check(state, packet.get());
    }
    if (state.counts.transport_errors > packets || state.counts.lost > packets * 30)
        std::abort();
    return 0;
}
