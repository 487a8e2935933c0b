#include "bt/bt_hci.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "bt/bt.h"
#include "check/check.h"
#include "pbuf/pbuf.h"
#include "tmr/tmr.h"

namespace {

// clang-format off
constexpr bt_hci_row bt_hci_tab[] = {
    //    index                       OGF      OCF  length
    { BT_HCI_RESET,                  0x03,  0x0003,    0 },
    { BT_HCI_EVT_FILT_SET,           0x03,  0x0005,    3 },
    { BT_HCI_WR_SCAN_EN,             0x03,  0x001A,    1 },
    { BT_HCI_DUT_EN,                 0x06,  0x0003,    0 },
    { BT_HCI_LOC_VER,                0x04,  0x0001,    0 },
    {  5,                            0x04,  0x0004,    5 },
    { BT_HCI_REV_TXT,                0x3F,  0x000F,    0 },
    {  7,                            0x3F,  0x002E,  255 },
    { BT_HCI_RD_DYN_CFG,             0x3F,  0x00F6,    0 },
    {  9,                            0xFF,  0x000F,    0 },
    { BT_HCI_RD_ADDR,                0x04,  0x0009,    0 },
    { 11,                            0x01,  0x0001,    5 },
    { 12,                            0x01,  0x0002,    0 },
    { BT_HCI_LE_TRANSMITTER_TEST,    0x08,  0x001E,    3 },
    { BT_HCI_LE_RECEIVER_TEST,       0x08,  0x001D,    1 },
    { BT_HCI_LE_TEST_END,            0x08,  0x001F,    0 },
};
// clang-format on

constexpr bool in_order()
{
    for (std::size_t i = 0; i < std::size(bt_hci_tab); i++)
        if (bt_hci_tab[i].index != i)
            return false;
    return true;
}
static_assert(in_order());

constexpr std::uint32_t ANSWER_PAUSE_US = 100000;

constexpr int OPCODE_OGF_SHIFT = 10;
constexpr unsigned OPCODE_OGF_MASK = 0x3F;

constexpr std::uint8_t EVENT_CONNECTION_REQUEST = 4;
constexpr std::uint8_t EVENT_COMMAND_COMPLETE = 14;
constexpr std::uint8_t EVENT_COMMAND_STATUS = 15;
constexpr std::uint8_t EVENT_HARDWARE_ERROR = 16;
constexpr std::uint8_t known_events[] = {EVENT_CONNECTION_REQUEST, EVENT_COMMAND_COMPLETE,
                                         EVENT_COMMAND_STATUS, EVENT_HARDWARE_ERROR, BT_HCI_EVENT_VENDOR};

constexpr std::size_t EVENT_HEAD = 3; // packet type, code, length
constexpr std::size_t AT_LENGTH = 2;
constexpr std::size_t STATUS_SIZE = 1;
constexpr std::size_t VERSION_SIZE = 8;

std::uint8_t par_length(const bt_hci_row& row)
{
    return static_cast<std::uint8_t>(row.length);
}

int send_as(bt_hci_buf* p_buf, unsigned opcode)
{
    const std::uint8_t length = par_length(*p_buf->p_row);
    pbuf_pack(p_buf->hdr, "bhb", 0, opcode, length);
    return bt_wr(p_buf->hdr, BT_HCI_HEAD + length);
}

// An event of a code that is known, as far as its length says.
bool bt_hci_evt_parse(const bt_hci_buf* p_buf)
{
    if (p_buf->resp_size < EVENT_HEAD)
        return false;
    const std::uint8_t code = p_buf->resp_hdr[BT_HCI_AT_CODE];
    return std::find(std::begin(known_events), std::end(known_events), code) != std::end(known_events) &&
           p_buf->resp_size >= EVENT_HEAD + p_buf->resp_hdr[AT_LENGTH];
}

} // namespace

const bt_hci_row* bt_hci_cmd_get(std::uint8_t index)
{
    HVT_CHECK(index < std::size(bt_hci_tab));
    return &bt_hci_tab[index];
}

bt_hci_buf::bt_hci_buf(const bt_hci_row* p_cmd)
    : p_row(p_cmd), hdr(), p_par(hdr + BT_HCI_HEAD), resp_hdr(), p_resp_par(resp_hdr + BT_HCI_AT_PAR),
      resp_size(0)
{
}

int bt_hci_cmd(bt_hci_buf* p_buf)
{
    const unsigned ogf = p_buf->p_row->ogf & OPCODE_OGF_MASK;
    return send_as(p_buf, (p_buf->p_row->ocf | ogf << OPCODE_OGF_SHIFT) & 0xFFFF);
}

int bt_hci_raw_cmd(bt_hci_buf* p_buf)
{
    return send_as(p_buf, (p_buf->p_row->ocf & 0xFFu) | static_cast<unsigned>(p_buf->p_row->ogf) << 8);
}

std::size_t bt_hci_evt_resp(bt_hci_buf* p_buf)
{
    tmr_usleep(ANSWER_PAUSE_US);
    const std::size_t size = std::min(bt_rd_poll(), BT_HCI_EVENT_MOST);
    if (size != 0 && bt_rd(p_buf->resp_hdr, size) == BT_OK)
        p_buf->resp_size = size;
    return p_buf->resp_size;
}

bool bt_hci_evt_good(const bt_hci_buf* p_buf, std::size_t least)
{
    return bt_hci_evt_parse(p_buf) && p_buf->resp_hdr[BT_HCI_AT_CODE] == EVENT_COMMAND_COMPLETE &&
           p_buf->resp_size >= BT_HCI_AT_PAR + STATUS_SIZE + least && p_buf->p_resp_par[0] == 0;
}

int bt_hci_exchange(bt_hci_buf* p_buf, std::size_t least)
{
    if (bt_hci_cmd(p_buf) != BT_OK || bt_hci_evt_resp(p_buf) == 0)
        return 0;
    return bt_hci_evt_good(p_buf, least) ? 1 : 0;
}

int bt_hci_reset()
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_RESET));
    return bt_hci_exchange(&buf);
}

int bt_hci_wr_scan_en(std::uint8_t mode)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_WR_SCAN_EN));
    buf.p_par[0] = mode;
    return bt_hci_exchange(&buf);
}

int bt_hci_evt_filt_set(std::uint8_t a, std::uint8_t b, std::uint8_t c)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_EVT_FILT_SET));
    pbuf_pack(buf.p_par, "bbb", a, b, c);
    return bt_hci_exchange(&buf);
}

int bt_hci_dut_en()
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_DUT_EN));
    return bt_hci_exchange(&buf);
}

int bt_hci_loc_ver(bt_hci_version* p_version)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_LOC_VER));
    if (bt_hci_exchange(&buf, VERSION_SIZE) == 0)
        return 0;
    pbuf_unpack(buf.p_resp_par + STATUS_SIZE, "bhbhh", &p_version->hci, &p_version->hci_revision,
                &p_version->lmp, &p_version->manufacturer, &p_version->lmp_subversion);
    return 1;
}

int bt_hci_rev_txt(char* p_text)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_REV_TXT));
    if (bt_hci_exchange(&buf) == 0)
        return 0;
    const char* const from = reinterpret_cast<const char*>(buf.p_resp_par) + STATUS_SIZE;
    const std::size_t length = strnlen(from, buf.resp_size - BT_HCI_AT_PAR - STATUS_SIZE);
    std::memcpy(p_text, from, length);
    p_text[length] = '\0';
    return 1;
}

std::size_t bt_hci_rd_dyn_cfg(std::uint8_t* p_bytes)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_RD_DYN_CFG));
    if (bt_hci_exchange(&buf) == 0)
        return 0;
    const std::size_t count = buf.resp_size - BT_HCI_AT_PAR;
    std::memcpy(p_bytes, buf.p_resp_par, count);
    return count;
}

std::size_t bt_hci_usr_cmd(const bt_hci_row* p_row, std::uint8_t* params, int mode, bool* p_answered)
{
    bt_hci_buf buf(p_row);
    std::memcpy(buf.p_par, params, par_length(*p_row));
    const int sent = mode == 1 ? bt_hci_cmd(&buf) : bt_hci_raw_cmd(&buf);
    const std::size_t size = sent == BT_OK ? bt_hci_evt_resp(&buf) : 0;
    *p_answered = size != 0;
    if (!bt_hci_evt_good(&buf))
        return size;
    const std::size_t from = mode == 1 ? BT_HCI_AT_PAR : 0;
    std::memcpy(params, buf.resp_hdr + from, size - from);
    return size - from;
}

int bt_le_transmitter_test(std::uint8_t channel, std::uint8_t length, std::uint8_t payload)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_LE_TRANSMITTER_TEST));
    pbuf_pack(buf.p_par, "bbb", channel, length, payload);
    return bt_hci_exchange(&buf);
}

int bt_le_receiver_test(std::uint8_t channel)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_LE_RECEIVER_TEST));
    buf.p_par[0] = channel;
    return bt_hci_exchange(&buf);
}

int bt_le_test_end(std::uint16_t* p_packets)
{
    bt_hci_buf buf(bt_hci_cmd_get(BT_HCI_LE_TEST_END));
    if (bt_hci_exchange(&buf, sizeof *p_packets) == 0)
        return 0;
    pbuf_unpack(buf.p_resp_par + STATUS_SIZE, "h", p_packets);
    return 1;
}
