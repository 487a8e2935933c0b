#include "edid.h"

#include <array>
#include <numeric>

#include "dcp/dcp.h"
#include "hdmi/hdmi.h"
#include "scf/scf.h"

namespace {

using std::uint8_t;

constexpr std::size_t BLOCK = 128;
constexpr uint8_t UNREAD = 0xEE; // what a monitor without a second block leaves there
constexpr uint8_t EXTENSION = 2; // of CEA, version 3
constexpr uint8_t EXTENSION_VERSION = 3;

constexpr std::size_t TEXT = BLOCK * (sizeof "0xEE," - 1);
constexpr std::size_t ROOM = TEXT + 16; // the conversion wants room to spare

using edid = std::array<uint8_t, HDMI_EDID_BYTES>;
static_assert(std::tuple_size<edid>() == 2 * BLOCK);

bool second_is_whole(const edid& bytes)
{
    const unsigned sum = std::accumulate(bytes.begin() + BLOCK, bytes.end(), 0u);
    return bytes[BLOCK] == EXTENSION && bytes[BLOCK + 1] == EXTENSION_VERSION && sum % 256 == 0;
}

// Each byte with a comma behind it, past the line's limit on length.
void show_block(int id, const uint8_t* p_block)
{
    char text[ROOM];
    int len = scf_bin_to_hexstr(text, sizeof text, p_block, BLOCK, 1, ',');
    text[len++] = ',';
    dcp_printf(id, "hdmi", " ");
    dcp_bin_tx(id, text, static_cast<std::size_t>(len), nullptr, nullptr);
}

} // namespace

int f_hdmi_edid(int id, bool show, std::uint32_t block)
{
    edid bytes;
    bytes.fill(UNREAD);
    if (hdmi_read_edid(bytes.data()) < 0) {
        dcp_printf(id, "hdmi", "EDID Header: 0x%02x%02x%02x%02x%02x%02x%02x%02x", bytes[0] + 0u,
                   bytes[1] + 0u, bytes[2] + 0u, bytes[3] + 0u, bytes[4] + 0u, bytes[5] + 0u, bytes[6] + 0u,
                   bytes[7] + 0u);
        return DCP_ERROR;
    }
    const bool whole = second_is_whole(bytes);
    if (!show) {
        dcp_printf(id, "hdmi", "0x%X", whole ? 1u : 0u);
        return DCP_OK;
    }
    show_block(id, bytes.data() + block * BLOCK);
    return whole ? DCP_OK : DCP_ERROR;
}
