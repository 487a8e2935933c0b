// What the radio commands make of drivers that this phone doesn't have: rows that are missing, results that its own
// drivers never give, and good answers of operations that they lack.
#include <cstring>
#include <gtest/gtest.h>
#include <string>

#include "bt/bt.h"
#include "f_bt/f_bt.h"
#include "f_fm/f_fm.h"
#include "f_mdml/f_mdml.h"
#include "f_modem/f_modem.h"
#include "f_sim/f_sim.h"
#include "f_wlan/f_wlan.h"
#include "fm/fm.h"
#include "mdml/mdml.h"
#include "modem/modem.h"
#include "sim/sim.h"
#include "unit/line_spy.h"
#include "wlan/wlan.h"

namespace {

int result;         // what an operation gives
std::string called; // which one was called, and with what
std::size_t given;  // how many bytes a test of the chip's gives

int give_bytes(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    called = "bytes";
    for (std::size_t i = 0; i < count; i++)
        called += " " + std::to_string(p_bytes[i]);
    for (std::size_t i = 0; i < given && i < 10; i++)
        p_out[i] = static_cast<std::uint8_t>(0x0A + 0x21 * i);
    *p_count = given;
    return result;
}

int give_address(std::uint8_t* p_addr)
{
    std::memcpy(p_addr, "\x01\x02\x03\xFD\xFE\xFF", BT_ADDR_SIZE);
    return result;
}

int take_address(const std::uint8_t* p_addr)
{
    called = "flash " + std::to_string(p_addr[0]) + " " + std::to_string(p_addr[5]);
    return result;
}

struct line_row {
    int result;
    const char* line;
    const char* answer;
};

// Each line has the result put into the driver and must give the answer.
template <std::size_t Count>
void expect_lines(const line_row (&rows)[Count])
{
    for (const line_row& row : rows) {
        result = row.result;
        EXPECT_EQ(line_answer(row.line), row.answer) << row.line << " with " << row.result;
    }
}

struct Drivers : testing::Test {
    Drivers()
    {
        result = 0;
        given = 0;
        called.clear();
        line_spy_start();
    }
};

bt_co make_bt()
{
    bt_co co{};
    co.start = [] { return 0; };
    co.stop = [] { return 0; };
    co.dl = [](int what) { called += " dl " + std::to_string(what); return result; };
    co.rd = [](void*, std::size_t) { return 0; };
    co.rd_poll = [] { return std::size_t{0}; };
    co.wr = [](const void*, std::size_t) { return 0; };
    co.script_exec = [](const char* path) { called = path; return result; };
    co.tst_tx_static = [](std::uint32_t ch, std::uint32_t pwr, std::uint32_t dat, std::uint32_t rate, std::uint32_t pat) {
        called = std::to_string(ch) + " " + std::to_string(dat) + " " + std::to_string(rate) + " " + std::to_string(pat) +
                 " " + std::to_string(pwr);
        return result;
    };
    co.tst_tx_switched = [](std::uint32_t mode, std::uint32_t ch, std::uint32_t pkt, std::uint32_t len, std::uint32_t pwr,
                            std::uint32_t pat) {
        called = std::to_string(ch) + " " + std::to_string(pkt) + " " + std::to_string(pat) + " " + std::to_string(mode) +
                 " " + std::to_string(pwr) + " " + std::to_string(len);
        return result;
    };
    co.addr_wr = [](const std::uint8_t* p, std::size_t n) { called = "wr " + std::to_string(p[0]) + " " + std::to_string(n); return result; };
    co.addr_rd = give_address;
    co.getBDaddressFromFlash = give_address;
    co.setBDaddressInFlash = take_address;
    co.tst_rx_cw_rssi = [](std::uint32_t, int* p_rssi) { *p_rssi = 61; return result; };
    co.scan = [](int, char*) { return result; };
    return co;
}

} // namespace
