// The Bluetooth controller under test, as a thin layer of callouts (bt_attach): starting it, bytes to and
// from it, and the tests that each chip does in its own way. What is the same for every chip goes through HCI
// (bt_hci.h). Operations give BT_OK, or why not. Starting is slow and goes on beside the caller: the first
// operation that needs the controller waits for its end.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr int BT_OK = 0;
constexpr int BT_FAILED = 1;
constexpr int BT_NO_FILE = 3;
constexpr int BT_NOT_IMPLEMENTED = 4;
constexpr int BT_BAD_VALUE = 5;

constexpr std::size_t BT_ADDR_SIZE = 6; // in the order of the controller's event
constexpr int BT_SCAN_MOST = 7;
constexpr std::size_t BT_SCAN_ROOM = 128; // the addresses with commas between them, and NUL

// What bt_get_default_params takes.
constexpr int BT_PARAMS_STATIC = 0;   // channel, data, rate, pattern, power
constexpr int BT_PARAMS_SWITCHED = 1; // mode, channel, packet, length, power, pattern

struct bt_params {
    std::uint32_t count;
    std::uint32_t values[6];
};

struct bt_rx_stats {
    std::uint32_t packets;
    std::uint32_t stat_12;
    std::uint32_t bit_errors;
    float ber; // percent
};

struct bt_co {
    int (*start)();
    int (*stop)();
    int (*dl)(int what);
    int (*rd)(void* p_data, std::size_t size);
    std::size_t (*rd_poll)();
    int (*wr)(const void* p_data, std::size_t size);
    int (*script_exec)(const char* path);
    int (*tst_tx_switched)(std::uint32_t mode, std::uint32_t channel, std::uint32_t packet,
                           std::uint32_t length, std::uint32_t power, std::uint32_t pattern);
    int (*tst_tx_static)(std::uint32_t channel, std::uint32_t power, std::uint32_t data, std::uint32_t rate,
                         std::uint32_t pattern);
    int (*addr_wr)(const std::uint8_t* p_addr, std::size_t size);
    int (*addr_rd)(std::uint8_t* p_addr);
    int (*tst_rx_static)(std::uint32_t channel, std::uint32_t packet, std::uint32_t pattern,
                         bt_rx_stats* p_stats);
    int (*reset)();
    int (*chip_reset)();
    int (*getBDaddressFromFlash)(std::uint8_t* p_addr);
    int (*setBDaddressInFlash)(const std::uint8_t* p_addr);
    int (*tst_rx_cw_rssi)(std::uint32_t channel, int* p_rssi);
    int (*get_default_params)(int index, bt_params* p_params);
    int (*test_coex)(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out,
                     std::size_t* p_count);
    int (*pin_test)(std::uint8_t* p_a, std::uint8_t* p_b, std::uint8_t* p_c);
    int (*scan)(int count, char* p_text);
};

void bt_init();
void bt_attach(const bt_co* p_co);

int bt_start();
int bt_stop();

// For the driver: a start that bt_start had begun has failed, and the controller is stopped. bt_start_lost
// tells once that this has happened.
void bt_start_failed();
bool bt_start_lost();

int bt_dl(int what);

// An HCI packet to the controller: one 0 byte, then the packet from its opcode on.
int bt_wr(const void* p_data, std::size_t size);

// Waits for the event that answers the last packet, 2 s at the longest: its size, 0 when none has come. bt_rd
// then gives its bytes, packet type first.
std::size_t bt_rd_poll();
int bt_rd(void* p_data, std::size_t size);

int bt_script_exec(const char* path);
int bt_tst_tx_switched(std::uint32_t mode, std::uint32_t channel, std::uint32_t packet, std::uint32_t length,
                       std::uint32_t power, std::uint32_t pattern);
int bt_tst_tx_static(std::uint32_t channel, std::uint32_t power, std::uint32_t data, std::uint32_t rate,
                     std::uint32_t pattern);
int bt_addr_wr(const std::uint8_t* p_addr, std::size_t size);
int bt_addr_rd(std::uint8_t* p_addr);

// Starts a receive test, or, with `p_stats`, reads what has come; of the values only the packet type counts
// then.
int bt_tst_rx_static(std::uint32_t channel, std::uint32_t packet, std::uint32_t pattern,
                     bt_rx_stats* p_stats);

int bt_reset();
int bt_chip_reset();
int bt_getBDaddressFromFlash(std::uint8_t* p_addr);
int bt_setBDaddressInFlash(const std::uint8_t* p_addr);
int bt_tst_rx_cw_rssi(std::uint32_t channel, int* p_rssi);
int bt_get_default_params(int index, bt_params* p_params);

// `p_out` has room for 10 bytes; a count above that says that there were more.
int bt_test_coex(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count);

// A result that the chip doesn't give stays as it was.
int bt_pin_test(std::uint8_t* p_a, std::uint8_t* p_b, std::uint8_t* p_c);

// Looks for devices, at most `count` (1 to BT_SCAN_MOST): their addresses; an empty text for none. Takes as
// long as an inquiry.
int bt_scan(int count, char* p_text);
