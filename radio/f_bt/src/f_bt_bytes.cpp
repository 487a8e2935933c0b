// Addresses, raw HCI, and the coexistence test.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "bt/bt.h"
#include "bt/bt_hci.h"
#include "bytes_test/bytes_test.h"
#include "f_bt_inner.h"
#include "scf/scf.h"

namespace {

constexpr unsigned HEXADECIMAL = 16;
constexpr int MOST_PARAMS = 256;

int address_answer(int id, const std::uint8_t* p_addr)
{
    char text[2 * BT_ADDR_SIZE + 1];
    scf_bin_to_ascii(text, p_addr, BT_ADDR_SIZE, 0);
    dcp_printf(id, "rwbt", "0x%s", text);
    return DCP_OK;
}

int blank(int id, bool done)
{
    return dcp_answer(id, "rwbt", " ", done ? DCP_OK : DCP_ERROR);
}

int digit_of(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// Six pairs of hexadecimal digits, 0x before them or not, and nothing else.
bool address_of(const char* text, std::uint8_t* p_addr)
{
    if (text == nullptr)
        return false;
    if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
        text += 2;
    if (std::strlen(text) != 2 * BT_ADDR_SIZE)
        return false;
    for (std::size_t i = 0; i < BT_ADDR_SIZE; i++) {
        const int high = digit_of(text[2 * i]);
        const int low = digit_of(text[2 * i + 1]);
        if (high < 0 || low < 0)
            return false;
        p_addr[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return true;
}

int read_flash(int id)
{
    std::uint8_t addr[BT_ADDR_SIZE];
    return bt_getBDaddressFromFlash(addr) == BT_OK ? address_answer(id, addr) : blank(id, false);
}

int write_flash(int id, const char* text)
{
    std::uint8_t addr[BT_ADDR_SIZE];
    return blank(id, address_of(text, addr) && bt_setBDaddressInFlash(addr) == BT_OK);
}

int flash_to_controller(int id)
{
    std::uint8_t addr[BT_ADDR_SIZE];
    return blank(id, bt_getBDaddressFromFlash(addr) == BT_OK && f_bt_start() &&
                         bt_addr_wr(addr, sizeof addr) == BT_OK);
}

int read_controller(int id)
{
    std::uint8_t addr[BT_ADDR_SIZE];
    return f_bt_start() && bt_addr_rd(addr) == BT_OK ? address_answer(id, addr) : blank(id, false);
}

int write_controller(int id, const char* text)
{
    std::uint8_t addr[BT_ADDR_SIZE];
    return blank(id, f_bt_start() && address_of(text, addr) && bt_addr_wr(addr, sizeof addr) == BT_OK);
}

// ",0x04,0x0E": each byte with a comma before it, the first too.
int print_bytes(int id, const std::uint8_t* p_bytes, std::size_t count, int status)
{
    std::string text;
    for (std::size_t i = 0; i < count; i++) {
        char item[8];
        std::snprintf(item, sizeof item, ",0x%02X", p_bytes[i]);
        text += item;
    }
    dcp_print_long(id, "bhwr", text.c_str());
    return status;
}

constexpr bytes_test coex = {
    .name = "bwcx",
    .hexadecimal = true,
    .most = 10,
    .failed = "",
    .refused_is_syntax = true,
    .run = bt_test_coex,
};

} // namespace

int do_bt_rwbt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "rwbt", "Bluetooth read/write IEEE address.", DCP_OK);
    if (action == DCP_ACTION_READ)
        return DCP_SYNTAX;
    const std::uint32_t operation = argc > 0 ? dcp_uint(argv[0]) : 0;
    const char* const text = argc == 2 ? dcp_text(argv[1]) : nullptr;
    const bool alone = argc < 2;
    if (operation == 0 && alone)
        return read_flash(id);
    if (operation == 1 && argc == 2)
        return write_flash(id, text);
    if (operation == 2 && alone)
        return flash_to_controller(id);
    if (operation == 3 && alone)
        return read_controller(id);
    if (operation == 4 && argc == 2)
        return write_controller(id, text);
    return blank(id, false);
}

// The line gives the command before its group.
int do_bt_bhwr(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bhwr", "Bluetooth user defined HCI", DCP_OK);
    if (argc < 4)
        return DCP_SYNTAX;
    const std::uint32_t mode = dcp_uint(argv[0]);
    if (mode > 1 || !f_bt_start())
        return print_bytes(id, nullptr, 0, DCP_ERROR);
    const bt_hci_row row = {.index = 0,
                            .ogf = static_cast<std::uint8_t>(dcp_uint(argv[2])),
                            .ocf = static_cast<std::uint16_t>(dcp_uint(argv[1])),
                            .length = static_cast<std::uint16_t>(dcp_uint(argv[3]))};
    std::uint8_t bytes[BT_HCI_EVENT_MOST] = {};
    if (argc > 4)
        scf_str_to_uint8(bytes, MOST_PARAMS, dcp_text(argv[4]), HEXADECIMAL);
    bool answered = false;
    const std::size_t count = bt_hci_usr_cmd(&row, bytes, static_cast<int>(mode), &answered);
    return print_bytes(id, bytes, count, answered ? DCP_OK : DCP_ERROR);
}

int do_bt_bwcx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bwcx", "Bluetooth Coexistence test", DCP_OK);
    bytes_test_input input;
    if (!bytes_test_read(coex, id, argc > 0 ? dcp_text(argv[0]) : nullptr, input))
        return DCP_ERROR;
    if (!f_bt_start())
        return dcp_answer(id, "bwcx", "", DCP_ERROR);
    return bytes_test_run(coex, id, input);
}
