// HCI on top of bt: commands built from a table, their events taken apart. Every byte of an event is looked
// at only where the event reaches that far. The functions send and wait, and give 1 for success: a Command
// Complete event with status 0 has come; and 0 for anything else, when the outputs are as they were.
#pragma once

#include <cstddef>
#include <cstdint>

// One command. The table's order is its index.
struct bt_hci_row {
    std::uint8_t index;
    std::uint8_t ogf;
    std::uint16_t ocf;
    std::uint16_t length; // of the parameters, of which the low byte is used
};

constexpr std::uint8_t BT_HCI_RESET = 0;
constexpr std::uint8_t BT_HCI_EVT_FILT_SET = 1;
constexpr std::uint8_t BT_HCI_WR_SCAN_EN = 2;
constexpr std::uint8_t BT_HCI_DUT_EN = 3;
constexpr std::uint8_t BT_HCI_LOC_VER = 4;
constexpr std::uint8_t BT_HCI_REV_TXT = 6;
constexpr std::uint8_t BT_HCI_RD_DYN_CFG = 8;
constexpr std::uint8_t BT_HCI_RD_ADDR = 10;
constexpr std::uint8_t BT_HCI_LE_TRANSMITTER_TEST = 13;
constexpr std::uint8_t BT_HCI_LE_RECEIVER_TEST = 14;
constexpr std::uint8_t BT_HCI_LE_TEST_END = 15;

// The row of an index, which must be in the table.
const bt_hci_row* bt_hci_cmd_get(std::uint8_t index);

constexpr std::size_t BT_HCI_HEAD = 4; // of a command: 0, opcode low, opcode high, length
constexpr std::size_t BT_HCI_PAR_MOST = 255;
constexpr std::size_t BT_HCI_EVENT_MOST = 261;
constexpr std::size_t BT_HCI_AT_CODE = 1; // of an event: its code
constexpr std::size_t BT_HCI_AT_PAR = 6;  // of a Command Complete event: status, then what was asked for
constexpr std::uint8_t BT_HCI_EVENT_VENDOR = 255;

// One exchange: the command, zero at first, and the event that has come.
struct bt_hci_buf {
    explicit bt_hci_buf(const bt_hci_row* p_cmd);

    const bt_hci_row* p_row;
    std::uint8_t hdr[BT_HCI_HEAD + BT_HCI_PAR_MOST];
    std::uint8_t* p_par; // the command's parameters, in hdr
    std::uint8_t resp_hdr[BT_HCI_EVENT_MOST];
    std::uint8_t* p_resp_par; // those of a Command Complete event, in resp_hdr
    std::size_t resp_size;
};

// Sends the command; raw: with the OCF's low byte and the OGF as opcode. bt_wr's result.
int bt_hci_cmd(bt_hci_buf* p_buf);
int bt_hci_raw_cmd(bt_hci_buf* p_buf);

// Waits for the event: its size, 0 when none has come.
std::size_t bt_hci_evt_resp(bt_hci_buf* p_buf);

// Whether the event that has come is a whole Command Complete with status 0 and at least `least` bytes behind
// that.
bool bt_hci_evt_good(const bt_hci_buf* p_buf, std::size_t least = 0);

// Sends the command, waits, and says whether the event is good.
int bt_hci_exchange(bt_hci_buf* p_buf, std::size_t least = 0);

struct bt_hci_version {
    std::uint8_t hci;
    std::uint16_t hci_revision;
    std::uint8_t lmp;
    std::uint16_t manufacturer;
    std::uint16_t lmp_subversion;
};

int bt_hci_reset();
int bt_hci_wr_scan_en(std::uint8_t mode);
int bt_hci_evt_filt_set(std::uint8_t a, std::uint8_t b, std::uint8_t c);
int bt_hci_dut_en();
int bt_hci_loc_ver(bt_hci_version* p_version);

// The text has at most BT_HCI_PAR_MOST characters and NUL.
int bt_hci_rev_txt(char* p_text);

// The event's parameters, status first, at most BT_HCI_PAR_MOST: their number, 0 for a failure.
std::size_t bt_hci_rd_dyn_cfg(std::uint8_t* p_bytes);

// Any command. `params` holds the parameters and takes what is shown, with room for BT_HCI_EVENT_MOST bytes;
// mode 1 shows the parameters of a good event, status first, mode 0 sends raw and shows the whole event. Of a
// bad event only the size is taken and the bytes stay. The number of bytes shown, 0 when no event has come.
std::size_t bt_hci_usr_cmd(const bt_hci_row* p_row, std::uint8_t* params, int mode, bool* p_answered);

int bt_le_transmitter_test(std::uint8_t channel, std::uint8_t length, std::uint8_t payload);
int bt_le_receiver_test(std::uint8_t channel);
int bt_le_test_end(std::uint16_t* p_packets);
