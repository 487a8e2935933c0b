// The tests of the chip's own: transmission, reception and its statistics, pins, and the address.
#include <algorithm>
#include <cstring>
#include <iterator>

#include "pbuf/pbuf.h"
#include "wcn3680_bt.h"

namespace {

constexpr std::uint8_t OGF_VENDOR = 0x3F;

constexpr std::uint8_t QCT_TX_STATIC = 0;
constexpr std::uint8_t QCT_RX_START = 1;
constexpr std::uint8_t QCT_PIN_TEST = 2;
constexpr std::uint8_t QCT_TX_SWITCHED = 3;
constexpr std::uint8_t QCT_RX_STATISTICS = 4;

struct packet_type_row {
    std::uint32_t index;
    std::uint16_t type;
    std::uint16_t payload; // bytes
};

// clang-format off
constexpr bt_hci_row bt_hci_qct_tab[] = {
    //   index              OGF         OCF  length
    { QCT_TX_STATIC,     OGF_VENDOR, 0x0004,   9 },
    { QCT_RX_START,      OGF_VENDOR, 0x0004,  21 },
    { QCT_PIN_TEST,      OGF_VENDOR, 0x000C,   1 },
    { QCT_TX_SWITCHED,   OGF_VENDOR, 0x0004,  21 },
    { QCT_RX_STATISTICS, OGF_VENDOR, 0x0004,   1 },
};

// The last row is for all that isn't here.
constexpr packet_type_row wcn3680_bt_linux_packet_type_tab[] = {
    // index  type  payload
    { 0, 0x04,   27 },
    { 1, 0x0B,  183 },
    { 2, 0x0F,  339 },
    { 3, 0x24,   54 },
    { 4, 0x2A,  367 },
    { 5, 0x2E,  679 },
    { 6, 0x28,   83 },
    { 7, 0x2B,  552 },
    { 8, 0x2F, 1021 },
    { 9, 0x00,    0 },
};

// The station's pattern and the chip's.
constexpr std::uint8_t wcn3680_bt_linux_data_pat_tab[] = { 0, 1, 2, 4, 3 };

constexpr bt_params wcn3680_default_params[] = {
    { 5, { 0, 2, 0, 0, 9, 0 } },    // BT_PARAMS_STATIC
    { 6, { 0, 0, 0, 1024, 9, 4 } }, // BT_PARAMS_SWITCHED
};
// clang-format on

constexpr std::uint32_t CHANNEL_LAST = 78;
constexpr std::uint32_t CHANNELS_OF_HOP = 5;
constexpr std::size_t ADDRESS_OCTETS = 6;

// The chip's own subcommands, the first byte of the parameters.
constexpr std::uint8_t SUB_READ_STATISTICS = 2;
constexpr std::uint8_t SUB_TX_SWITCHED = 4;
constexpr std::uint8_t SUB_TX_STATIC = 5;
constexpr std::uint8_t SUB_RX = 6;
constexpr std::uint8_t SUB_PIN_TEST = 11;

constexpr std::uint8_t RX_PATTERN = 4;
constexpr std::uint8_t RX_POWER = 9;

// The statistics: blocks of counters behind the event's head.
constexpr std::size_t STATISTICS_SIZE = 166;
constexpr std::size_t BLOCK_FIRST = 6;
constexpr std::size_t BLOCK_SIZE = 32;
constexpr std::size_t BLOCKS = 5;
constexpr std::size_t WORD_PACKETS = 0;
constexpr std::size_t WORD_12 = 12;
constexpr std::size_t WORD_BIT_ERRORS = 16;
static_assert(BLOCK_FIRST + BLOCKS * BLOCK_SIZE == STATISTICS_SIZE);

// The pins: three groups of tag, value and a byte more, behind the status.
constexpr std::size_t PINS_SIZE = 11;
constexpr std::size_t PIN_FIRST = 3;
constexpr std::size_t PIN_STEP = 3;
constexpr std::uint8_t PIN_FIRST_TAG = 2;

const bt_hci_row* wcn3680_bt_linux_hci_cmd_get(std::uint8_t index)
{
    return &bt_hci_qct_tab[index];
}

const packet_type_row& packet_type(std::uint32_t index)
{
    constexpr std::size_t last = std::size(wcn3680_bt_linux_packet_type_tab) - 1;
    return wcn3680_bt_linux_packet_type_tab[std::min<std::size_t>(index, last)];
}

std::uint8_t chip_pattern(std::uint32_t pattern)
{
    return pattern < std::size(wcn3680_bt_linux_data_pat_tab) ? wcn3680_bt_linux_data_pat_tab[pattern] : 0;
}

std::uint8_t chip_channel(std::uint32_t channel)
{
    return static_cast<std::uint8_t>(std::min(channel, CHANNEL_LAST));
}

struct hop_test {
    std::uint8_t subcommand;
    std::uint32_t channel;
    std::uint8_t pattern;
    std::uint32_t packet;
    std::uint8_t power;
    std::uint8_t mode;
};

// Sends a test whose channels hop, all of them being one here. What its event says doesn't matter.
void send_hop_test(std::uint8_t index, const hop_test& t)
{
    const packet_type_row& type = packet_type(t.packet);
    bt_hci_buf buf(wcn3680_bt_linux_hci_cmd_get(index));
    std::uint8_t* p = buf.p_par;
    *p++ = t.subcommand;
    p = std::fill_n(p, CHANNELS_OF_HOP, chip_channel(t.channel));
    p += pbuf_pack(p, "bbbbb", t.pattern, static_cast<std::uint8_t>(type.type), 0, t.power, 1);
    p = std::fill_n(p, ADDRESS_OCTETS, std::uint8_t{0x11});
    pbuf_pack(p, "bhb", t.mode, type.payload, 0);
    bt_hci_exchange(&buf);
}

int start_rx(std::uint32_t channel, std::uint32_t packet)
{
    if (bt_hci_reset() == 0)
        return BT_FAILED;
    send_hop_test(QCT_RX_START, {SUB_RX, channel, RX_PATTERN, packet, RX_POWER, 0});
    return BT_OK;
}

std::uint32_t total(const std::uint8_t* p_event, std::size_t word)
{
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < BLOCKS; i++) {
        std::uint32_t value;
        pbuf_unpack(p_event + BLOCK_FIRST + i * BLOCK_SIZE + word, "w", &value);
        sum += value;
    }
    return sum;
}

// Percent of all bits that came.
float bit_error_rate(std::uint32_t bit_errors, std::uint32_t packets, std::uint32_t packet)
{
    const std::uint64_t bits = std::uint64_t{packet_type(packet).payload} * packets;
    if (bits == 0)
        return 0;
    return static_cast<float>(static_cast<float>(bit_errors) / static_cast<float>(bits) * 100.0);
}

int read_statistics(std::uint32_t packet, bt_rx_stats* p_stats)
{
    bt_hci_buf buf(wcn3680_bt_linux_hci_cmd_get(QCT_RX_STATISTICS));
    buf.p_par[0] = SUB_READ_STATISTICS;
    if (bt_hci_cmd(&buf) != BT_OK || wcn3680_bt_linux_rd_poll_2() < STATISTICS_SIZE)
        return BT_FAILED;
    wcn3680_bt_linux_rd(buf.resp_hdr, sizeof buf.resp_hdr);
    p_stats->packets = total(buf.resp_hdr, WORD_PACKETS);
    p_stats->stat_12 = total(buf.resp_hdr, WORD_12);
    p_stats->bit_errors = total(buf.resp_hdr, WORD_BIT_ERRORS);
    p_stats->ber = bit_error_rate(p_stats->bit_errors, p_stats->packets, packet);
    return BT_OK;
}

} // namespace

int wcn3680_bt_linux_addr_rd(std::uint8_t* p_addr)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_RD_ADDR));
    if (bt_hci_exchange(&buf, BT_ADDR_SIZE) == 0)
        return BT_FAILED;
    std::memcpy(p_addr, buf.p_resp_par + 1, BT_ADDR_SIZE);
    return BT_OK;
}

// A carrier is sent modulated or not; rate and pattern mean nothing to it.
int wcn3680_bt_linux_tst_tx_static(std::uint32_t channel, std::uint32_t power, std::uint32_t data,
                                   std::uint32_t, std::uint32_t)
{
    if (bt_hci_reset() == 0)
        return BT_FAILED;
    bt_hci_buf buf(wcn3680_bt_linux_hci_cmd_get(QCT_TX_STATIC));
    const std::uint8_t kind = data <= 1 ? 7 : 4;
    const std::uint8_t fill = data == 1 ? 1 : 0;
    pbuf_pack(buf.p_par, "bbbbbbbbb", SUB_TX_STATIC, chip_channel(channel), power, kind, 1, fill, fill, fill,
              fill);
    return bt_hci_exchange(&buf) != 0 ? BT_OK : BT_FAILED;
}

int wcn3680_bt_linux_tst_tx_switched(std::uint32_t mode, std::uint32_t channel, std::uint32_t packet,
                                     std::uint32_t, std::uint32_t power, std::uint32_t pattern)
{
    if (bt_hci_reset() == 0)
        return BT_FAILED;
    send_hop_test(QCT_TX_SWITCHED, {SUB_TX_SWITCHED, channel, chip_pattern(pattern), packet,
                                    static_cast<std::uint8_t>(power), static_cast<std::uint8_t>(mode)});
    return BT_OK;
}

int wcn3680_bt_linux_tst_rx_static(std::uint32_t channel, std::uint32_t packet, std::uint32_t,
                                   bt_rx_stats* p_stats)
{
    return p_stats == nullptr ? start_rx(channel, packet) : read_statistics(packet, p_stats);
}

int wcn3680_bt_linux_pin_test(std::uint8_t* p_a, std::uint8_t* p_b, std::uint8_t* p_c)
{
    bt_hci_buf buf(wcn3680_bt_linux_hci_cmd_get(QCT_PIN_TEST));
    buf.p_par[0] = SUB_PIN_TEST;
    if (bt_hci_exchange(&buf, PINS_SIZE) == 0)
        return BT_FAILED;
    std::uint8_t* const outputs[] = {p_a, p_b, p_c};
    for (std::size_t i = 0; i < std::size(outputs); i++) {
        const std::uint8_t* const p_pin = buf.p_resp_par + PIN_FIRST + i * PIN_STEP;
        if (p_pin[0] == PIN_FIRST_TAG + i)
            *outputs[i] = p_pin[1];
    }
    return BT_OK;
}

int wcn3680_bt_linux_get_default_params(int index, bt_params* p_params)
{
    if (index < 0 || static_cast<std::size_t>(index) >= std::size(wcn3680_default_params))
        return BT_FAILED;
    *p_params = wcn3680_default_params[index];
    return BT_OK;
}
