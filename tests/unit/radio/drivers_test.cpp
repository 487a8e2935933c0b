// What the radio commands make of drivers that this phone doesn't have: rows that are missing, results that
// its own drivers never give, and good answers of operations that they lack.
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
#include "irda/irda.h"
#include "mdml/mdml.h"
#include "modem/modem.h"
#include "sim/sim.h"
#include "unit/line_spy.h"
#include "wlan/wlan.h"

namespace {

int result;         // what an operation gives
std::string called; // the values that it was given
std::size_t given;  // how many bytes a test of the chip's gives

template <typename... Values>
int note(Values... values)
{
    called.clear();
    ((called += (called.empty() ? "" : " ") + std::to_string(values)), ...);
    return result;
}

int tell(const std::string& text)
{
    called = text;
    return result;
}

int give_bytes(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count)
{
    called = count > 0 ? std::to_string(p_bytes[0]) + ".." + std::to_string(p_bytes[count - 1]) : "none";
    for (std::size_t i = 0; i < given && i < 10; i++)
        p_out[i] = static_cast<std::uint8_t>(10 + 33 * i);
    *p_count = given;
    return result;
}

int give_address(std::uint8_t* p_addr)
{
    std::memcpy(p_addr, "\x01\x02\x03\xFD\xFE\xFF", BT_ADDR_SIZE);
    return result;
}

int give_text(char* p_text)
{
    std::strcpy(p_text, "text");
    return result;
}

struct Drivers : testing::Test {
    line_spy spy;

    Drivers()
    {
        result = 0;
        given = 0;
        called.clear();
    }

    // Rows "LINE -> ANSWER", or "LINE -> ANSWER; the values that the driver was given", with `gives` as the
    // driver's result. An answer is its lines, a bar behind each, and its status.
    void expect(std::initializer_list<std::string_view> rows, int gives = 0)
    {
        for (const std::string_view row : rows) {
            const std::size_t arrow = row.find(" -> ");
            ASSERT_NE(arrow, row.npos) << row;
            result = gives;
            const int status = spy.say(std::string(row.substr(0, arrow)).c_str());
            std::string got;
            for (const std::string& shown : spy.lines)
                got += shown + "|";
            got += std::to_string(status);
            if (row.find("; ", arrow) != row.npos)
                got += "; " + called;
            EXPECT_EQ(got, row.substr(arrow + 4)) << row;
        }
    }
};

bt_co full_bt()
{
    bt_co co{};
    co.start = [] { return 0; };
    co.stop = [] { return 0; };
    co.dl = [](int what) { return note(what); };
    co.rd = [](void*, std::size_t) { return 0; };
    co.rd_poll = [] { return std::size_t{0}; };
    co.wr = [](const void*, std::size_t) { return 0; };
    co.script_exec = [](const char* path) { return note(std::strlen(path)); };
    co.tst_tx_static = [](auto... values) { return note(values...); };
    co.tst_tx_switched = [](auto... values) { return note(values...); };
    co.addr_wr = [](const std::uint8_t* p, std::size_t size) { return note(p[0], p[5], size); };
    co.addr_rd = give_address;
    co.getBDaddressFromFlash = give_address;
    co.setBDaddressInFlash = [](const std::uint8_t* p) { return note(p[0], p[5]); };
    co.tst_rx_cw_rssi = [](std::uint32_t channel, int* p_rssi) { return note(channel, *p_rssi = 61); };
    co.scan = [](int count, char*) { return note(count); };
    return co;
}

TEST_F(Drivers, RowsThatABluetoothDriverLacksAreNotFound)
{
    const bt_co co = full_bt();
    bt_init();
    f_bt_init();
    bt_attach(&co);
    EXPECT_EQ(bt_reset(), BT_NOT_IMPLEMENTED);
    expect({"bthr=1 -> bthr: |3", "bsrx=1,0,3 -> bsrx: |3", "bsrx=0,0 -> bsrx: |3", "bwcx=1 -> bwcx:|3",
            "pint -> pint:0xFF,0xFF,0xFF|1"});
    // without the chip's defaults those of the commands hold, and values go behind them in their order
    expect({"bstx=3 -> bstx: |0; 3 15 0 0 0", "bwtx=3,2,1,0,7 -> bwtx: |0; 0 3 2 1024 7 1",
            "bwtx -> bwtx: |0; 0 0 0 1024 15 4"});
}

TEST_F(Drivers, WhatAnotherBluetoothDriverCouldDo)
{
    bt_co co = full_bt();
    co.test_coex = give_bytes;
    co.chip_reset = [] { return result; };
    bt_init();
    f_bt_init();
    bt_attach(&co);
    expect({"bthr=1 -> bthr: |0"});
    expect({"btse=\"file\" -> btse:File not found.|1"}, BT_NO_FILE);
    expect({"btse=\"file\" -> btse: |0; 4", "blrx=5 -> blrx:-61|0", "rwbt -> rwbt:0x010203FDFEFF|0",
            "rwbt=1,\"0xAb0000000012\" -> rwbt: |0; 171 18", "rwbt=2 -> rwbt: |0; 1 255 6",
            "rwbt=4,\"ab0000000013\" -> rwbt: |0; 171 19 6"});
    expect({"btscan=3 -> btscan:Not implemented|3"}, BT_NOT_IMPLEMENTED);
    // the downloads' numbers, and the first that fails is the last
    expect({"btfd=1,1 -> btfd: |0; 0", "btfd=1,2 -> btfd: |0; 2", "btfd=1,3 -> btfd: |0; 1",
            "btfd=1,0 -> btfd: |0; 1"});
    expect({"btfd=1,0 -> btfd: |1; 0"}, 1);
}

TEST_F(Drivers, TestsThatGiveBytes)
{
    bt_co bluetooth = full_bt();
    bluetooth.test_coex = give_bytes;
    bt_init();
    f_bt_init();
    bt_attach(&bluetooth);
    wlan_co wlan{};
    wlan.start = [](std::uint32_t) { return 0; };
    wlan.test_coex = give_bytes;
    wlan.selftest = give_bytes;
    wlan_init();
    f_wlan_init();
    wlan_attach(&wlan);
    expect({"wlpu -> wlpu: |0", "bwcx -> bwcx:|0; none"});
    given = 3;
    expect({"bwcx=1,2,ff -> bwcx:0x0a,0x2b,0x4c|0; 1..255", "wbcx=10 -> wbcx:0x0a,0x2b,0x4c|0; 16..16",
            "wlst=10,20 -> wlst:10,43,76|0; 10..20"});
    expect({"bwcx -> bwcx:|2"}, 5);
    expect({"wbcx -> wbcx:|1"}, 1);
    expect({"wlst -> wlst: |1"}, 5);
    given = 10;
    expect({"bwcx -> bwcx:0x0a,0x2b,0x4c,0x6d,0x8e,0xaf,0xd0,0xf1,0x12,0x33|0"});
    given = 11;
    expect({"bwcx -> bwcx:Response to large|1"});
    given = 20;
    expect({"wlst -> wlst:10,43,76,109,142,175,208,241,18,51,0,0,0,0,0,0,0,0,0,0|0"});
    given = 21;
    expect({
        "wlst -> wlst:Response to large|1", "wlpd -> wlpd: |0", // the next test finds the radio down
    });
}

TEST_F(Drivers, RowsThatAWlanDriverLacksAreNotFound)
{
    wlan_co co{};
    wlan_init();
    f_wlan_init();
    wlan_attach(&co);
    expect({"wlpu -> wlpu: |3", "wlcg=1 -> 3"});
    co.start = [](std::uint32_t) { return result; };
    expect({"wlpu -> wlpu: |0", "wtfd -> wtfd: |1", "wlid -> wlid: |3", "wsrx -> wsrx: |3",
            "wsrx=1,6 -> wsrx: |3", "wlrx -> 3", "wlrx=1,6 -> wlrx: |3", "wbtx -> wbtx: |1",
            "wbcx -> wbcx:|3", "wlscan -> wlscan:Not implemented|3"});
    co.nvs_id = give_text;
    co.scan = [](char*) { return result; };
    co.calibration_gain = [](std::uint32_t, std::uint32_t*) { return result; };
    co.tx_burst = [](const wlan_burst* p) { return note(p->channel, p->power); };
    co.rx_static_stop = [] { return 0; };
    expect({"wlid=1 -> wlid:text|0", "wlscan -> wlscan:No access points|1"});
    expect({"wlcg=1 -> wlcg: |2"}, WLAN_BAD_VALUE);
    expect({"wsrx -> wsrx: |3", "wbtx=5 -> wbtx: |0; 5 0", "wtxg=1 -> wtxg: |3",
            "widl -> widl: |1", // and it can't be stopped
            "wlpd -> wlpd: |0"});
}

TEST_F(Drivers, RowsThatASmallDriverLacksAreSyntaxOrErrors)
{
    const sim_co no_sim{};
    const modem_co no_modem{};
    const fm_co no_fm{};
    irda_co no_irda{};
    sim_init();
    modem_init();
    fm_init();
    irda_init();
    f_sim_init();
    f_modem_init();
    f_fm_init();
    EXPECT_EQ(modem_reset(1), 0); // nor is there a driver at all
    sim_co_attach(&no_sim);
    modem_co_attach(&no_modem);
    fm_co_attach(&no_fm);
    irda_co_attach(&no_irda);
    expect({"sict=1 -> sict:|2", "sict=4 -> sict:|2", "mdmb -> mdmb:|1", "mdmr -> mdmr:|1",
            "mdmf=1 -> mdmf:|1", "mdmid -> mdmid:|1", "fmct=1,900 -> fmct: |0", "fmct=6 -> fmct:0x0000|0",
            "fmct=0 -> fmct: |0"});
    EXPECT_EQ(irda_start() + irda_stop() + irda_set_para({}) + irda_tx(1) + irda_rx(true) + irda_loop(1, 1),
              0);
}

TEST_F(Drivers, WhatAnotherModemDriverCouldDo)
{
    modem_co modem{};
    modem.reset = [](std::uint32_t value) { return note(value); };
    modem.switch_get = [](std::uint32_t* p) {
        *p = 0xFFFFFFFE;
        return result;
    };
    modem.switch_set = [](std::uint32_t value) { return note(value); };
    modem.fuse = [](const std::uint8_t* p, std::size_t size) { return note(p[0], p[size - 1], size); };
    modem.id = [](std::uint32_t* p) {
        *p = 0xBEEF;
        return result;
    };
    modem_init();
    f_modem_init();
    modem_co_attach(&modem);
    expect({"mdmr=7 -> mdmr:|0; 7", "mdsw -> mdsw:-2|0"}, 1);
    expect({"mdsw -> mdsw: |1"}, 2);
    expect({"mdsw=1,5 -> mdsw:|0; 5", "mdmf= 1 6,0xFE, 3 -> mdmf:|0; 16 3 3", "mdmid -> mdmid:0xbeef|0"}, 1);
}

TEST_F(Drivers, WhatAnotherFmDriverCouldDo)
{
    fm_co fm{};
    fm.freq_set = [](std::uint32_t hz) { return note(hz); };
    fm.band_set = [](int band) { note(band); };
    fm.space_set = [](int space) { called += " " + std::to_string(space); };
    fm.vol_set = [](std::uint16_t volume) { called += " " + std::to_string(volume); };
    fm.de_set = [](int de_emphasis) { called += " " + std::to_string(de_emphasis); };
    fm.dev_id = [] { return std::uint32_t{0x12345}; };
    fm.chip_id = [] { return std::uint32_t{0x26789}; };
    fm.reg_get = [](std::uint8_t reg) { return std::uint32_t{0x30000u + reg}; };
    fm_init();
    f_fm_init();
    fm_co_attach(&fm);
    expect({"fmct=1,900 -> fmct:tune timeout|fmct: |1; 90000000"}, FM_TIMEOUT);
    expect({"fmct=4 -> fmct:0x2345|0", "fmct=5 -> fmct:0x6789|0", "fmct=7,0x1FE -> fmct:0x00fe|0",
            "fmct=2,0 -> fmct: |0; 2 1 100 0", "fmct=2,1 -> fmct: |0; 1 1 100 0",
            "fmct=2,2 -> fmct: |0; 3 1 100 0", "fmct=0 -> fmct: |0"});
}

TEST_F(Drivers, WhatAnotherSimDriverCouldDo)
{
    sim_co sim{};
    sim.detect = [](std::uint8_t* p) {
        *p = 0x35;
        return result;
    };
    sim.ct = [](std::uint8_t kind, std::uint8_t* p) {
        *p = kind;
        return result;
    };
    sim_init();
    f_sim_init();
    sim_co_attach(&sim);
    expect({"sict=4 -> sict:0x35|0", "sict=4,1 -> sict:0x05|0", "sict=4,2 -> sict:0x03|0",
            "sict=2,2 -> sict:0x22|0", "sict=0,1 -> sict:0x10|0"});
    expect({"sict=1 -> sict:|1"}, 3);
}

TEST_F(Drivers, ALogDriverIsCalledWithTheTextThatWasGiven)
{
    mdml_co mdml{};
    mdml.off = [] { return tell("off"); };
    mdml.on = [](const char* p) { return tell(std::string("on ") + p); };
    mdml.set_mask = [](const char* p) { return tell(std::string("mask ") + p); };
    mdml.rm_log = [](const char* p) { return tell(std::string("rm ") + (p != nullptr ? p : "all")); };
    mdml_init();
    f_mdml_init();
    expect({"mdml=0 -> mdml: |1"});
    mdml_cmd_co_attach(&mdml);
    expect({"mdml=0 -> mdml: |0; off", "mdml=1,a,b -> mdml: |0; on a,b", "mdml=2,/m -> mdml: |0; mask /m",
            "mdml=3 -> mdml: |0; rm all", "mdml=3,x -> mdml: |0; rm x"});
    expect({"mdml=0 -> mdml: |1"}, 7);
}

} // namespace
