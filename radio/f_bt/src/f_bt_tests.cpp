// Sending and receiving, in classic and low-energy mode, and the pins.
#include <cstdint>
#include <iterator>

#include "bt/bt.h"
#include "bt/bt_hci.h"
#include "f_bt_inner.h"

namespace {

constexpr std::uint32_t FIELDS_STATIC = 5;
constexpr std::uint32_t FIELDS_SWITCHED = 6;

constexpr std::uint8_t PIN_UNKNOWN = 255;

int blank(int id, const char* name, int status)
{
    return dcp_answer(id, name, " ", status);
}

int passed(bool ok)
{
    return ok ? DCP_OK : DCP_ERROR;
}

// The values of a line over the first of `count` fields; a line with more values than there are fields leaves
// all as they are.
void overlay(std::uint32_t* const* pp_fields, int count, int argc, const dcp_word* argv)
{
    if (argc > count)
        return;
    for (int i = 0; i < argc; i++)
        *pp_fields[i] = dcp_uint(argv[i]);
}

std::uint8_t byte_at(int i, int argc, const dcp_word* argv)
{
    return i < argc ? static_cast<std::uint8_t>(dcp_uint(argv[i])) : 0;
}

struct rx_values {
    std::uint32_t packet;
    std::uint32_t channel;
    std::uint32_t pattern;
};

int start_rx(int id, const rx_values& v)
{
    const int result = bt_tst_rx_static(v.channel, v.packet, v.pattern, nullptr);
    return blank(id, "bsrx", result == BT_NOT_IMPLEMENTED ? DCP_NOT_FOUND : passed(result == BT_OK));
}

int read_rx(int id, const rx_values& v)
{
    bt_rx_stats s{};
    const int result = bt_tst_rx_static(v.channel, v.packet, v.pattern, &s);
    if (result != BT_OK)
        return blank(id, "bsrx", result == BT_NOT_IMPLEMENTED ? DCP_NOT_FOUND : DCP_ERROR);
    dcp_printf(id, "bsrx", "0x%X,0x%X,%f,0x%X", s.packets, s.stat_12, static_cast<double>(s.ber),
               s.bit_errors);
    return DCP_OK;
}

} // namespace

int do_bt_bstx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bstx", "Bluetooth static TX", DCP_OK);
    if (!f_bt_start())
        return blank(id, "bstx", DCP_ERROR);
    bt_params row{};
    std::uint32_t channel = 0, data = 0, rate = 0, pattern = 0, power = 15;
    std::uint32_t* const in_row[] = {&channel, &data, &rate, &pattern, &power};
    if (bt_get_default_params(BT_PARAMS_STATIC, &row) == BT_OK && row.count == FIELDS_STATIC)
        for (std::uint32_t i = 0; i < FIELDS_STATIC; i++)
            *in_row[i] = row.values[i];
    overlay(in_row, std::size(in_row), argc, argv);
    return blank(id, "bstx", passed(bt_tst_tx_static(channel, power, data, rate, pattern) == BT_OK));
}

// The row of defaults has another order than the line.
int do_bt_bwtx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bwtx", "Bluetooth switched TX", DCP_OK);
    if (!f_bt_start())
        return blank(id, "bwtx", DCP_ERROR);
    bt_params row{};
    std::uint32_t channel = 0, packet = 0, pattern = 4, mode = 0, power = 15, length = 1024;
    std::uint32_t* const in_row[] = {&mode, &channel, &packet, &length, &power, &pattern};
    std::uint32_t* const in_line[] = {&channel, &packet, &pattern, &mode, &power, &length};
    if (bt_get_default_params(BT_PARAMS_SWITCHED, &row) == BT_OK && row.count == FIELDS_SWITCHED)
        for (std::uint32_t i = 0; i < FIELDS_SWITCHED; i++)
            *in_row[i] = row.values[i];
    overlay(in_line, std::size(in_line), argc, argv);
    return blank(id, "bwtx",
                 passed(bt_tst_tx_switched(mode, channel, packet, length, power, pattern) == BT_OK));
}

int do_bt_bsrx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bsrx", "Bluetooth static RX", DCP_OK);
    std::uint32_t mode = 0;
    rx_values v = {.packet = 0, .channel = 0, .pattern = 1};
    std::uint32_t* const fields[] = {&mode, &v.packet, &v.channel, &v.pattern};
    overlay(fields, std::size(fields), argc, argv);
    if (mode > 1 || argc < (mode == 1 ? 3 : 2))
        return blank(id, "bsrx", DCP_SYNTAX);
    if (!f_bt_start())
        return blank(id, "bsrx", DCP_ERROR);
    return mode == 1 ? start_rx(id, v) : read_rx(id, v);
}

int do_bt_blrx(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "blrx", "Bluetooth CW for RX to measure RSSI.", DCP_OK);
    int rssi = 0;
    const bool measured = f_bt_start() && bt_tst_rx_cw_rssi(argc > 0 ? dcp_uint(argv[0]) : 0, &rssi) == BT_OK;
    dcp_printf(id, "blrx", "-%d", rssi);
    return passed(measured);
}

int do_bt_blet(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "blet", "Bluetooth Low Energy Transmitter Test", DCP_OK);
    const bool sent = f_bt_start() && bt_le_transmitter_test(byte_at(0, argc, argv), byte_at(1, argc, argv),
                                                             byte_at(2, argc, argv)) != 0;
    return blank(id, "blet", passed(sent));
}

int do_bt_bler(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bler", "Bluetooth Low Energy Reciever Test", DCP_OK);
    const bool sent = f_bt_start() && bt_le_receiver_test(byte_at(0, argc, argv)) != 0;
    return blank(id, "bler", passed(sent));
}

int do_bt_bles(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "bles", "Bluetooth Low Energy Stop", DCP_OK);
    std::uint16_t packets = 0;
    const bool ended = f_bt_start() && bt_le_test_end(&packets) != 0;
    dcp_printf(id, "bles", "0x%04X", packets);
    return passed(ended);
}

int do_bt_pint(int id, int action, int, const dcp_word*)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "pint", "Pin Connectivity Test", DCP_OK);
    std::uint8_t a = PIN_UNKNOWN, b = PIN_UNKNOWN, c = PIN_UNKNOWN;
    const bool tested = f_bt_start() && bt_pin_test(&a, &b, &c) == BT_OK;
    dcp_printf(id, "pint", "0x%X,0x%X,0x%X", a, b, c);
    return passed(tested);
}
